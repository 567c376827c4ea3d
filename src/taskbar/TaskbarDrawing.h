#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Image.h"
#include "taskbar/ContentTransform.h"
#include "taskbar/TabAppearance.h"
#include "taskbar/TaskRowLayout.h"
#include "taskbar/TrayLayout.h"

namespace tolv {

// Corner radii of a rectangle as it is drawn (y down: top is the smaller y).
struct CornerRadii {
  double topLeft = 0, topRight = 0, bottomLeft = 0, bottomRight = 0;
  bool operator==(const CornerRadii&) const = default;
};

// A concave fillet: `square` filled except for the circle of radius
// square.width around `circleCenter`, which lies on one of its corners.
struct InnerCorner {
  Rect square;
  Point circleCenter;
  bool operator==(const InnerCorner&) const = default;
};

struct TabDrawing {
  std::string id;
  size_t entryIndex = 0;  // in the layout's entries
  std::string title;
  Image icon;
  std::optional<std::string> glyph;  // a custom group's icon text
  int row = 0;                       // 0 for the primary row, else the overflow row's id
  Rect frame;
  // False while the tab's card is tucked away behind the primary row.
  bool shown = true;
  TabAppearance look;
};

struct CardDrawing {
  int rowID = 1;
  Rect frame;    // the whole card
  Rect visible;  // the part drawn; a tucked card shows only its outer edge
  bool tucked = false;
  CornerRadii corners;
  Rect border;  // the strip along the card's outer edge
  std::optional<InnerCorner> innerCorner;
};

// Everything drawn in one bar, in its content coordinates: a horizontal strip
// `length` long and `thickness` thick, y down, before any turn to a side edge.
// The start button at the leading end of a horizontal bar's primary row.
struct StartButtonDrawing {
  Rect frame;
  Image icon;           // drawn when present
  std::string glyph;    // drawn otherwise
  bool locked = false;  // the menu stays open: a yellow lock
  bool operator==(const StartButtonDrawing&) const = default;
};

struct TaskbarDrawing {
  double length = 0;
  double thickness = 0;
  std::optional<Rect> bufferStrip;  // the strip over the menu bar of a top bar
  Rect primaryRow;
  std::vector<CardDrawing> cards;  // furthest first, the order of drawing
  std::optional<Rect> stackBackground;
  std::optional<Rect> lockMarker;
  std::vector<TabDrawing> tabs;  // furthest row first, the primary row last
  // The tray's controls: the primary row's from leading to trailing, then the
  // first overflow row's while its card is not tucked away.
  std::vector<TrayControl> tray;
  // Where the plea to grant accessibility stands, behind the settings tab.
  std::optional<Rect> accessibilityNotice;
  // Side bars have none: their task strip begins at the top.
  std::optional<StartButtonDrawing> startButton;
  ContentTransform toPanel;  // from content to the panel's own coordinates
};

struct TaskbarDrawingInput {
  std::string_view location;
  Size panelSize;
  bool bufferStrip = false;
  const TaskRowLayout* layout = nullptr;
  bool rowsTucked = false;
  double tuck = 7;
  double overlap = 2;
  double borderHeight = 2;
  bool backgroundEnabled = false;
  bool returnLocked = false;
  // Nothing draws no tray; the task strip then reaches the trailing end.
  const TrayContent* tray = nullptr;
};

// Where each part of the bar goes. Rows stand one after the other away from the
// primary row, each overlapping the one before by `overlap` (the first one
// slipping under the primary row), so that the last one ends at the panel's
// height. A tucked row keeps `tuck` points of its outer edge in view.
TaskbarDrawing drawTaskbar(const TaskbarDrawingInput& input);

// The inner corner of a card that stands out beyond the nearer card, drawn only
// while the cards are tucked.
double steppedCornerRadius(const OverflowRow& row, const OverflowRow* nearer, bool rowsTucked);

}  // namespace tolv
