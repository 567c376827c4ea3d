#include "taskbar/TaskbarDrawing.h"

#include <algorithm>

#include "taskbar/TaskbarLocation.h"

namespace tolv {

namespace {

constexpr double kPrimaryRowThickness = 34;
constexpr double kRowPadding = 3;
constexpr double kBufferStripHeight = 28;
constexpr double kCardRadius = 8;
constexpr double kCardLeadingPadding = 5;
constexpr double kBorderInset = 12;
constexpr double kLastRowBorderCut = 10;
constexpr double kStepTolerance = 0.5;
constexpr Size kLockMarker{16, 2};
// The start button, 30 by 28, in the middle of the first 50 points of the row.
constexpr double kStartButtonLeading = 10;
constexpr Size kStartButton{30, 28};

// Places rectangles given along the bar (u) and away from the screen edge (v)
// in the content's coordinates.
class BandPlacer {
 public:
  BandPlacer(std::string_view location, double length, double thickness, double edgeOffset)
      : top_(isTopEdge(location)),
        mirrored_(isRightAnchored(location)),
        length_(length),
        thickness_(thickness),
        edgeOffset_(edgeOffset) {}

  Rect place(double u, double v, double width, double height) const {
    double x = mirrored_ ? length_ - u - width : u;
    double y = top_ ? edgeOffset_ + v : thickness_ - v - height;
    return {x, y, width, height};
  }
  Point place(double u, double v) const {
    return {mirrored_ ? length_ - u : u, top_ ? edgeOffset_ + v : thickness_ - v};
  }
  CornerRadii place(const CornerRadii& radii) const {
    if (!mirrored_) return radii;
    return {radii.topRight, radii.topLeft, radii.bottomRight, radii.bottomLeft};
  }
  bool top() const { return top_; }

 private:
  bool top_;
  bool mirrored_;
  double length_;
  double thickness_;
  double edgeOffset_;
};

}  // namespace

double steppedCornerRadius(const OverflowRow& row, const OverflowRow* nearer, bool rowsTucked) {
  if (!rowsTucked || !nearer || row.id <= 1) return 0;
  return overflowRowContentWidth(row) > overflowRowContentWidth(*nearer) + kStepTolerance
             ? kCardRadius
             : 0;
}

TaskbarDrawing drawTaskbar(const TaskbarDrawingInput& input) {
  const TaskRowLayout& layout = *input.layout;
  TaskbarDrawing drawing;
  bool rotated = contentRotation(input.location) != ContentRotation::None;
  drawing.length = rotated ? input.panelSize.height : input.panelSize.width;
  drawing.thickness = rotated ? input.panelSize.width : input.panelSize.height;
  drawing.toPanel = contentToPanel(input.location, drawing.length, drawing.thickness);

  double edgeOffset = input.bufferStrip ? kBufferStripHeight : 0;
  if (input.bufferStrip) drawing.bufferStrip = Rect{0, 0, drawing.length, kBufferStripHeight};
  BandPlacer band(input.location, drawing.length, drawing.thickness, edgeOffset);
  bool isTop = band.top();
  double length = drawing.length;
  drawing.primaryRow = band.place(0, 0, length, kPrimaryRowThickness);
  if (!isSideEdge(input.location)) {
    drawing.startButton.emplace();
    drawing.startButton->frame =
        band.place(kStartButtonLeading, kRowPadding, kStartButton.width, kStartButton.height);
  }

  // The cards, nearest first, as they stand one after the other.
  struct Placed {
    const OverflowRow* row;
    double start;      // where the drawn part begins, from the screen edge
    double drawn;      // how much of it is drawn
    double cardStart;  // where the whole card begins
  };
  std::vector<Placed> placed;
  double next = kPrimaryRowThickness - input.overlap;
  for (const auto& row : layout.rows) {
    double drawn = input.rowsTucked ? std::min(input.tuck, row.height) : row.height;
    placed.push_back({&row, next, drawn, next + drawn - row.height});
    next += drawn - input.overlap;
  }

  for (auto it = placed.rbegin(); it != placed.rend(); ++it) {
    const OverflowRow& row = *it->row;
    bool last = &row == &layout.rows.back();
    CardDrawing card;
    card.rowID = row.id;
    card.tucked = input.rowsTucked;
    double width = std::max(length - row.leading, 0.0);
    card.frame = band.place(row.leading, it->cardStart, width, row.height);
    card.visible = band.place(row.leading, it->start, width, it->drawn);
    card.corners =
        band.place(CornerRadii{kCardRadius, 0, kCardRadius, isTop && last ? kCardRadius : 0});
    double borderWidth = std::max(
        length - row.leading - kBorderInset - (isTop && last ? kLastRowBorderCut : 0), 0.0);
    card.border =
        band.place(row.leading + kBorderInset, it->cardStart + row.height - input.borderHeight,
                   borderWidth, input.borderHeight);
    const OverflowRow* nearer = it + 1 != placed.rend() ? (it + 1)->row : nullptr;
    double radius = steppedCornerRadius(row, nearer, input.rowsTucked);
    if (radius > 0) {
      // Fills the step where this card's near edge passes the nearer card's start.
      double corner = nearer->leading;
      Rect square = band.place(corner - radius, it->start - radius, radius, radius);
      card.innerCorner = InnerCorner{square, band.place(corner - radius, it->start - radius)};
    }
    drawing.cards.push_back(card);
  }

  if (input.backgroundEnabled && layout.hasOverflow && layout.rows.size() > 1) {
    double x = layout.rows[1].leading;
    double total = 0;
    for (size_t i = 1; i < layout.rows.size(); ++i)
      x = std::min(x, layout.rows[i].leading);
    for (const auto& row : layout.rows)
      total += row.height;
    x = std::max(x, 0.0);
    double rowsCount = static_cast<double>(layout.rows.size());
    double height = std::max(total - input.overlap * (rowsCount - 1), 0.0);
    double lastOuter = layout.rows.back().height - input.overlap;
    if (lastOuter >= 0) height -= lastOuter;
    height = std::max(height, 0.0);
    drawing.stackBackground =
        band.place(x, placed.front().start, std::max(length - x, 0.0), height);
  }

  if (input.returnLocked && !placed.empty()) {
    const Placed& first = placed.front();
    drawing.lockMarker = band.place(first.row->leading + kBorderInset,
                                    first.cardStart + first.row->height - kLockMarker.height,
                                    kLockMarker.width, kLockMarker.height);
  }

  auto addTab = [&](size_t index, int row, double u, double v, double width, bool shown) {
    const TaskbarEntry& entry = layout.entries[index];
    TabDrawing tab;
    tab.id = entry.id;
    tab.entryIndex = index;
    tab.title = entryTitle(entry).value_or(std::string());
    if (entry.group) {
      tab.icon = entry.group->icon;
      tab.glyph = entry.group->customIconGlyph;
    } else if (entry.item) {
      tab.icon = entry.item->icon;
    }
    tab.row = row;
    tab.frame = band.place(u, v, width, kTabHeight);
    tab.shown = shown;
    drawing.tabs.push_back(std::move(tab));
  };

  for (auto it = placed.rbegin(); it != placed.rend(); ++it) {
    const OverflowRow& row = *it->row;
    double v = it->cardStart + (row.height - kTabHeight) / 2;
    double u = row.leading + kCardLeadingPadding;
    for (size_t k = row.count; k-- > 0;) {
      addTab(row.lower + k, row.id, u, v, row.widths[k], !input.rowsTucked);
      u += row.widths[k] + kTabSpacing;
    }
  }
  // The task area's leading edge counts the tray at the trailing end as well;
  // the strip itself begins that much earlier.
  double trayLength = input.tray ? primaryTrayLength(*input.tray) : 0;
  double u = std::max(layout.leftEdge - trayLength, 0.0);
  for (size_t i = 0; i < layout.primaryCount; ++i) {
    addTab(i, 0, u, kRowPadding, layout.widths[i], true);
    u += layout.widths[i] + kTabSpacing;
  }
  if (input.tray) {
    auto addControl = [&](const TraySlot& slot, int row) {
      TrayControl control = describeTrayControl(*input.tray, slot.kind);
      control.frame = band.place(slot.u, slot.v, slot.width, slot.height);
      control.row = row;
      drawing.tray.push_back(std::move(control));
    };
    for (const auto& slot : primaryTraySlots(*input.tray, length))
      addControl(slot, 0);
    if (!placed.empty() && !input.rowsTucked) {
      const Placed& first = placed.front();
      for (const auto& slot :
           overflowTraySlots(*input.tray, length, first.cardStart, first.row->height)) {
        addControl(slot, first.row->id);
      }
    }
  }
  return drawing;
}

}  // namespace tolv
