#include "app/view/SimulationApp.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "app/scenario/ScenarioRun.h"
#include "app/view/PanelScenarioViews.h"
#include "platform/qt/QtPlatform.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/view/TaskbarPanelController.h"

namespace tolv {

namespace {

volatile std::sig_atomic_t endRequested = 0;

void requestEnd(int) {
  endRequested = 1;
}

// The tasks of a checkpoint and the pictures saved for it, for a person reading.
void printCheckpoint(const scenario::OutJson& line,
                     const std::optional<std::string>& snapshotDirectory) {
  std::string name = line["checkpoint"].get<std::string>();
  std::printf("%s at %.1f s:\n", name.c_str(), line["time"].get<double>());
  for (const auto& task : line["runningApps"]) {
    std::printf("  %-28s %-10s %s%s\n", task["id"].get<std::string>().c_str(),
                task["appName"].get<std::string>().c_str(), task["name"].get<std::string>().c_str(),
                task["isActive"].get<bool>() ? "  (active)" : "");
  }
  if (!snapshotDirectory || !line.contains("panels")) return;
  for (const auto& panel : line["panels"]) {
    if (panel["kind"] != panelKindName(PanelKind::Taskbar)) continue;
    std::string file = snapshotFileName(name, panel["kind"].get<std::string>().c_str(),
                                        panel["screen"].get<size_t>());
    std::printf("  picture: %s/%s\n", snapshotDirectory->c_str(), file.c_str());
  }
}

}  // namespace

int runSimulation(int& argc, char** argv, scenario::Scenario scenario,
                  const SimulationOptions& options) {
  if (options.headless) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  } else {
    // A live run ends in order, through the delegate's termination.
    std::signal(SIGINT, requestEnd);
    std::signal(SIGTERM, requestEnd);
  }
  qt::ensureApplication(argc, argv);

  std::ofstream dump;
  if (options.dumpPath) {
    dump.open(*options.dumpPath, std::ios::binary | std::ios::trunc);
    if (!dump) {
      std::fprintf(stderr, "tolv: %s can't be written\n", options.dumpPath->c_str());
      return 1;
    }
  }
  scenario::RunOptions runOptions;
  runOptions.headless = options.headless;
  runOptions.snapshotDirectory = options.snapshotDirectory;
  runOptions.writeLine = [&](const scenario::OutJson& line) {
    if (dump.is_open()) {
      dump << line.dump() << '\n';
      dump.flush();
    } else if (options.headless) {
      printCheckpoint(line, options.snapshotDirectory);
    }
  };
  runOptions.afterStep = [] { QCoreApplication::processEvents(); };

  PanelScenarioViews views;
  scenario::ScenarioRun run(std::move(scenario), &views, runOptions);
  run.launch();
  if (options.headless) {
    run.runToEnd();
    run.terminate();
    return 0;
  }

  QElapsedTimer clock;
  clock.start();
  QTimer driver;
  int status = 0;
  QObject::connect(&driver, &QTimer::timeout, [&] {
    try {
      run.runUntil(static_cast<double>(clock.elapsed()) / 1000.0);
    } catch (const scenario::ScenarioError& error) {
      std::fprintf(stderr, "tolv: %s\n", error.what());
      status = scenario::kScenarioErrorStatus;
      QCoreApplication::quit();
    }
    if (endRequested || run.desktop().platform().processes->terminationRequested()) {
      QCoreApplication::quit();
    }
  });
  driver.start(15);
  QCoreApplication::exec();
  run.terminate();
  return status;
}

}  // namespace tolv
