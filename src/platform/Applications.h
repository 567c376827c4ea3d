#pragma once

#include <string>
#include <vector>

namespace tolv {

// One installed application as the catalogue lists it.
struct InstalledApplication {
  std::string name;        // the name shown to the user
  std::string identifier;  // the bundle identifier, the key a running application carries too
  std::string location;    // where it is installed: its bundle or its desktop entry
  bool operator==(const InstalledApplication&) const = default;
};

// The applications installed on this machine, and opening them. Stands for the
// enumeration of the applications folders through NSFileManager, for NSWorkspace
// openApplicationAtURL:configuration:completionHandler: and
// URLForApplicationWithBundleIdentifier:, and for showSearchResultsForQueryString:.
class Applications {
 public:
  virtual ~Applications() = default;

  // Every installed application that wants to be listed, in no promised order;
  // one that can't be read is left out.
  virtual std::vector<InstalledApplication> installedApplications() = 0;
  // Opens the application installed at `location`, launching it when it doesn't
  // run and bringing it forward when it does; false when that failed at once.
  virtual bool openApplication(const std::string& location) = 0;
  // Opens the installed application with this identifier as openApplication
  // does; false when none is installed.
  virtual bool launchApplication(const std::string& identifier) = 0;
  // Whether the platform has a search of files and folders that
  // searchFilesAndFolders can show.
  virtual bool canSearchFiles() const = 0;
  // Shows the system's search of files and folders for the text.
  virtual void searchFilesAndFolders(const std::string& query) = 0;
};

}  // namespace tolv
