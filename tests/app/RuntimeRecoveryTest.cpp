#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "app/RuntimeRecovery.h"
#include "app/SingleInstance.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimProcesses.h"
#include "platform/sim/SimRestart.h"
#include "platform/sim/SimSystemCommands.h"
#include "platform/sim/SimUserDefaults.h"
#include "platform/sim/SimWorkspace.h"
#include "support/StartedModel.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Recovery : public testing::StartedModel {
 protected:
  void SetUp() override { recovery().observe(); }

  // The recovery of the running process; `nextProcess` stands for the one a
  // restart started, over the same defaults and files.
  RuntimeRecovery& recovery() {
    if (!recovery_) recovery_ = std::make_unique<RuntimeRecovery>(desktop.platform(), model());
    return *recovery_;
  }
  RuntimeRecovery& nextProcess() {
    recovery_.reset();
    sim.restartModel();
    return recovery();
  }

  void record(std::string title, bool requestRestart) {
    recordRuntimeIssue(desktop.platform(), {.title = std::move(title),
                                            .detail = "Detail.",
                                            .requestRestart = requestRestart,
                                            .notify = true});
    desktop.runLoop().runUntilIdle();
  }
  std::vector<std::string> actionKinds() {
    std::vector<std::string> kinds;
    for (const auto& action : desktop.actionLog())
      kinds.push_back(action.at("kind").get<std::string>());
    return kinds;
  }
  std::vector<std::string> alertTitles() {
    std::vector<std::string> titles;
    for (const auto& shown : desktop.alerts().shown())
      titles.push_back(shown.alert.title);
    return titles;
  }
  const Alert& lastAlert() { return desktop.alerts().shown().back().alert; }
  bool pending() { return sim.defaults().contains(kPendingRuntimeIssueMessageKey); }
  void answer(int button, std::optional<std::vector<bool>> boxes = std::nullopt) {
    desktop.alerts().queueAnswer({.button = button, .fieldValue = {}}, boxes);
  }
  void runFromOutsideABundle() {
    BundleInfo bundle = desktop.workspace().mainBundle();
    bundle.path = "/home/me/src/tolv/build/tolv";
    desktop.workspace().setMainBundle(bundle);
  }
  std::string logPath() { return runtimeLogPath(*desktop.platform().fileSystem); }

  std::unique_ptr<RuntimeRecovery> recovery_;
};

TEST_F(Recovery, AnIssueAskingForARestartRelaunchesOnceAndTheNextProcessShowsIt) {
  record("Duplicate task state was detected before refresh.", true);
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));
  EXPECT_TRUE(desktop.processes().terminationRequested());
  EXPECT_TRUE(desktop.processes().endingForRestart());
  EXPECT_THAT(alertTitles(), IsEmpty());
  EXPECT_TRUE(pending());
  EXPECT_EQ(doubleValue(sim.defaults().value(kLastAutomaticRuntimeRestartKey)),
            desktop.clock().secondsSince1970());
  // The automatic restart keeps no workspace backup.
  EXPECT_FALSE(sim.defaults().contains("restartWorkspaceBackup"));

  // A further issue while the relaunch is under way changes nothing.
  record("Again", true);
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));

  // The new process shows both, under the title of the restart, once.
  nextProcess().presentPendingRuntimeIssue();
  ASSERT_THAT(alertTitles(), ElementsAre("Tolv recovered and restarted"));
  EXPECT_EQ(lastAlert().text,
            "Duplicate task state was detected before refresh.\n\nDetail.\n\n"
            "Error log: " +
                logPath() + "\n\nAgain\n\nDetail.\n\nError log: " + logPath());
  EXPECT_EQ(lastAlert().style, AlertStyle::Critical);
  EXPECT_THAT(lastAlert().buttons, ElementsAre("Show Error Log", "Dismiss"));
  EXPECT_FALSE(pending());
  EXPECT_FALSE(sim.defaults().contains(kPendingRuntimeIssueRequestsRestartKey));
  recovery().presentPendingRuntimeIssue();
  EXPECT_EQ(alertTitles().size(), 1u);
}

TEST_F(Recovery, WithinThirtySecondsOfTheLastRestartAnIssueIsOnlyShown) {
  record("First", true);
  ASSERT_THAT(actionKinds(), ElementsAre("relaunch"));
  nextProcess().observe();
  recovery().presentPendingRuntimeIssue();

  advance(29);
  record("Broken again", true);
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));
  ASSERT_EQ(alertTitles().size(), 2u);
  // The title follows the stored flag, not whether a restart happened.
  EXPECT_EQ(lastAlert().title, "Tolv recovered and restarted");
  EXPECT_FALSE(pending());

  advance(1);
  record("At thirty seconds", true);
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch", "relaunch"));
  EXPECT_EQ(alertTitles().size(), 2u);
}

TEST_F(Recovery, AnIssueWithoutARestartIsShownAndTheLogButtonRevealsTheLog) {
  answer(0);
  record("Recovered", false);
  EXPECT_THAT(alertTitles(), ElementsAre("Tolv recovered from a runtime error"));
  ASSERT_THAT(actionKinds(), ElementsAre("reveal"));
  EXPECT_EQ(desktop.actionLog().back().at("path"), logPath());
  EXPECT_FALSE(desktop.processes().terminationRequested());

  // A log-only issue raises nothing.
  recordRuntimeIssue(desktop.platform(),
                     {.title = "A duplicate window was returned by the macOS window list.",
                      .detail = "Detail.",
                      .requestRestart = false,
                      .notify = false});
  desktop.runLoop().runUntilIdle();
  EXPECT_EQ(alertTitles().size(), 1u);
}

TEST_F(Recovery, AFailedRelaunchKeepsTheProcessAndShowsTheIssue) {
  desktop.instanceLauncher().setLaunchFailure("The application could not be opened.");
  record("Broken", true);
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));
  EXPECT_FALSE(desktop.processes().terminationRequested());
  EXPECT_FALSE(desktop.processes().endingForRestart());
  EXPECT_FALSE(recovery().runtimeRecoveryInProgress());
  EXPECT_THAT(alertTitles(), ElementsAre("Tolv recovered and restarted"));
}

TEST_F(Recovery, OutsideABundleTheAutomaticPathShowsAndTheManualOneSaysWhy) {
  runFromOutsideABundle();
  record("Broken", true);
  EXPECT_THAT(actionKinds(), IsEmpty());
  EXPECT_THAT(alertTitles(), ElementsAre("Tolv recovered and restarted"));

  recovery().performRestart({.app = true, .dock = false});
  ASSERT_THAT(alertTitles(), ElementsAre("Tolv recovered and restarted", "Unable to refresh Tolv"));
  EXPECT_EQ(lastAlert().text, "The current executable is not running from an application bundle.");
  EXPECT_THAT(lastAlert().buttons, ElementsAre("OK"));
  EXPECT_EQ(lastAlert().style, AlertStyle::Warning);
}

TEST_F(Recovery, TheRestartDialogAsksWithBothBoxesOn) {
  answer(1);
  desktop.notificationCenter().post(Notification{kManualRestartRequestedNotification, {}});
  desktop.runLoop().runUntilIdle();
  ASSERT_THAT(alertTitles(), ElementsAre("Restart Tolv?"));
  EXPECT_EQ(lastAlert().text,
            std::string("Tolv ") + TOLV_VERSION + "  •  Build 1\n\nDo you want to restart Tolv?");
  EXPECT_EQ(lastAlert().style, AlertStyle::Informational);
  EXPECT_THAT(lastAlert().buttons, ElementsAre("OK", "Cancel"));
  ASSERT_EQ(lastAlert().checkBoxes.size(), 2u);
  EXPECT_EQ(lastAlert().checkBoxes[0].title, "Restart Tolv");
  EXPECT_EQ(lastAlert().checkBoxes[0].frame, (Rect{0, 22, 220, 18}));
  EXPECT_EQ(lastAlert().checkBoxes[1].title, "Restart MacOS Dock");
  EXPECT_EQ(lastAlert().checkBoxes[1].frame, (Rect{0, 0, 220, 18}));
  EXPECT_TRUE(lastAlert().checkBoxes[0].checked && lastAlert().checkBoxes[1].checked);
  // "Cancel" restarts nothing.
  EXPECT_THAT(actionKinds(), IsEmpty());
}

TEST_F(Recovery, TheDialogsBoxesDecideWhatRestarts) {
  answer(0, std::vector<bool>{false, false});
  recovery().showManualRestartDialog();
  EXPECT_THAT(actionKinds(), IsEmpty());

  answer(0, std::vector<bool>{false, true});
  recovery().showManualRestartDialog();
  ASSERT_THAT(actionKinds(), ElementsAre("tool"));
  EXPECT_EQ(desktop.actionLog().back().at("path"), "/usr/bin/killall");
  EXPECT_FALSE(desktop.processes().terminationRequested());

  answer(0);
  recovery().showManualRestartDialog();
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(actionKinds(), ElementsAre("tool", "tool", "relaunch"));
  EXPECT_TRUE(desktop.processes().terminationRequested());
}

TEST_F(Recovery, WithoutADockTheDialogHasNoDockBoxAndNothingRestartsIt) {
  desktop.systemCommands().setHasDock(false);
  answer(0);
  recovery().showManualRestartDialog();
  ASSERT_EQ(lastAlert().checkBoxes.size(), 1u);
  EXPECT_EQ(lastAlert().checkBoxes[0].title, "Restart Tolv");
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));

  // Asked for directly, the Dock's restart is left out too.
  recovery_.reset();
  recovery().performRestart({.app = false, .dock = true});
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));
}

TEST_F(Recovery, AManualRestartLeavesTheWorkspaceBackupForTheNextStart) {
  start();
  recovery().performRestart({.app = true, .dock = false});
  ASSERT_THAT(actionKinds(), ElementsAre("relaunch"));
  EXPECT_TRUE(sim.defaults().contains("restartWorkspaceBackup"));

  AppModel& next = sim.restartModel();
  EXPECT_TRUE(next.workspaces.restoredRestartWorkspaceBackup);
  EXPECT_FALSE(sim.defaults().contains("restartWorkspaceBackup"));
}

TEST_F(Recovery, AFailedManualRestartSaysWhyAndCanBeTriedAgain) {
  desktop.instanceLauncher().setLaunchFailure("No such file.");
  recovery().performRestart({.app = true, .dock = false});
  desktop.runLoop().runUntilIdle();
  ASSERT_THAT(alertTitles(), ElementsAre("Unable to refresh Tolv"));
  EXPECT_EQ(lastAlert().text, "No such file.");
  EXPECT_FALSE(desktop.processes().endingForRestart());

  desktop.instanceLauncher().setLaunchFailure(std::nullopt);
  recovery().performRestart({.app = true, .dock = false});
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch", "relaunch"));
  EXPECT_TRUE(desktop.processes().terminationRequested());
}

TEST_F(Recovery, TheGrantOfAccessibilityRestartsWithoutTheDock) {
  desktop.notificationCenter().post(
      Notification{"TolvAccessibilityGrantedRestartRequested", std::nullopt});
  desktop.runLoop().runUntilIdle();
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));
  EXPECT_THAT(alertTitles(), IsEmpty());
}

TEST_F(Recovery, StoredValuesOfTheWrongTypeFallBack) {
  // A message that isn't text can't be shown; it is cleared, with its flag.
  sim.defaults().set(kPendingRuntimeIssueMessageKey, PropertyValue(int64_t{42}));
  sim.defaults().set(kPendingRuntimeIssueRequestsRestartKey, true);
  sim.defaults().set("taskOrder", PropertyValue(std::vector<PropertyValue>{}));
  recovery().presentPendingRuntimeIssue();
  EXPECT_THAT(alertTitles(), IsEmpty());
  EXPECT_FALSE(pending());
  EXPECT_FALSE(sim.defaults().contains(kPendingRuntimeIssueRequestsRestartKey));
  EXPECT_TRUE(sim.defaults().contains("taskOrder"));

  // A flag that isn't a boolean asks for no restart; a stamp that isn't a
  // number is no restart at all.
  sim.defaults().set(kPendingRuntimeIssueMessageKey, std::string("Kept text"));
  sim.defaults().set(kPendingRuntimeIssueRequestsRestartKey, std::string("yes"));
  recovery().presentPendingRuntimeIssue();
  EXPECT_THAT(alertTitles(), ElementsAre("Tolv recovered from a runtime error"));
  EXPECT_EQ(lastAlert().text, "Kept text");

  sim.defaults().set(kLastAutomaticRuntimeRestartKey, std::string("soon"));
  record("Broken", true);
  EXPECT_THAT(actionKinds(), ElementsAre("relaunch"));
}

TEST_F(Recovery, TheLogOpensEvenBeforeAnyIssueWasWritten) {
  ASSERT_FALSE(std::filesystem::exists(logPath()));
  recovery().openRuntimeLog();
  EXPECT_TRUE(std::filesystem::exists(logPath()));
  EXPECT_EQ(std::filesystem::file_size(logPath()), 0u);
  EXPECT_THAT(actionKinds(), ElementsAre("reveal", "openInTextEditor"));
  EXPECT_EQ(desktop.actionLog().back().at("path"), logPath());
}

TEST_F(Recovery, ALogFolderThatCannotBeMadeIsSaidAndNothingOpens) {
  // A file where the folder should be.
  std::filesystem::remove_all(desktop.applicationSupportFolder());
  std::ofstream(desktop.applicationSupportFolder()) << "in the way";
  recovery().openRuntimeLog();
  ASSERT_THAT(alertTitles(), ElementsAre("Unable to open the Debug / Crash Log"));
  EXPECT_THAT(lastAlert().text, HasSubstr("couldn\u2019t be created."));
  EXPECT_THAT(actionKinds(), IsEmpty());
}

// The single-instance check meets a copy that is ending for a restart.
class RestartHandOver : public testing::StartedModel {
 protected:
  bool check() {
    InstanceCheck instance{desktop.processes(), desktop.runLoop(), desktop.workspace().mainBundle(),
                           sim::SimDesktop::kOwnPid, [this](const Alert& alert) {
                             return desktop.alerts().runModal(alert, AlertPlacement{});
                           }};
    return ensureSingleInstance(instance);
  }
  void oldCopy(double quitDelay, bool endingForRestart) {
    desktop.processes().addProcess({.pid = 500,
                                    .bundleIdentifier = sim::SimDesktop::kOwnBundleIdentifier,
                                    .quitDelay = quitDelay,
                                    .ignoresTerminate = false,
                                    .ignoresSignal15 = false,
                                    .ownedByOtherUser = false,
                                    .endingForRestart = endingForRestart});
    // The old copy ends on its own, as a restarted one does.
    desktop.processes().terminate(500);
  }
};

TEST_F(RestartHandOver, TheNewInstanceWaitsQuietlyForTheOldOne) {
  oldCopy(2.0, true);
  EXPECT_TRUE(check());
  EXPECT_TRUE(desktop.alerts().shown().empty());
  EXPECT_EQ(*desktop.processes().process(500)->endedAt, 2.0);
  EXPECT_EQ(desktop.processes().process(500)->received, std::vector<std::string>{"terminate"});
}

TEST_F(RestartHandOver, AnOldCopyThatOutstaysTheWaitIsAskedAboutAsAnyOther) {
  oldCopy(9.0, true);
  desktop.alerts().queueAnswer({.button = std::string("OK"), .fieldValue = {}});
  EXPECT_TRUE(check());
  ASSERT_EQ(desktop.alerts().shown().size(), 1u);
  EXPECT_EQ(desktop.alerts().shown()[0].alert.title, "🏃 Tolv is already running.");
  EXPECT_GE(desktop.runLoop().now(), instance_wait::ForRestart);
}

TEST_F(RestartHandOver, ACopyThatIsNotRestartingIsAskedAboutAtOnce) {
  oldCopy(2.0, false);
  // Left unanswered, the question takes "Cancel" and this copy gives way.
  EXPECT_FALSE(check());
  EXPECT_EQ(desktop.alerts().shown().size(), 1u);
  EXPECT_EQ(desktop.runLoop().now(), 0.0);
}

}  // namespace
}  // namespace tolv
