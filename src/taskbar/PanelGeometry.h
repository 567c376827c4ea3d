#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Geometry.h"
#include "platform/Screens.h"
#include "platform/UserDefaults.h"

namespace tolv {

// The primary row's thickness and the strip kept over the menu bar of a top bar.
inline constexpr double kPanelThickness = 34;
inline constexpr double kTopBufferHeight = 28;

// Containment with the edges counted as inside, as tracking areas and the
// pointer at a screen's very edge need it.
inline bool touches(const Rect& rect, Point p) {
  return p.x >= rect.minX() && p.x <= rect.maxX() && p.y >= rect.minY() && p.y <= rect.maxY();
}

// Defaults of other programs' domains.
inline constexpr std::string_view kGlobalDomain = "NSGlobalDomain";
inline constexpr std::string_view kDockDomain = "com.apple.dock";

// A boolean of another domain as `defaults read` would give it: true for 1,
// "true" and "yes", false for 0, "false" and "no" (in any case, white space
// ignored), nothing for anything else or no value at all.
std::optional<bool> readForeignBoolean(UserDefaults& store, std::string_view domain,
                                       std::string_view key);

// Whether a top bar covers the menu bar and keeps a strip over it: by the
// system's own setting to hide the menu bar (or when it can't be read), unless
// the user chose "Manual" and then "No Buffer" or "Always Shown".
bool topMenuBufferNeeded(UserDefaults& store, Defaults& own);

// "Always" or "Never" as the menu bar is hidden or shown in all cases, else "".
std::string macOSMenuBarMode(UserDefaults& store);

// The thickness a new taskbar panel starts with: the primary row, and the strip
// over the menu bar when a top edge has one.
double initialPanelThickness(std::string_view location, bool bufferNeeded);
// The thickness a panel is framed with for a content thickness.
double framedPanelThickness(std::string_view location, double thickness, bool bufferNeeded);

// The panel along the location's edge of `screen`, `thickness` thick.
Rect panelFrame(std::string_view location, const Screen& screen, double thickness,
                bool bufferNeeded);

// The one-point line along the edge that shows the hidden bar.
Rect edgeTriggerFrame(std::string_view location, const Screen& screen);

struct CornerTrigger {
  Rect frame;
  bool isLeft = false;
};
// The top corners that open the start menu (left) and the overflow cards (right).
std::vector<CornerTrigger> cornerTriggers(std::string_view location, const Screen& screen);

// Moves the Dock to an edge ("Left", "Bottom", "Right") or back to where it was
// before Tolv first moved it ("Default"), then has the Dock restarted.
void setMacOSDockPosition(UserDefaults& store, Defaults& own, const std::string& value,
                          const std::function<void()>& restartDock);

}  // namespace tolv
