#include "taskbar/WorkspacePopup.h"

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "platform/SystemCommands.h"
#include "taskbar/TabFacts.h"

namespace tolv {

namespace {

constexpr Size kRowSize{270 - 2 * 10, 34};

}  // namespace

bool workspaceHeaderOpensOverview(const AppModel& model) {
  return model.platform().systemCommands->hasDesktopOverview();
}

std::vector<WorkspacePopupRow> workspacePopupRows(const AppModel& model,
                                                  const std::vector<ManagedWorkspaceTask>& spaces) {
  std::vector<WorkspacePopupRow> rows;
  for (const auto& workspace : spaces) {
    WorkspacePopupRow row;
    row.workspace = workspace;
    row.title = workspace.name;
    row.leavesFullScreen = !workspace.isDesktopSpace;
    row.checked = workspace.isCurrent;
    TaskbarEntry entry;
    entry.id = workspaceTaskID(workspace.id);
    entry.workspace = workspace;
    row.look = tabAppearance(tabFacts(model, entry, false), kRowSize);
    rows.push_back(std::move(row));
  }
  return rows;
}

std::optional<MenuAction> workspaceRowClickAction(const ManagedWorkspaceTask& workspace,
                                                  WorkspaceRowPart part) {
  MenuAction action;
  action.subject = workspaceTaskID(workspace.id);
  switch (part) {
    case WorkspaceRowPart::Body:
      action.command = MenuCommand::RequestWorkspaceSwitch;
      return action;
    case WorkspaceRowPart::LeaveFullScreen:
      if (workspace.isDesktopSpace) return std::nullopt;
      action.command = MenuCommand::LeaveWorkspaceFullScreen;
      return action;
    case WorkspaceRowPart::Close:
      action.command = MenuCommand::ConfirmCloseWorkspace;
      return action;
  }
  return std::nullopt;
}

}  // namespace tolv
