#include "platform/sim/SimRestart.h"

#include <algorithm>
#include <cctype>

#include "platform/sim/CallCounter.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimWorkspace.h"

namespace tolv::sim {

bool SimInstanceLauncher::canLaunchNewInstance() {
  calls_.count("instanceLauncher.canLaunchNewInstance");
  std::string path = desktop_.workspace().mainBundle().path;
  while (path.size() > 1 && path.back() == '/')
    path.pop_back();
  auto dot = path.rfind('.');
  if (dot == std::string::npos || path.find('/', dot) != std::string::npos) return false;
  std::string extension = path.substr(dot + 1);
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension == "app";
}

void SimInstanceLauncher::launchNewInstance(Completion done) {
  calls_.count("instanceLauncher.launchNewInstance");
  nlohmann::json fields = {{"path", desktop_.workspace().mainBundle().path}};
  if (failure_) fields["failure"] = *failure_;
  desktop_.logAction("relaunch", std::move(fields));
  desktop_.runLoop().post([done = std::move(done), failure = failure_] { done(failure); });
}

void SimFileViewer::revealInFileManager(const std::string& path) {
  calls_.count("fileViewer.revealInFileManager");
  desktop_.logAction("reveal", {{"path", path}});
}

void SimFileViewer::openInTextEditor(const std::string& path) {
  calls_.count("fileViewer.openInTextEditor");
  desktop_.logAction("openInTextEditor", {{"path", path}});
}

}  // namespace tolv::sim
