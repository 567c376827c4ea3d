#include "app/view/SimulationApp.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <cstdlib>

#include "app/scenario/ScenarioRun.h"
#include "app/view/AppEventLoop.h"
#include "app/view/PanelScenarioViews.h"
#include "platform/qt/QtPlatform.h"
#include "taskbar/PanelDescription.h"
#include "taskbar/view/TaskbarPanelController.h"

namespace tolv {

namespace {

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
  if (options.headless) ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  qt::ensureApplication(argc, argv);

  CheckpointDump dump;
  if (options.dumpPath && !dump.open(*options.dumpPath)) return 1;
  scenario::RunOptions runOptions;
  runOptions.headless = options.headless;
  runOptions.snapshotDirectory = options.snapshotDirectory;
  runOptions.writeLine = [&](const scenario::OutJson& line) {
    if (dump.isOpen()) {
      dump.write(line);
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

  // The virtual clock follows the real one.
  QElapsedTimer clock;
  clock.start();
  const int status =
      runEventLoopUntilEnd(*run.desktop().platform().processes, [&]() -> std::optional<int> {
        try {
          run.runUntil(static_cast<double>(clock.elapsed()) / 1000.0);
        } catch (const scenario::ScenarioError& error) {
          std::fprintf(stderr, "tolv: %s\n", error.what());
          return scenario::kScenarioErrorStatus;
        }
        return std::nullopt;
      });
  run.terminate();
  return status;
}

}  // namespace tolv
