#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/AppDelegate.h"
#include "app/SingleInstance.h"
#include "platform/sim/SimAlerts.h"
#include "platform/sim/SimProcesses.h"
#include "platform/sim/SimRunLoop.h"
#include "support/SimModel.h"

namespace tolv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kAlreadyRunning = "🏃 Tolv is already running.";
constexpr const char* kUnableToClose = "Unable to close the existing Tolv process.";

class SingleInstanceTest : public ::testing::Test {
 protected:
  sim::SimDesktop desktop;
  AppDelegate delegate{desktop.platform(), {}};
  sim::SimProcesses& processes = desktop.processes();

  sim::SimProcessSetup copy(Pid pid) {
    sim::SimProcessSetup setup;
    setup.pid = pid;
    setup.bundleIdentifier = sim::SimDesktop::kOwnBundleIdentifier;
    return setup;
  }
  void answer(const char* button) { desktop.alerts().queueAnswer({std::string(button), {}}); }
  // Runs the check and gives how long it kept the launch waiting.
  double check(bool expected) {
    double start = desktop.runLoop().now();
    EXPECT_EQ(delegate.ensureSingleInstance(), expected);
    return desktop.runLoop().now() - start;
  }
  const std::vector<std::string>& received(Pid pid) { return processes.process(pid)->received; }
  std::vector<std::string> alertTitles() {
    std::vector<std::string> titles;
    for (const auto& shown : desktop.alerts().shown())
      titles.push_back(shown.alert.title);
    return titles;
  }
};

TEST_F(SingleInstanceTest, AloneOrAmongOtherApplicationsTheLaunchGoesOnUnasked) {
  auto other = copy(500);
  other.bundleIdentifier = "com.example.Other";
  processes.addProcess(other);

  EXPECT_EQ(check(true), 0);
  EXPECT_THAT(desktop.alerts().shown(), IsEmpty());
  EXPECT_THAT(received(500), IsEmpty());
  EXPECT_EQ(processes.activations(), 0);
}

TEST_F(SingleInstanceTest, ACopyThatQuitsWhenAskedGetsNoSignal) {
  auto older = copy(500);
  older.quitDelay = 0.4;
  processes.addProcess(older);
  answer("OK");

  double waited = check(true);
  EXPECT_THAT(received(500), ElementsAre("terminate"));
  EXPECT_FALSE(processes.process(500)->alive);
  // The wait ends with the copy, not at its limit.
  EXPECT_NEAR(waited, 0.4, 0.03);
  EXPECT_FALSE(processes.terminationRequested());

  ASSERT_EQ(desktop.alerts().shown().size(), 1u);
  const auto& shown = desktop.alerts().shown()[0];
  EXPECT_EQ(shown.alert.style, AlertStyle::Warning);
  EXPECT_EQ(shown.alert.title, kAlreadyRunning);
  EXPECT_EQ(shown.alert.text,
            "Tolv " TOLV_VERSION
            "  •  Build 1\n\nTo use this version instead, click OK to terminate existing process "
            "and restart Tolv.");
  EXPECT_THAT(shown.alert.buttons, ElementsAre("OK", "Cancel"));
  EXPECT_FALSE(shown.placement.centred);
  EXPECT_DOUBLE_EQ(shown.placement.fraction, 0.5);
  EXPECT_EQ(processes.activations(), 1);
}

TEST_F(SingleInstanceTest, EscalationWaitsAtEachStageAndStopsAtTheSignalThatWorks) {
  auto obeys15 = copy(500);
  obeys15.ignoresTerminate = true;
  obeys15.quitDelay = 0.2;
  processes.addProcess(obeys15);
  auto needs9 = copy(600);
  needs9.ignoresTerminate = true;
  needs9.ignoresSignal15 = true;
  processes.addProcess(needs9);
  answer("OK");
  double start = desktop.runLoop().now();

  double waited = check(true);
  EXPECT_THAT(received(500), ElementsAre("terminate", "signal 15"));
  EXPECT_NEAR(*processes.process(500)->endedAt - start, 1.5 + 0.2, 1e-9);
  EXPECT_THAT(received(600), ElementsAre("terminate", "signal 15", "signal 9"));
  EXPECT_NEAR(*processes.process(600)->endedAt - start, 2.5, 1e-9);
  EXPECT_NEAR(waited, 2.5, 1e-9);
  EXPECT_THAT(alertTitles(), ElementsAre(kAlreadyRunning));
}

TEST_F(SingleInstanceTest, ACopyThatSurvivesEverythingEndsThisOne) {
  auto stubborn = copy(500);
  stubborn.ownedByOtherUser = true;
  processes.addProcess(stubborn);
  answer("OK");

  double waited = check(false);
  EXPECT_TRUE(processes.process(500)->alive);
  EXPECT_THAT(received(500), ElementsAre("terminate", "signal 15", "signal 9"));
  EXPECT_NEAR(waited, 1.5 + 1.0 + 1.0 + 0.75, 1e-9);
  EXPECT_TRUE(processes.terminationRequested());

  ASSERT_THAT(alertTitles(), ElementsAre(kAlreadyRunning, kUnableToClose));
  const Alert& failure = desktop.alerts().shown()[1].alert;
  EXPECT_EQ(failure.style, AlertStyle::Critical);
  EXPECT_EQ(failure.text,
            "The new copy will quit so two Tolv instances are not allowed to run at the same "
            "time.");
}

TEST_F(SingleInstanceTest, CancelEndsThisCopyAndLeavesTheOtherAlone) {
  processes.addProcess(copy(500));
  answer("Cancel");

  EXPECT_EQ(check(false), 0);
  EXPECT_TRUE(processes.terminationRequested());
  EXPECT_TRUE(processes.process(500)->alive);
  EXPECT_THAT(received(500), IsEmpty());
}

TEST_F(SingleInstanceTest, AnAlertClosedWithoutAnAnswerCountsAsCancel) {
  processes.addProcess(copy(500));
  // No scripted answer: the sim takes the last button, as closing the alert would.
  EXPECT_EQ(check(false), 0);
  EXPECT_THAT(received(500), IsEmpty());
}

TEST(SingleInstanceWithoutBundleTest, AProcessWithoutBundleIdentifierNeverLooks) {
  sim::SimDesktop desktop;
  sim::SimProcessSetup twin;
  twin.pid = 500;
  desktop.processes().addProcess(twin);
  int alerts = 0;
  InstanceCheck check{desktop.processes(), desktop.runLoop(), BundleInfo{}, 99, [&](const Alert&) {
                        ++alerts;
                        return AlertResult{};
                      }};
  EXPECT_TRUE(ensureSingleInstance(check));
  EXPECT_EQ(alerts, 0);
  EXPECT_EQ(desktop.calls()["processes.runningCopies"], 0);
}

}  // namespace
}  // namespace tolv
