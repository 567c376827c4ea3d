#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/Signal.h"

namespace tolv {

class AppModel;
struct TaskRowLayout;

// Keeps the model's taskbar state in step with the bar: publishes what the
// layout of the main screen found, keeps the return lock and the width overrides
// to what exists, and notices the settings changes that end a lock or a reveal.
// Settings are plain values, so their changes are noticed at each layout pass.
class TaskRowsKeeper {
 public:
  explicit TaskRowsKeeper(AppModel& model);
  TaskRowsKeeper(const TaskRowsKeeper&) = delete;
  TaskRowsKeeper& operator=(const TaskRowsKeeper&) = delete;

  // After each layout pass of the main screen's bar.
  void layoutPassed(const TaskRowLayout& layout);

  // Told when autoHideOverflow changed, after the model reacted.
  Signal<>& overflowAutoHideChanged() { return overflowAutoHideChanged_; }

 private:
  AppModel& model_;
  Subscription runningApps_;
  Signal<> overflowAutoHideChanged_;
  std::optional<size_t> lastPrimaryCount_;
  std::optional<size_t> lastLockedCount_;
  std::string lastGroupingMode_;
  bool lastAutoHideOverflow_;
  std::map<std::string, std::string> lastCustomGroupMembers_;
};

}  // namespace tolv
