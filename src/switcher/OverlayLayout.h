#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Geometry.h"
#include "switcher/SwitcherState.h"

namespace tolv {

// Where the overlay draws each thing, in the overlay's own coordinates (origin
// at its top left, y down). The view paints it; clicks are hit-tested on it.
struct OverlayRow {
  enum class Kind { Lock, SectionTitle, Empty, Window, Workspace, Desktop, Group, Tile };
  Kind kind = Kind::Window;
  Rect frame{};
  std::string title{};
  std::string note{};
  // What the row stands for: its selection, and the window of a window or tile.
  Selection target{};
  std::optional<RunningAppItem> item{};
  bool selected = false;
  bool closed = false;
  bool activeStrip = false;
  bool previousStrip = false;
};

struct OverlayLayout {
  Rect card;
  std::string title;
  std::string hint;
  std::vector<OverlayRow> rows;
};

inline constexpr double kOverlayDimOpacity = 0.32;
inline constexpr double kOverlayTopBarHeight = 52;
inline constexpr double kOverlayFooterHeight = 40;

// The card's size on a screen of this size: wide enough for four tiles in mode
// tiles, 720 at most otherwise, and 620 high at most.
Size overlayCardSize(const LumoSwitcherState& state, Size screen);
// The card in the middle of the screen and every row inside it, the
// selection's row kept in sight.
OverlayLayout layoutOverlay(const LumoSwitcherState& state, Size screen);

}  // namespace tolv
