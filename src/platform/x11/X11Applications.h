#pragma once

#include "platform/Applications.h"

namespace tolv::x11 {

// The desktop entries of the XDG data directories, read and launched through
// GIO. GIO applies NoDisplay, Hidden, OnlyShowIn and NotShowIn, TryExec, the
// localised names and the field codes of Exec. The identifier is the desktop
// id without ".desktop", the key the window list gives running applications.
// There is no desktop-wide search of files to show.
class X11Applications : public Applications {
 public:
  std::vector<InstalledApplication> installedApplications() override;
  bool openApplication(const std::string& location) override;
  bool launchApplication(const std::string& identifier) override;
  bool canSearchFiles() const override { return false; }
  void searchFilesAndFolders(const std::string&) override {}
};

}  // namespace tolv::x11
