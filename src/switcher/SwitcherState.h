#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "model/Records.h"
#include "platform/Image.h"

namespace tolv {

// What the overlay shows besides the list.
enum class LumoPreviewMode { Tiles, Thumbnails, FocusWindow, NoPreview };

// The stored text of a mode ("Tiles", "Thumbnails", "Focus Window", "No Preview").
const std::string& previewModeText(LumoPreviewMode mode);
// A missing or unknown text is Tiles.
LumoPreviewMode previewModeFromText(const std::optional<std::string>& text);
// A size of 0 or less, or none, is 192.
double thumbnailSizeFromSetting(std::optional<double> stored);

inline constexpr const char* kLumoPreviewModeKey = "lumoPreviewMode";
inline constexpr const char* kLumoThumbnailSizeKey = "lumoThumbnailSize";

// The identifiers of the switcher's own rows and sections.
namespace lumo_id {
inline constexpr const char* LockRow = "lumo-lock";
inline constexpr const char* PreviousStrips = "lumo-special:previous-strips";
inline constexpr const char* Workspaces = "lumo-special:workspaces";
inline constexpr const char* RecentTabs = "lumo-special:recent-tabs";
inline constexpr const char* ShowDesktop = "lumo-special:show-desktop";
inline constexpr const char* PreviousWindowScroll = "lumo-previous-window:";
inline constexpr const char* WorkspaceScroll = "lumo-workspace:";
inline constexpr const char* RecentWindowScroll = "lumo-recent-window:";
inline constexpr const char* ApplicationScroll = "lumo-app:";
inline constexpr const char* WindowScroll = "lumo-window:";
inline constexpr const char* PriorityGroup = "lumo-priority:";
}  // namespace lumo_id

// The highlighted row; both empty is the lock row.
struct Selection {
  std::optional<std::string> applicationID{};
  std::optional<std::string> windowID{};
  bool operator==(const Selection&) const = default;
};

// One stop of the keyboard: a row of some section, with the id the view scrolls to.
struct NavTarget {
  std::optional<std::string> applicationID{};
  std::optional<std::string> windowID{};
  std::string scrollID{};
  bool operator==(const NavTarget&) const = default;
};

// The two group lists of the switcher: what the user put first, and the rest.
struct LumoGroups {
  std::vector<RunningAppGroup> priority;
  std::vector<RunningAppGroup> normal;
};

// Everything the overlay draws. Cleared on each close except the mode and size.
struct LumoSwitcherState {
  // The overlay ignores the release of Control.
  bool lockOpen = false;
  Selection selection;
  std::vector<RunningAppItem> previousStripWindows;
  std::vector<ManagedWorkspaceTask> workspaces;
  std::vector<RunningAppItem> recentTabWindows;
  std::vector<RunningAppGroup> priorityGroups;
  std::vector<RunningAppGroup> normalGroups;
  LumoPreviewMode previewMode = LumoPreviewMode::Tiles;
  double thumbnailSize = 192;
  // Without the screen-capture permission the title says so.
  bool screenCaptureTrusted = false;
  // The one preview of the selection, and tile images by task id.
  std::optional<Image> thumbnailImage;
  std::map<std::string, Image> thumbnailImages;
  // Windows closed from the overlay, drawn as gone until the next reload.
  std::set<std::string> closedWindowIDs;
  // The strip marks as they were at opening; they don't follow the focus.
  std::set<std::string> frozenActiveStripWindowIDs;
  std::set<std::string> frozenPreviousStripWindowIDs;
  // Incremented to ask the view to scroll to scrollRequestTarget.
  int64_t scrollRequestSerial = 0;
  std::string scrollRequestTarget;
  // A section's or group's open (true) or closed state set by hand.
  std::map<std::string, bool> expansionOverrides;
};

}  // namespace tolv
