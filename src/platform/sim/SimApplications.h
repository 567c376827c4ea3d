#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Applications.h"

namespace tolv::sim {

class SimDesktop;
class CallCounter;

// An application in the simulated applications folders; a hidden one is a
// hidden file there and never listed.
struct CatalogueEntry {
  InstalledApplication application;
  bool hidden = false;
};

// The simulated applications folders. Opening an application is an action entry
// ("open" with the path, "launch" with the identifier); a short while later the
// application comes forward, or starts with its first window when it isn't
// running. Searching files is an action entry "searchFiles" with the query.
class SimApplications : public Applications {
 public:
  // How long an application takes to start, in virtual seconds.
  static constexpr double kLaunchDelay = 0.5;

  SimApplications(SimDesktop& desktop, CallCounter& calls) : desktop_(desktop), calls_(calls) {}

  // Puts the application in the folders and makes it launchable: it starts
  // with one window titled with its name.
  void install(const CatalogueEntry& entry);

  std::vector<InstalledApplication> installedApplications() override;
  bool openApplication(const std::string& location) override;
  bool canSearchFiles() const override { return canSearchFiles_; }
  // A desktop without a search of files, as Linux desktops are.
  void setCanSearchFiles(bool can) { canSearchFiles_ = can; }
  bool launchApplication(const std::string& identifier) override;
  void searchFilesAndFolders(const std::string& query) override;

 private:
  const CatalogueEntry* find(const std::string& location) const;
  void launchSoon(const std::string& identifier);

  SimDesktop& desktop_;
  CallCounter& calls_;
  std::vector<CatalogueEntry> entries_;
  bool canSearchFiles_ = true;
};

}  // namespace tolv::sim
