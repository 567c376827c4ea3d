#include "taskbar/BufferStrip.h"

namespace tolv {

namespace {
constexpr double kStripHeight = 28;
// The menu button: 12 from the leading edge, its chevron and " MacOS Menu" at size 8.
constexpr double kMenuButtonStart = 12;
constexpr double kMenuButtonWidth = 64;
}  // namespace

std::optional<BufferStripPart> bufferStripPartAt(const TaskbarPanels& panels, Point point) {
  for (const auto& panel : panels.panels()) {
    const PanelWindow& window = *panel->window;
    if (!panel->drawing.bufferStrip || !window.isVisible() || window.ignoresMouseEvents()) continue;
    const Rect frame = window.frame();
    const Rect strip{frame.minX(), frame.maxY() - kStripHeight, frame.width, kStripHeight};
    if (!strip.contains(point)) continue;
    const double along = point.x - strip.minX();
    return along >= kMenuButtonStart && along < kMenuButtonStart + kMenuButtonWidth
               ? BufferStripPart::MenuButton
               : BufferStripPart::Rest;
  }
  return std::nullopt;
}

}  // namespace tolv
