// The entry point: `tolv` runs Tolv on the live X11 desktop, `tolv --scenario
// FILE` runs a scenario there; `tolv --simulate [SCENARIO]` runs it over the
// simulated desktop, shown or headless.

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include "app/scenario/Scenario.h"
#include "app/view/LiveApp.h"
#include "app/view/SimulationApp.h"
#include "platform/sim/DemoDesktop.h"

namespace {

constexpr int kUsageStatus = 2;

void printUsage(FILE* out) {
  std::fprintf(
      out,
      "usage: tolv\n"
      "       tolv --scenario FILE [--dump OUT.jsonl] [--snapshot DIR]\n"
      "       tolv --simulate [SCENARIO] [--headless] [--dump OUT.jsonl] [--snapshot DIR]\n"
      "       tolv --help\n"
      "       tolv --version\n"
      "\n"
      "  (no option)            run on the live X11 desktop that DISPLAY names, until\n"
      "                         interrupted or terminated\n"
      "  --scenario FILE        run a scenario without a \"desktop\" section on the live X11\n"
      "                         desktop, its times in real seconds from the launch, and end\n"
      "                         with it; only \"call\" and \"checkpoint\" entries run there. A\n"
      "                         scenario with a \"desktop\" section runs over the simulated\n"
      "                         desktop as with --simulate\n"
      "  --simulate [SCENARIO]  run over a simulated desktop: the scenario file's, else\n"
      "                         the built-in demo desktop\n"
      "  --headless             run on the virtual clock to the scenario's end, offscreen\n"
      "                         (simulated desktop only)\n"
      "  --dump OUT.jsonl       write one JSON line per checkpoint (without it a headless\n"
      "                         run prints each checkpoint's tasks, a live one its lines)\n"
      "  --snapshot DIR         save every panel at every checkpoint as\n"
      "                         DIR/<checkpoint>-<panel>-<screen>.png\n");
}

int usageError(const std::string& problem) {
  std::fprintf(stderr, "tolv: %s\nTry 'tolv --help' for more information.\n", problem.c_str());
  return kUsageStatus;
}

int noDisplay() {
  std::fprintf(stderr,
               "tolv: there is no X display: DISPLAY is not set. Run Tolv inside an X11 "
               "session, or run 'tolv --simulate' for the simulated desktop.\n");
  return 1;
}

struct CommandLine {
  bool simulate = false;
  std::optional<std::string> scenarioPath;
  std::optional<std::string> liveScenarioPath;
  tolv::SimulationOptions simulation;
};

}  // namespace

int main(int argc, char** argv) {
  CommandLine command;
  for (int i = 1; i < argc; ++i) {
    std::string argument = argv[i];
    auto value = [&]() -> std::optional<std::string> {
      if (i + 1 >= argc) return std::nullopt;
      return std::string(argv[++i]);
    };
    if (argument == "--help" || argument == "-h") {
      printUsage(stdout);
      return 0;
    } else if (argument == "--version") {
      std::printf("tolv %s\n", TOLV_VERSION);
      return 0;
    } else if (argument == "--simulate") {
      command.simulate = true;
      if (i + 1 < argc && std::strncmp(argv[i + 1], "--", 2) != 0) command.scenarioPath = argv[++i];
    } else if (argument == "--scenario") {
      command.liveScenarioPath = value();
      if (!command.liveScenarioPath) return usageError("--scenario needs a file");
    } else if (argument == "--headless") {
      command.simulation.headless = true;
    } else if (argument == "--dump") {
      command.simulation.dumpPath = value();
      if (!command.simulation.dumpPath) return usageError("--dump needs a file");
    } else if (argument == "--snapshot") {
      command.simulation.snapshotDirectory = value();
      if (!command.simulation.snapshotDirectory) return usageError("--snapshot needs a folder");
    } else {
      return usageError("unknown option '" + argument + "'");
    }
  }
  if (command.simulate && command.liveScenarioPath) {
    return usageError("--scenario and --simulate can't go together");
  }

  try {
    if (command.liveScenarioPath) {
      tolv::scenario::Scenario scenario = tolv::scenario::loadScenarioFile(
          *command.liveScenarioPath, tolv::scenario::DesktopChoice::LiveWithoutDesktop);
      if (!scenario.live) {
        return tolv::runSimulation(argc, argv, std::move(scenario), command.simulation);
      }
      if (command.simulation.headless) {
        return usageError("--headless goes with a simulated desktop");
      }
      if (!tolv::hasXDisplay()) return noDisplay();
      return tolv::runLiveDesktop(
          argc, argv,
          tolv::LiveScenarioOptions{std::move(scenario), command.simulation.dumpPath,
                                    command.simulation.snapshotDirectory});
    }
    if (!command.simulate) {
      if (command.simulation.headless || command.simulation.dumpPath ||
          command.simulation.snapshotDirectory) {
        return usageError("--headless, --dump and --snapshot go with --simulate or --scenario");
      }
      if (!tolv::hasXDisplay()) return noDisplay();
      return tolv::runLiveDesktop(argc, argv, std::nullopt);
    }
    tolv::scenario::Scenario scenario =
        command.scenarioPath ? tolv::scenario::loadScenarioFile(*command.scenarioPath)
                             : tolv::scenario::parseScenario(tolv::sim::demoScenario());
    return tolv::runSimulation(argc, argv, std::move(scenario), command.simulation);
  } catch (const tolv::scenario::ScenarioError& error) {
    std::fprintf(stderr, "tolv: %s\n", error.what());
    return tolv::scenario::kScenarioErrorStatus;
  }
}
