#pragma once

#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace tolv {

// Posted on the process's own centre after an issue was recorded with `notify`.
inline constexpr const char* kRuntimeIssueRecordedNotification = "TolvRuntimeIssueRecorded";
inline constexpr const char* kRuntimeLogFileName = "runtime-errors.log";
// The issue not yet shown to the user, and whether one of them asked for a restart.
inline constexpr const char* kPendingRuntimeIssueMessageKey = "pendingRuntimeIssueMessage";
inline constexpr const char* kPendingRuntimeIssueRequestsRestartKey =
    "pendingRuntimeIssueRequestsRestart";

// A moment as a default ISO 8601 formatter writes it: UTC, whole seconds,
// "2026-03-02T09:00:00Z".
std::string iso8601Time(double secondsSince1970);

// One entry of the log: the stamp line, the title, the detail and a blank line.
std::string runtimeIssueLogEntry(double secondsSince1970, std::string_view version,
                                 std::string_view title, std::string_view detail);

std::string runtimeLogPath(FileSystem& fileSystem);

// The descriptions of the log's two failures, as the user reads them.
std::string folderNotCreatedDescription(const std::string& folder);
std::string logNotSavedDescription();

// Appends an internal fault to the log. With `notify`, the issue is also kept
// for the user in the defaults, after any issues still waiting there, and
// TolvRuntimeIssueRecorded is posted on the main queue, so that whoever reacts
// does so after the current work has ended. A log that can't be written never
// stops the report: the failure joins the message.
void recordRuntimeIssue(const Platform& platform, const RuntimeIssue& issue);

// The runtime log as the platform's layers reach it: runtime-errors.log in the
// Application Support folder of the platform it is made over.
class RuntimeIssueFile : public RuntimeIssueLog {
 public:
  explicit RuntimeIssueFile(const Platform& platform) : platform_(platform) {}
  void record(const RuntimeIssue& issue) override { recordRuntimeIssue(platform_, issue); }

 private:
  Platform platform_;
};

}  // namespace tolv
