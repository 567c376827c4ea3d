#pragma once

#include "model/Records.h"
#include "taskbar/TabAppearance.h"
#include "taskbar/TaskbarDrawing.h"

namespace tolv {

class AppModel;

// What the model says about the look of an entry's tab: a task, a workspace
// task, a group, or the button of all workspaces. `stripAtTop` holds in the
// overflow rows of a bar along the top.
TabFacts tabFacts(const AppModel& model, const TaskbarEntry& entry, bool stripAtTop);

// The task an entry's tab stands for: the item, or the workspace's item.
std::optional<RunningAppItem> entryTask(const AppModel& model, const TaskbarEntry& entry);

// The bundle identifier a group's colour follows: its first window's, none for a custom group.
std::optional<std::string> groupBundle(const RunningAppGroup& group);

// The id of the tab that opens the settings.
inline constexpr std::string_view kSettingsTabID = "tolv-settings";

// Gives every drawn tab its look, and places the plea for accessibility
// behind the settings tab while access is missing. Tabs of overflow rows carry
// their strip at the top on a bar along the top.
void decorateTabs(const AppModel& model, const TaskRowLayout& layout, TaskbarDrawing& drawing);

}  // namespace tolv
