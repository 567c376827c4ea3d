#pragma once

#include <optional>

#include "model/Records.h"
#include "taskbar/TaskMenus.h"

namespace tolv {

enum class MouseButton { Left, Right };
// What a mouse button did; a move is reported while a button is held.
enum class PointerPhase { Press, Move, Release };

enum class ClickResult {
  Nothing,
  Perform,  // run the decision's action
  OpenGroupPopup,
  ToggleWorkspacePanel,
  OpenMenu,
};

struct ClickDecision {
  ClickResult result = ClickResult::Nothing;
  std::optional<MenuAction> action;
};

// What a click on an entry's tab does. A left click activates a task (a
// workspace task through its workspace), opens a group's popup, or shows the
// workspace list; a group of one window that is not custom acts as its
// window's tab. The settings tab does nothing on a left click. A right click
// opens the tab's menu.
ClickDecision decideTabClick(const TaskbarEntry& entry, MouseButton button);
// A left press that slipped a little before its release: the tab's own action
// still runs, but a popup or the workspace list does not open.
ClickDecision decideSlipClick(const TaskbarEntry& entry);

// The parts of a group's popup that take a click.
enum class GroupPopupPart { Header, HeaderClose, Row, RowClose, HideAll, CloseGroup };

struct PopupClickDecision {
  bool closesPopup = true;
  std::optional<MenuAction> action;
};

// What a left click on a part of a group's popup does; `row` is the window of
// a row's parts.
PopupClickDecision decideGroupPopupClick(const RunningAppGroup& group, GroupPopupPart part,
                                         const RunningAppItem* row);

}  // namespace tolv
