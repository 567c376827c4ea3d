#pragma once

#include <optional>
#include <string>

#include "model/Records.h"
#include "taskbar/TaskMenus.h"

namespace tolv {

class AppModel;

// Carries out a menu item's or a click's action by the model operation it
// names, on the task, group or workspace its subject still stands for.
// Returns false when the subject is gone or the operation is not available.
bool performMenuAction(AppModel& model, const MenuAction& action);

// Whether the command can act here and now. A menu shows an item whose
// command can't act as disabled, and the dispatcher refuses it by the same rule.
bool menuActionAvailable(const AppModel& model, const MenuAction& action);
void disableUnavailableItems(const AppModel& model, Menu& menu);

// The menus as the model stands now, their unavailable items disabled.
Menu entryMenu(const AppModel& model, const TaskbarEntry& entry);
Menu groupHeaderMenu(const AppModel& model, const RunningAppGroup& group);
Menu groupRowMenu(const AppModel& model, const RunningAppGroup& group,
                  const RunningAppItem& window);
Menu workspaceRowMenu(const AppModel& model, const ManagedWorkspaceTask& workspace);

// Lookups of an action's subject in the model's present lists.
std::optional<RunningAppItem> findTask(const AppModel& model, const std::string& id);
std::optional<RunningAppGroup> findGroup(const AppModel& model, const std::string& id);
std::optional<ManagedWorkspaceTask> findWorkspace(const AppModel& model, const std::string& id);

// Whether a move of a tab to the end gives up its place in the primary row:
// on bars whose tabs start at the right or on the right side.
bool lastMoveUnlocks(std::string_view location);

}  // namespace tolv
