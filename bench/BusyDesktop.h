#pragma once

#include <string>
#include <vector>

#include "platform/sim/SimDesktop.h"

namespace tolv::bench {

inline constexpr int kBusyApplications = 20;
inline constexpr int kBusyWindowsPerApplication = 10;
inline constexpr Pid kFirstBusyPid = 1000;

// A busy desktop: 20 applications with 10 titled windows each, the first active.
inline std::vector<sim::AppSetup> busyDesktop() {
  std::vector<sim::AppSetup> apps;
  for (int a = 0; a < kBusyApplications; ++a) {
    sim::AppSetup app;
    app.pid = kFirstBusyPid + a;
    app.name = "App " + std::to_string(a);
    app.bundleIdentifier = "com.example.app" + std::to_string(a);
    app.active = a == 0;
    for (int w = 0; w < kBusyWindowsPerApplication; ++w) {
      sim::WindowSetup window;
      window.title = "Window " + std::to_string(w);
      app.windows.push_back(window);
    }
    apps.push_back(app);
  }
  return apps;
}

// Four desktops and two full-screen spaces, the first desktop current.
inline std::vector<sim::SpaceSetup> busySpaces() {
  std::vector<sim::SpaceSetup> spaces;
  for (int d = 1; d <= 4; ++d)
    spaces.push_back({.uuid = "D" + std::to_string(d), .current = d == 1});
  spaces.push_back({.uuid = "FS1", .type = 4, .pid = kFirstBusyPid + 1});
  spaces.push_back({.uuid = "FS2", .type = 4, .tileApps = {"App 2", "App 3"}});
  return spaces;
}

}  // namespace tolv::bench
