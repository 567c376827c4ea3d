#include "taskbar/AutoHideReasons.h"

namespace tolv {

std::vector<StayShownReason> reasonsToStayShown(const PanelPointerFacts& facts) {
  std::vector<StayShownReason> reasons;
  if (facts.shown && facts.pointerInside) reasons.push_back(StayShownReason::PointerInside);
  if (!facts.shown && facts.pointerAtEdge) reasons.push_back(StayShownReason::PointerAtEdge);
  if (facts.startMenuContainsPointer) reasons.push_back(StayShownReason::StartMenuHoldsPointer);
  if (facts.workspacePopupHoldsBar) reasons.push_back(StayShownReason::WorkspacePopupHoldsBar);
  if (facts.shown && facts.groupListOpen) reasons.push_back(StayShownReason::GroupListOpen);
  return reasons;
}

}  // namespace tolv
