#include "host/PIBase.h"
#include "host/PI_DATA_STRUCT.h"
#include "host/handle.h"
#include "support/PluginGlobalsFixture.h"

#include <gtest/gtest.h>

namespace
{

const std::string FAILURE_TEXT =
    "Invalid Plug-in API Support Function Map.  Plug-in API calls are being made outside of the context of a "
    "loaded plug-in.\nAPI service request has not been processed.\n";

class CallPath : public PluginGlobalsFixture
{
protected:
  int identity = 0;
};

TEST_F(CallPath, ARequestReachesTheMapUnderThePluginsIdentityAndReturnsItsResult)
{
  bindMap(&identity);
  host.result = 1LL << 40;
  PIData::PI_DATA_STRUCT record;
  EXPECT_EQ(1LL << 40, handle(PISF_GET_HEADER, &record));

  auto requests = host.ofFamily(PISF_GET_HEADER);
  ASSERT_EQ(1u, requests.size());
  EXPECT_EQ(&identity, requests[0].identity);
  EXPECT_EQ(&record, requests[0].record);
}

TEST_F(CallPath, EveryRequestFirstAsksTheHostForTheOverridingIdentity)
{
  bindMap(&identity);
  handle(PISF_GET_REFERENCE_YEAR, nullptr);
  ASSERT_EQ(2u, host.requests.size());
  EXPECT_EQ(PISF_OVERRIDE_THIS_POINTER, host.requests[0].family);
  EXPECT_EQ(nullptr, host.requests[0].identity);
  EXPECT_EQ(0, host.requests[0].selector);
  EXPECT_EQ(PISF_GET_REFERENCE_YEAR, host.requests[1].family);
}

TEST_F(CallPath, PushedIdentitiesOverrideThePluginsUntilPopped)
{
  bindMap(&identity);
  int first = 0;
  int second = 0;
  EXPECT_EQ(0, PIBase::pushOverrideThisPointer(&first));
  EXPECT_EQ(0, PIBase::pushOverrideThisPointer(&second));
  handle(PISF_GET_OBJECT_TYPE, nullptr);
  EXPECT_EQ(&second, host.requests.back().identity);

  EXPECT_EQ(0, PIBase::popOverrideThisPointer());
  handle(PISF_GET_OBJECT_TYPE, nullptr);
  EXPECT_EQ(&first, host.requests.back().identity);

  PIBase::popOverrideThisPointer();
  handle(PISF_GET_OBJECT_TYPE, nullptr);
  EXPECT_EQ(&identity, host.requests.back().identity);
  EXPECT_EQ(1, PIBase::popOverrideThisPointer()) << "the host's status of a pop on an empty stack";

  for (const auto& r : host.ofFamily(PISF_OVERRIDE_THIS_POINTER))
    EXPECT_EQ(nullptr, r.identity) << "override requests go out with no identity";
}

TEST_F(CallPath, WithoutAMapEachFailedHostCallWritesTheTextAndYieldsZero)
{
  testing::internal::CaptureStderr();
  PIData::PI_DATA_STRUCT record;
  record.status = 2;
  EXPECT_EQ(0, handle(PISF_ADD_DATA_POINT, &record));
  EXPECT_EQ(FAILURE_TEXT + FAILURE_TEXT, testing::internal::GetCapturedStderr())
      << "the override query and the request each fail";
  EXPECT_EQ(2, record.status) << "the record keeps what it had";

  testing::internal::CaptureStderr();
  EXPECT_EQ(nullptr, PIBase::getOverriddenThisPointer());
  EXPECT_EQ(0, PIBase::pushOverrideThisPointer(&identity));
  EXPECT_EQ(0, PIBase::popOverrideThisPointer());
  EXPECT_EQ(FAILURE_TEXT + FAILURE_TEXT + FAILURE_TEXT, testing::internal::GetCapturedStderr());
}

TEST(PIBaseVersion, IsOnePointTwentyNine)
{
  EXPECT_EQ("1.29.0", PIBase::versionString());
  EXPECT_EQ(12900, PIBase::buildNumber());
  EXPECT_DOUBLE_EQ(1.9029, PIBase::legacyApiVersion());
}

TEST(PIBaseVersion, LegacyFormFollowsEachSchemeOfItsMajorAndMinor)
{
  EXPECT_DOUBLE_EQ(0.05, PIBase::legacyApiVersion(0, 5, 7));
  EXPECT_DOUBLE_EQ(1.702, PIBase::legacyApiVersion(1, 7, 2));
  EXPECT_DOUBLE_EQ(1.0, PIBase::legacyApiVersion(1, 0, 0));
  EXPECT_DOUBLE_EQ(1.9, PIBase::legacyApiVersion(1, 9, 0));
  EXPECT_DOUBLE_EQ(1.9022, PIBase::legacyApiVersion(1, 22, 0));
  EXPECT_DOUBLE_EQ(1.901003, PIBase::legacyApiVersion(1, 10, 3));
  EXPECT_DOUBLE_EQ(2.0304, PIBase::legacyApiVersion(2, 3, 4));
}

} // namespace
