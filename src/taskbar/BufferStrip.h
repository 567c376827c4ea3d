#pragma once

#include <optional>

#include "platform/Geometry.h"
#include "taskbar/TaskbarPanels.h"

namespace tolv {

// The strip a top bar keeps over the menu bar: its "MacOS Menu" button at the
// leading end, and the rest of it (the bare strip and "Hide Tolv."), which hides the bar.
enum class BufferStripPart { MenuButton, Rest };

// The part of a strip under a point of the design's coordinates, on a panel in
// view that takes clicks; nothing off the strips.
std::optional<BufferStripPart> bufferStripPartAt(const TaskbarPanels& panels, Point point);

}  // namespace tolv
