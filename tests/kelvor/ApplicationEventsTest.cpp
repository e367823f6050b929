#include "host/PIApplicationEvents.h"
#include "host/PIData.h"
#include "server/ApplicationEventRelay.h"
#include "support/ServerFixture.h"

namespace
{

// What a plug-in hears, as event number and the id or ids it carried.
struct Heard
{
  int event;
  std::vector<UniqueID_t> ids;
  bool operator==(const Heard& o) const { return event == o.event && ids == o.ids; }
};

class ApplicationEvents : public ServerFixture
{
protected:
  void SetUp() override
  {
    ServerFixture::SetUp();
    store.setListener(&relay);
  }
  std::vector<Heard> heard;
  kelvor::ApplicationEventRelay relay{[this](int event, void* data) {
    Heard h{event, {}};
    if (event == PI_EVENT_ENTITY_DATA_CHANGED)
    {
      const auto* ids = static_cast<const std::set<UniqueID_t>*>(data);
      h.ids.assign(ids->begin(), ids->end());
    }
    else if (data)
      h.ids.push_back(*static_cast<const UniqueID_t*>(data));
    heard.push_back(h);
  }};
};

TEST_F(ApplicationEvents, StoreChangesReachPluginsAsTheirEvents)
{
  PIData::PIPlatformHeader ph;
  PIData::PIPlatformPoint first;
  first.time = 1.0;
  first.position = {0, 0, 0};
  const UniqueID_t p = PIData::createPlatform(&ph, &first);
  PIData::PIBeamHeader bh;
  PIData::PIBeamPoint bp{0, 0, 1, 1};
  const UniqueID_t b = PIData::createBeam(p, &bh, &bp, true);
  PIData::setColor(p, 0xFFFFFFFF, 1.0);
  PIData::setReferenceYear(2030);
  PIData::clockSetMode(PI_CLOCK_LIVE, -1.0);
  PIData::removeEntity(p, false);
  PIData::initializeScenario();

  const std::vector<Heard> expected = {
    {PI_EVENT_PLATFORM_ADDED, {p}},     {PI_EVENT_BEAM_ADDED, {b}},        {PI_EVENT_ENTITY_DATA_CHANGED, {p}},
    {PI_EVENT_REFERENCE_YEAR_CHANGED, {}}, {PI_EVENT_CLOCK_MODE_CHANGED, {}}, {PI_EVENT_ENTITY_REMOVED, {b}},
    {PI_EVENT_ENTITY_REMOVED, {p}},     {PI_EVENT_SCENARIO_CLOSING, {}},   {PI_EVENT_SCENARIO_RESET, {}}};
  EXPECT_EQ(expected, heard);
}

TEST(ApplicationEventNumbers, EachKindHasItsAdditionEvent)
{
  EXPECT_EQ(5, kelvor::ApplicationEventRelay::additionEvent(PI_PLATFORM_TYPE));
  EXPECT_EQ(7, kelvor::ApplicationEventRelay::additionEvent(PI_GATE_TYPE));
  EXPECT_EQ(12, kelvor::ApplicationEventRelay::additionEvent(PI_LASER_TYPE));
  EXPECT_EQ(14, kelvor::ApplicationEventRelay::additionEvent(PI_LOB_GROUP_TYPE));
  EXPECT_EQ(18, kelvor::ApplicationEventRelay::additionEvent(PI_PROJECTOR_TYPE));
  EXPECT_EQ(19, kelvor::ApplicationEventRelay::additionEvent(PI_CUSTOM_RENDERING_TYPE));
  EXPECT_EQ(-1, kelvor::ApplicationEventRelay::additionEvent(PI_GENERIC_DATA_TYPE));
}

} // namespace
