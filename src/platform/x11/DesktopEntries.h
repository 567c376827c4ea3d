#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tolv::x11 {

// What an installed application's .desktop file says of it.
struct DesktopEntry {
  std::string id;  // the file name without ".desktop"
  std::string name;
  std::string icon;
  std::string startupWMClass;
};

// The .desktop files of the applications folders of $XDG_DATA_HOME and
// $XDG_DATA_DIRS, the first of each id winning, as the base directories rank them.
class DesktopEntries {
 public:
  DesktopEntries();
  explicit DesktopEntries(const std::vector<std::string>& applicationFolders);

  // The entry of a window class: the one whose StartupWMClass is the class, else
  // the one whose id is the class, compared without regard to ASCII case.
  std::optional<DesktopEntry> forWindowClass(const std::string& windowClass) const;
  // The entry of a desktop id ("debian-xterm", without ".desktop").
  std::optional<DesktopEntry> forId(const std::string& id) const;

 private:
  std::vector<DesktopEntry> entries_;
};

// Reads the [Desktop Entry] group of one file's text; nothing when it has none
// or it is hidden.
std::optional<DesktopEntry> parseDesktopEntry(const std::string& id, const std::string& text);

}  // namespace tolv::x11
