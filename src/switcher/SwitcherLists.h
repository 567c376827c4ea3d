#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Records.h"
#include "switcher/SwitcherState.h"

namespace tolv {

class AppModel;

// The switcher's groups: custom groups the user put first, then one group per
// process in the order of `runningApps`. A window stands in one group only;
// priority groups, priority applications and priority windows go to the
// priority list, the rest to the normal one.
LumoGroups lumoSwitcherGroups(const std::vector<TaskbarEntry>& entries,
                              const std::vector<RunningAppItem>& runningApps,
                              const std::set<std::string>& priorityIDs);
// The same over the model as it stands.
LumoGroups lumoSwitcherGroups(const AppModel& model);

// Every stop of the keyboard in order: the lock row, the previous strips, the
// workspaces, Show Desktop, the recent tabs, then the groups (with a row of
// their own unless the mode is tiles) and their windows.
std::vector<NavTarget> buildNavigation(const LumoSwitcherState& state);
// The first target that names the selection, else 0.
size_t navigationIndexOf(const std::vector<NavTarget>& navigation, const Selection& selection);
// One step forward or back, wrapping round.
size_t steppedIndex(size_t index, size_t count, bool reverse);
// One step among the rows of windows, skipping the lock row and group rows;
// from outside them a step down goes to the first and a step up to the last.
// Nothing when there is no such row.
std::optional<size_t> windowStepIndex(const std::vector<NavTarget>& navigation,
                                      const Selection& selection, int step);

// A section or group is open when its override says so, else when it holds
// the selection.
bool sectionExpanded(const LumoSwitcherState& state, const std::string& id);
// The window a row names: the previous strips, then the recent tabs, then the groups.
std::optional<RunningAppItem> resolveSwitcherWindow(const LumoSwitcherState& state,
                                                    const std::string& windowID);
std::optional<RunningAppGroup> findSwitcherGroup(const LumoSwitcherState& state,
                                                 const std::string& groupID);

}  // namespace tolv
