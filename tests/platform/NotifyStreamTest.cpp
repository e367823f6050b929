#include "kelNotify/Notify.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace kelNotify;

namespace
{

class Collector : public NotifyHandler
{
public:
  void notify(NotifySeverity severity, const std::string& line) override { lines.emplace_back(severity, line); }
  std::vector<std::pair<NotifySeverity, std::string>> lines;
};

class NotifyStream : public ::testing::Test
{
protected:
  void SetUp() override
  {
    setNotifyHandler(collector);
    setNotifyLevel(NOTIFY_NOTICE);
  }
  void TearDown() override
  {
    setNotifyHandler(nullptr);
    setNotifyLevel(NOTIFY_NOTICE);
  }
  std::shared_ptr<Collector> collector = std::make_shared<Collector>();
};

TEST_F(NotifyStream, LinesReachTheHandlerWithTheirSeverity)
{
  notify(NOTIFY_WARN) << "Dropped a drop out of " << 3 << " points\n";
  notify(NOTIFY_ERROR) << "first\nsecond\n";
  ASSERT_EQ(3u, collector->lines.size());
  EXPECT_EQ(NOTIFY_WARN, collector->lines[0].first);
  EXPECT_EQ("Dropped a drop out of 3 points", collector->lines[0].second);
  EXPECT_EQ("second", collector->lines[2].second);
}

TEST_F(NotifyStream, APartLineWaitsForItsEndOrAFlush)
{
  notify(NOTIFY_NOTICE) << "half";
  EXPECT_TRUE(collector->lines.empty());
  notify(NOTIFY_NOTICE) << " done" << std::flush;
  ASSERT_EQ(1u, collector->lines.size());
  EXPECT_EQ("half done", collector->lines[0].second);
}

TEST_F(NotifyStream, SeveritiesBelowTheLevelGoNowhere)
{
  EXPECT_TRUE(isNotifyEnabled(NOTIFY_WARN));
  EXPECT_FALSE(isNotifyEnabled(NOTIFY_INFO));
  notify(NOTIFY_INFO) << "hidden\n";
  setNotifyLevel(NOTIFY_ERROR);
  EXPECT_FALSE(isNotifyEnabled(NOTIFY_WARN));
  notify(NOTIFY_WARN) << "hidden too\n";
  notify(NOTIFY_ALWAYS) << "always\n";
  ASSERT_EQ(1u, collector->lines.size());
  EXPECT_EQ("always", collector->lines[0].second);
  EXPECT_STREQ("WARN", severityName(NOTIFY_WARN));
}

TEST_F(NotifyStream, ANullHandlerRestoresStandardError)
{
  setNotifyHandler(nullptr);
  ASSERT_NE(nullptr, notifyHandler());
  testing::internal::CaptureStderr();
  notify(NOTIFY_ERROR) << "to the terminal\n";
  EXPECT_EQ("ERROR: to the terminal\n", testing::internal::GetCapturedStderr());
}

} // namespace
