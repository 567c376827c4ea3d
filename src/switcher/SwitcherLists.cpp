#include "switcher/SwitcherLists.h"

#include <algorithm>
#include <map>

#include "model/AppModel.h"

namespace tolv {

namespace {

const std::string kPreviewModeTexts[] = {"Tiles", "Thumbnails", "Focus Window", "No Preview"};

// The windows of `windows` not seen yet; they become seen.
std::vector<RunningAppItem> takeUnseen(const std::vector<RunningAppItem>& windows,
                                       std::set<std::string>& seen) {
  std::vector<RunningAppItem> kept;
  for (const auto& window : windows) {
    if (seen.insert(window.id).second) kept.push_back(window);
  }
  return kept;
}

// An application's group named after its first window.
RunningAppGroup groupLike(RunningAppGroup group, std::string id, const RunningAppItem& first) {
  group.id = std::move(id);
  group.appName = first.appName;
  group.icon = first.icon;
  return group;
}

}  // namespace

const std::string& previewModeText(LumoPreviewMode mode) {
  return kPreviewModeTexts[static_cast<size_t>(mode)];
}

LumoPreviewMode previewModeFromText(const std::optional<std::string>& text) {
  for (size_t i = 0; i < std::size(kPreviewModeTexts); ++i) {
    if (text && *text == kPreviewModeTexts[i]) return static_cast<LumoPreviewMode>(i);
  }
  return LumoPreviewMode::Tiles;
}

double thumbnailSizeFromSetting(std::optional<double> stored) {
  return stored && *stored > 0 ? *stored : 192.0;
}

LumoGroups lumoSwitcherGroups(const std::vector<TaskbarEntry>& entries,
                              const std::vector<RunningAppItem>& runningApps,
                              const std::set<std::string>& priorityIDs) {
  LumoGroups result;
  std::set<std::string> seen;
  for (const auto& entry : entries) {
    if (!entry.group || !entry.group->isCustom || !priorityIDs.count(entry.group->id)) continue;
    RunningAppGroup group = *entry.group;
    group.windows = takeUnseen(group.windows, seen);
    if (group.windows.empty()) continue;
    group.isCustom = true;
    result.priority.push_back(std::move(group));
  }

  // One group per process, in the order the processes first appear.
  std::vector<RunningAppGroup> applications;
  std::map<Pid, size_t> byProcess;
  for (const auto& item : runningApps) {
    auto [found, added] = byProcess.try_emplace(item.processIdentifier, applications.size());
    if (added) {
      applications.push_back(groupLike({}, "auto:" + std::to_string(item.processIdentifier), item));
    }
    applications[found->second].windows.push_back(item);
  }

  for (auto& group : applications) {
    std::erase_if(group.windows,
                  [&](const RunningAppItem& window) { return seen.count(window.id) > 0; });
    if (group.windows.empty()) continue;
    if (priorityIDs.count(group.id)) {
      takeUnseen(group.windows, seen);
      result.priority.push_back(group);
      continue;
    }
    std::vector<RunningAppItem> preferred;
    for (const auto& window : group.windows) {
      if (priorityIDs.count(window.id)) preferred.push_back(window);
    }
    if (!preferred.empty()) {
      takeUnseen(preferred, seen);
      RunningAppGroup sub;
      sub.id = lumo_id::PriorityGroup + group.id;
      sub.appName = group.appName;
      sub.icon = group.icon;
      sub.windows = preferred;
      result.priority.push_back(std::move(sub));
    }
    group.windows = takeUnseen(group.windows, seen);
    if (!group.windows.empty()) result.normal.push_back(std::move(group));
  }
  return result;
}

LumoGroups lumoSwitcherGroups(const AppModel& model) {
  return lumoSwitcherGroups(model.taskbarEntries({}), model.runningApps.get(),
                            model.lumoPriorityIDs);
}

std::vector<NavTarget> buildNavigation(const LumoSwitcherState& state) {
  std::vector<NavTarget> navigation;
  navigation.push_back({std::nullopt, std::nullopt, lumo_id::LockRow});
  for (const auto& window : state.previousStripWindows) {
    navigation.push_back(
        {lumo_id::PreviousStrips, window.id, lumo_id::PreviousWindowScroll + window.id});
  }
  for (const auto& workspace : state.workspaces) {
    navigation.push_back(
        {lumo_id::Workspaces, workspace.id, lumo_id::WorkspaceScroll + workspace.id});
  }
  navigation.push_back({lumo_id::RecentTabs, lumo_id::ShowDesktop,
                        std::string(lumo_id::RecentWindowScroll) + lumo_id::ShowDesktop});
  for (const auto& window : state.recentTabWindows) {
    navigation.push_back({lumo_id::RecentTabs, window.id, lumo_id::RecentWindowScroll + window.id});
  }
  for (const auto* groups : {&state.priorityGroups, &state.normalGroups}) {
    for (const auto& group : *groups) {
      if (state.previewMode != LumoPreviewMode::Tiles) {
        navigation.push_back({group.id, std::nullopt, lumo_id::ApplicationScroll + group.id});
      }
      for (const auto& window : group.windows) {
        navigation.push_back({group.id, window.id, lumo_id::WindowScroll + window.id});
      }
    }
  }
  return navigation;
}

size_t navigationIndexOf(const std::vector<NavTarget>& navigation, const Selection& selection) {
  for (size_t i = 0; i < navigation.size(); ++i) {
    if (navigation[i].applicationID == selection.applicationID &&
        navigation[i].windowID == selection.windowID) {
      return i;
    }
  }
  return 0;
}

size_t steppedIndex(size_t index, size_t count, bool reverse) {
  if (count == 0) return 0;
  return reverse ? (index + count - 1) % count : (index + 1) % count;
}

std::optional<size_t> windowStepIndex(const std::vector<NavTarget>& navigation,
                                      const Selection& selection, int step) {
  std::vector<size_t> windows;
  for (size_t i = 0; i < navigation.size(); ++i) {
    if (navigation[i].windowID) windows.push_back(i);
  }
  if (windows.empty()) return std::nullopt;
  const auto count = static_cast<int64_t>(windows.size());
  for (int64_t position = 0; position < count; ++position) {
    const NavTarget& target = navigation[windows[position]];
    if (target.applicationID == selection.applicationID && target.windowID == selection.windowID) {
      int64_t next = ((position + step) % count + count) % count;
      return windows[next];
    }
  }
  return step >= 0 ? windows.front() : windows.back();
}

bool sectionExpanded(const LumoSwitcherState& state, const std::string& id) {
  if (auto found = state.expansionOverrides.find(id); found != state.expansionOverrides.end()) {
    return found->second;
  }
  return state.selection.applicationID == id;
}

std::optional<RunningAppItem> resolveSwitcherWindow(const LumoSwitcherState& state,
                                                    const std::string& windowID) {
  auto in = [&](const std::vector<RunningAppItem>& items) -> std::optional<RunningAppItem> {
    for (const auto& item : items) {
      if (item.id == windowID) return item;
    }
    return std::nullopt;
  };
  if (auto found = in(state.previousStripWindows)) return found;
  if (auto found = in(state.recentTabWindows)) return found;
  for (const auto* groups : {&state.priorityGroups, &state.normalGroups}) {
    for (const auto& group : *groups) {
      if (auto found = in(group.windows)) return found;
    }
  }
  return std::nullopt;
}

std::optional<RunningAppGroup> findSwitcherGroup(const LumoSwitcherState& state,
                                                 const std::string& groupID) {
  for (const auto* groups : {&state.priorityGroups, &state.normalGroups}) {
    for (const auto& group : *groups) {
      if (group.id == groupID) return group;
    }
  }
  return std::nullopt;
}

}  // namespace tolv
