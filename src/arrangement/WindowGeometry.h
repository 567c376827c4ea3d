#pragma once

#include <optional>
#include <vector>

#include "platform/AXTypes.h"
#include "platform/Screens.h"

namespace tolv {

// A window's place in accessibility coordinates (top left of the main screen,
// y down).
struct AXWindowFrame {
  AXPoint position;
  AXSize size;
  bool operator==(const AXWindowFrame&) const = default;
};

// The screen a window stands on: the first whose frame it overlaps, else the
// main screen, else the first. The window's accessibility frame is flipped
// against the highest top edge of all screens.
std::optional<Screen> screenOfWindow(const AXWindowFrame& window,
                                     const std::vector<Screen>& screens, size_t mainScreenIndex);

// Where a window goes to fill `fraction` of its screen's visible frame, at the
// frame's top left; nothing without screens.
std::optional<AXWindowFrame> frameOnVisibleFrame(const AXWindowFrame& window,
                                                 const std::vector<Screen>& screens,
                                                 size_t mainScreenIndex, double fraction);

}  // namespace tolv
