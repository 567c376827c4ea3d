#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "app/RuntimeIssues.h"
#include "platform/sim/SimUserDefaults.h"
#include "support/StartedModel.h"

namespace tolv {
namespace {

class RuntimeIssues : public testing::StartedModel {
 protected:
  Platform platform = desktop.platform();
  int recordedNotifications = 0;
  NotificationCenter::Token token = desktop.notificationCenter().addObserver(
      kRuntimeIssueRecordedNotification, [this](const Notification&) { ++recordedNotifications; });

  std::optional<std::string> pendingMessage() {
    return stringValue(
        desktop.defaults().value(kTolvBundleIdentifier, kPendingRuntimeIssueMessageKey));
  }
  std::optional<bool> pendingRestart() {
    return boolValue(
        desktop.defaults().value(kTolvBundleIdentifier, kPendingRuntimeIssueRequestsRestartKey));
  }
};

TEST_F(RuntimeIssues, TheLogIsCreatedWithTheFirstEntryAndAppendedToAfterwards) {
  desktop.clock().set(1772442000.75);  // 2026-03-02 09:00:00.75 UTC
  recordRuntimeIssue(platform, {.title = "First title", .detail = "First detail"});
  desktop.runLoop().advance(61);
  recordRuntimeIssue(platform, {.title = "Second title", .detail = "Second detail"});

  std::string stamp = std::string("] Tolv ") + TOLV_VERSION + "\n";
  EXPECT_EQ(log(), "[2026-03-02T09:00:00Z" + stamp + "First title\nFirst detail\n\n" +
                       "[2026-03-02T09:01:01Z" + stamp + "Second title\nSecond detail\n\n");
  desktop.runLoop().runUntilIdle();
  EXPECT_EQ(recordedNotifications, 0);
  EXPECT_FALSE(pendingMessage());
}

TEST_F(RuntimeIssues, NotifiedIssuesWaitTogetherOldestFirstAndAnnounceOnTheMainQueue) {
  recordRuntimeIssue(
      platform, {.title = "One", .detail = "Detail one.", .requestRestart = true, .notify = true});
  recordRuntimeIssue(platform, {.title = "Two", .detail = "Detail two.", .notify = true});
  EXPECT_EQ(recordedNotifications, 0);
  desktop.runLoop().runUntilIdle();
  EXPECT_EQ(recordedNotifications, 2);

  std::string path = runtimeLogPath(*platform.fileSystem);
  EXPECT_EQ(pendingMessage(), "One\n\nDetail one.\n\nError log: " + path +
                                  "\n\nTwo\n\nDetail two.\n\nError log: " + path);
  // A later issue that asks for no restart never clears the request.
  EXPECT_EQ(pendingRestart(), true);
}

TEST_F(RuntimeIssues, AnUnwritableLogStillReportsAndSaysWhy) {
  // A file where the folder should be: the folder can't be made.
  std::ofstream(desktop.applicationSupportFolder()) << "in the way";
  recordRuntimeIssue(platform, {.title = "Title", .detail = "Detail.", .notify = true});
  desktop.runLoop().runUntilIdle();
  EXPECT_EQ(recordedNotifications, 1);
  ASSERT_TRUE(pendingMessage());
  EXPECT_THAT(*pendingMessage(),
              ::testing::HasSubstr("/runtime-errors.log\n\nThe log could not be written: "));
  EXPECT_EQ(pendingRestart(), false);
}

TEST(RuntimeIssueTime, IsWrittenInUtcWithWholeSeconds) {
  EXPECT_EQ(iso8601Time(0), "1970-01-01T00:00:00Z");
  EXPECT_EQ(iso8601Time(1772442000.999), "2026-03-02T09:00:00Z");
}

}  // namespace
}  // namespace tolv
