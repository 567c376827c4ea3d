// The entry point: `tolv --simulate` runs Tolv over the built-in simulated desktop.

#include <cstdio>
#include <cstring>
#include <set>
#include <string>

#include "model/AppModel.h"
#include "platform/sim/DemoDesktop.h"
#include "platform/sim/SimDesktop.h"

namespace {

int runDemo() {
  tolv::sim::SimDesktop desktop;
  desktop.populate(tolv::sim::demoApplications());
  auto model = tolv::AppModel::make(desktop.platform());

  std::set<tolv::Pid> seen;
  auto apps = model->listRegularApplications(tolv::sim::SimDesktop::kOwnPid, seen);
  std::printf("Tolv %s on the simulated desktop: %zu applications\n", TOLV_VERSION, apps.size());
  for (const auto& app : apps) {
    for (const auto& item : model->scanApplicationWindows(app, false, false)) {
      if (model->isBlacklisted(item.name)) continue;
      std::printf("  %-28s %-10s %s%s\n", item.id.c_str(), item.appName.c_str(), item.name.c_str(),
                  item.isActive ? "  (active)" : "");
    }
  }
  return 0;
}

void printUsage(FILE* out) {
  std::fprintf(out,
               "usage: tolv --simulate    run Tolv over the built-in simulated desktop\n"
               "       tolv --version\n");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--simulate") == 0) return runDemo();
  if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("tolv %s\n", TOLV_VERSION);
    return 0;
  }
  if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
    printUsage(stdout);
    return 0;
  }
  printUsage(stderr);
  return 2;
}
