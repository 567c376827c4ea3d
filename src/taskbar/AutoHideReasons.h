#pragma once

#include <vector>

namespace tolv {

// The states of the bar's panels as auto-hide sees them.
enum class AutoHideState {
  Open,       // shown: the pointer is inside, or the delay since it left is running
  Fading,     // the delay is over and the fade timer lowers the opacity
  Hidden,     // every panel out of view and ignoring the mouse, the edge triggers in
  TopRehide,  // a top bar shown by its edge, waiting to hide again unless entered
  Lockout,    // hidden after a rehide: the top edge refuses entries for a while
  Hold,       // the launch hold keeps every panel shown until the first click or key
};

// Why a panel must stay shown at a tick, when anything holds it.
enum class StayShownReason {
  PointerInside,           // a shown panel has the pointer in its hit area
  PointerAtEdge,           // a hidden panel has the pointer on its screen edge
  StartMenuHoldsPointer,   // the pointer is in the open start menu
  WorkspacePopupHoldsBar,  // the workspace popup has the pointer or its own menu
  GroupListOpen,           // a shown panel has a group's window list open
};

// What one tick found out about one panel.
struct PanelPointerFacts {
  bool shown = false;  // its opacity is above the hidden threshold
  bool pointerInside = false;
  bool pointerAtEdge = false;
  bool startMenuContainsPointer = false;
  bool workspacePopupHoldsBar = false;
  bool groupListOpen = false;
};

// The reasons the panel stays shown, in the order above; none lets it hide.
// A shown panel is held by the pointer inside and by an open group list; a
// hidden one only by the pointer at its edge; the start menu and the workspace
// popup hold either.
std::vector<StayShownReason> reasonsToStayShown(const PanelPointerFacts& facts);

}  // namespace tolv
