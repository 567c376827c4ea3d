#include "taskbar/TabClicks.h"

#include "model/TaskIdentifiers.h"
#include "taskbar/TabFacts.h"

namespace tolv {

namespace {

MenuAction action(MenuCommand command, std::string subject) {
  MenuAction result;
  result.command = command;
  result.subject = std::move(subject);
  return result;
}

ClickDecision perform(MenuCommand command, std::string subject) {
  return {ClickResult::Perform, action(command, std::move(subject))};
}

bool isWorkspaceTask(const std::string& id) {
  return startsWith(id, id_prefix::Workspace);
}

ClickDecision activate(const std::string& id) {
  return perform(
      isWorkspaceTask(id) ? MenuCommand::ActivateWorkspaceTask : MenuCommand::ActivateTask, id);
}

}  // namespace

ClickDecision decideTabClick(const TaskbarEntry& entry, MouseButton button) {
  if (button == MouseButton::Right) return {ClickResult::OpenMenu, std::nullopt};
  if (entry.workspaceGroup) return {ClickResult::ToggleWorkspacePanel, std::nullopt};
  if (entry.group) {
    const RunningAppGroup& group = *entry.group;
    if (group.windows.size() == 1 && !group.isCustom) return activate(group.windows.front().id);
    return {ClickResult::OpenGroupPopup, std::nullopt};
  }
  if (entry.workspace) return activate(workspaceTaskID(entry.workspace->id));
  if (entry.item && entry.item->id != kSettingsTabID) return activate(entry.item->id);
  return {};
}

ClickDecision decideSlipClick(const TaskbarEntry& entry) {
  ClickDecision decision = decideTabClick(entry, MouseButton::Left);
  if (decision.result != ClickResult::Perform) return {};
  return decision;
}

PopupClickDecision decideGroupPopupClick(const RunningAppGroup& group, GroupPopupPart part,
                                         const RunningAppItem* row) {
  switch (part) {
    case GroupPopupPart::Header:
      if (group.isCustom) return {};
      return {true, action(MenuCommand::ActivateGroup, group.id)};
    case GroupPopupPart::HeaderClose:
      return {};
    case GroupPopupPart::Row:
      if (!row) return {};
      return {true, activate(row->id).action};
    case GroupPopupPart::RowClose:
      if (!row) return {false, std::nullopt};
      return {false, action(isWorkspaceTask(row->id) ? MenuCommand::LeaveWorkspaceFullScreen
                                                     : MenuCommand::CloseTaskOnDesktop,
                            row->id)};
    case GroupPopupPart::HideAll:
      return {true, action(MenuCommand::MinimizeGroup, group.id)};
    case GroupPopupPart::CloseGroup:
      return {true, action(MenuCommand::CloseGroup, group.id)};
  }
  return {};
}

}  // namespace tolv
