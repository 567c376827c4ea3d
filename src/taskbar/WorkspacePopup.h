#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/Records.h"
#include "taskbar/TabAppearance.h"
#include "taskbar/TaskMenus.h"

namespace tolv {

class AppModel;

// One row of the workspace list.
struct WorkspacePopupRow {
  ManagedWorkspaceTask workspace;
  std::string title;
  bool leavesFullScreen = false;  // a full-screen space has its chevron button
  bool checked = false;           // the current space
  TabAppearance look;
};

std::vector<WorkspacePopupRow> workspacePopupRows(const AppModel& model,
                                                  const std::vector<ManagedWorkspaceTask>& spaces);

// The list's header opens the system's overview of all desktops where the
// system has one; elsewhere it is a plain title, drawn dimmed, and does nothing.
bool workspaceHeaderOpensOverview(const AppModel& model);

enum class WorkspaceRowPart { Body, LeaveFullScreen, Close };

// A row's body switches to its space, the chevron leaves full screen and the
// cross asks to close the space.
std::optional<MenuAction> workspaceRowClickAction(const ManagedWorkspaceTask& workspace,
                                                  WorkspaceRowPart part);

}  // namespace tolv
