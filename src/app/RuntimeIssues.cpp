#include "app/RuntimeIssues.h"

#include <cmath>
#include <ctime>

#include "model/AppModel.h"

namespace tolv {

std::string iso8601Time(double secondsSince1970) {
  std::time_t seconds = static_cast<std::time_t>(std::floor(secondsSince1970));
  std::tm utc{};
  gmtime_r(&seconds, &utc);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
  return text;
}

std::string runtimeIssueLogEntry(double secondsSince1970, std::string_view version,
                                 std::string_view title, std::string_view detail) {
  // Built by appending: g++ 12 at -O3 reports an overlap that cannot happen in
  // `"literal" + std::string` (GCC bug 105329).
  std::string entry = "[";
  entry += iso8601Time(secondsSince1970);
  entry += "] Tolv ";
  entry.append(version.empty() ? "Unknown" : version);
  entry += '\n';
  entry.append(title);
  entry += '\n';
  entry.append(detail);
  entry += "\n\n";
  return entry;
}

std::string runtimeLogPath(FileSystem& fileSystem) {
  return fileSystem.applicationSupportFolder() + "/" + kRuntimeLogFileName;
}

std::string folderNotCreatedDescription(const std::string& folder) {
  return "The folder \u201C" + folder + "\u201D couldn\u2019t be created.";
}

std::string logNotSavedDescription() {
  return std::string("The file \u201C") + kRuntimeLogFileName + "\u201D couldn\u2019t be saved.";
}

namespace {

// Appends the entry to the log, or writes it as a new file; the failure's
// description when neither works.
std::optional<std::string> appendToLog(FileSystem& fileSystem, const std::string& entry) {
  const std::string folder = fileSystem.applicationSupportFolder();
  if (!fileSystem.createDirectories(folder)) {
    return folderNotCreatedDescription(folder);
  }
  const std::string path = runtimeLogPath(fileSystem);
  std::vector<uint8_t> bytes(entry.begin(), entry.end());
  bool written = fileSystem.exists(path) ? fileSystem.appendToFile(path, bytes)
                                         : fileSystem.writeFileAtomically(path, bytes);
  if (!written) {
    return logNotSavedDescription();
  }
  return std::nullopt;
}

}  // namespace

void recordRuntimeIssue(const Platform& platform, const RuntimeIssue& issue) {
  FileSystem& fileSystem = *platform.fileSystem;
  std::string entry = runtimeIssueLogEntry(platform.clock->secondsSince1970(), TOLV_VERSION,
                                           issue.title, issue.detail);
  std::optional<std::string> failure = appendToLog(fileSystem, entry);
  if (!issue.notify) return;

  std::string message =
      issue.title + "\n\n" + issue.detail + "\n\nError log: " + runtimeLogPath(fileSystem);
  if (failure) message += "\n\nThe log could not be written: " + *failure;

  Defaults defaults(*platform.userDefaults, kTolvBundleIdentifier);
  if (auto pending = stringValue(defaults.value(kPendingRuntimeIssueMessageKey));
      pending && !pending->empty()) {
    message = *pending + "\n\n" + message;
  }
  defaults.set(kPendingRuntimeIssueMessageKey, message);
  bool restart =
      boolValue(defaults.value(kPendingRuntimeIssueRequestsRestartKey)).value_or(false) ||
      issue.requestRestart;
  defaults.set(kPendingRuntimeIssueRequestsRestartKey, restart);
  defaults.synchronize();

  NotificationCenter* center = platform.notificationCenter;
  platform.runLoop->post([center] {
    center->post(Notification{kRuntimeIssueRecordedNotification, std::nullopt});
  });
}

}  // namespace tolv
