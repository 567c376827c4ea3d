#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "arrangement/ArrangementTesting.h"

namespace tolv::testing {

// A model started on a desktop, with the commands it gives read back from the
// desktop's action log in a compact form: "activate 1 0", "unhide 1",
// "AXRaise Two", "AXMinimized=true Two", "AXFrontmost=true 1", "keys".
class CommandTest : public ArrangementTest {
 protected:
  // The running program rescans every application when any becomes active, so
  // that the one that lost the focus does not keep its cached active window.
  CommandTest() {
    activationObserver_ = desktop.platform().workspace->notificationCenter().addObserver(
        workspace_notification::DidActivateApplication, [this](const Notification&) {
          desktop.runLoop().post([this] { model().refreshRunningApps({.allowCacheSkip = true}); });
        });
  }
  ~CommandTest() override {
    desktop.platform().workspace->notificationCenter().removeObserver(activationObserver_);
  }

  RunningAppItem shown(const std::string& name) {
    const auto& items = model().runningApps.get();
    auto found = std::find_if(items.begin(), items.end(),
                              [&](const RunningAppItem& item) { return item.name == name; });
    if (found == items.end()) ADD_FAILURE() << "no task named " << name;
    return found == items.end() ? RunningAppItem{} : *found;
  }
  std::vector<std::string> activeNames() {
    std::vector<std::string> names;
    for (const auto& item : model().runningApps.get()) {
      if (item.isActive) names.push_back(item.name);
    }
    return names;
  }
  // The log entries from `from` on.
  std::vector<std::string> actions(size_t from = 0) {
    std::vector<std::string> described;
    const auto& log = desktop.actionLog();
    for (size_t i = from; i < log.size(); ++i)
      described.push_back(describe(log[i]));
    return described;
  }
  size_t logSize() { return desktop.actionLog().size(); }
  const sim::WindowSetup& windowSetup(Pid pid, const std::string& title) {
    static const sim::WindowSetup none;
    const sim::SimWindow* found = desktop.findWindow(pid, {.title = title});
    return found ? found->setup : none;
  }
  bool windowExists(Pid pid, const std::string& title) {
    return desktop.findWindow(pid, {.title = title}) != nullptr;
  }
  void settle() { desktop.runLoop().advance(3.0); }

 private:
  NotificationCenter::Token activationObserver_{};
  static std::string subject(const nlohmann::json& entry) {
    if (entry.contains("window")) return entry["window"].get<std::string>();
    if (entry.contains("pid")) return std::to_string(entry["pid"].get<int>());
    return "-";
  }
  static std::string describe(const nlohmann::json& entry) {
    const std::string kind = entry["kind"];
    if (kind == "axAction") return entry["action"].get<std::string>() + " " + subject(entry);
    if (kind == "axSet") {
      return entry["attribute"].get<std::string>() + "=" + entry["value"].dump() + " " +
             subject(entry);
    }
    if (kind == "activate") {
      return "activate " + subject(entry) + " " + std::to_string(entry["options"].get<int>());
    }
    if (kind == "keys") return kind;
    return kind + " " + subject(entry);
  }
};

}  // namespace tolv::testing
