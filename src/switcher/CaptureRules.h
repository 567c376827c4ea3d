#pragma once

#include <optional>
#include <utility>

#include "model/Records.h"
#include "platform/Image.h"
#include "platform/ScreenCapture.h"

namespace tolv {

// The pixel size of a still: a tile is the thumbnail size wide; a preview is
// that size high and as wide as the window's shape asks, held between one and
// two and a half times the size. A frame without area counts as 1 by 1.
std::pair<int, int> captureSize(const Rect& frame, double thumbnailSize, bool isTile);

// The captured window that stands for a task: the window number a "cg:" id
// names, else the same title, else the same title without white space at its
// ends and one trailing " - Google Chrome", else the task's position among its
// application's windows, else the application's first window. Nothing when
// the application has no capturable window.
std::optional<ShareableWindow> resolveShareableWindow(const RunningAppItem& item,
                                                      const ShareableContent& content);

// An answer that can be drawn: at least 1 and at most 8192 pixels each way.
bool usableCapture(const std::optional<Image>& image);

}  // namespace tolv
