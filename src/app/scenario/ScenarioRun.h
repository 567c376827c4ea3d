#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/AppDelegate.h"
#include "app/scenario/RecordJson.h"
#include "app/scenario/RunContext.h"
#include "app/scenario/Scenario.h"
#include "app/scenario/ScenarioViews.h"

namespace tolv::scenario {

struct RunOptions {
  // Headless runs measure text with the fixed rule unless the scenario says otherwise.
  bool headless = true;
  std::optional<std::string> snapshotDirectory;
  std::function<void(const OutJson&)> writeLine;
  // Runs after the launch and after each step, once the desktop's work is done.
  std::function<void()> afterStep;
};

// One run of a scenario: the simulated desktop built from it, the steps at
// time 0 (so that answers queued there reach the alerts of the launch), the
// launch sequence at virtual time 0, then the rest of the timeline. A step's failure (a
// task or window that isn't there when its time comes) is a ScenarioError
// naming the step. On a live desktop the run uses the platform it is given and
// its real clock: steps run when runUntil reaches their time, and the
// platform's own run loop carries out the work they post.
class ScenarioRun {
 public:
  ScenarioRun(Scenario scenario, ScenarioViews* views, RunOptions options);
  ScenarioRun(Scenario scenario, const Platform& live, ScenarioViews* views, RunOptions options);
  ~ScenarioRun();
  ScenarioRun(const ScenarioRun&) = delete;
  ScenarioRun& operator=(const ScenarioRun&) = delete;

  // Builds the desktop, makes the delegate (which loads the settings from the
  // desktop's defaults), runs the steps at time 0 and then
  // applicationDidFinishLaunching.
  void launch();
  // Runs every step due by `time` (seconds from the launch) in order, each
  // followed by the work it posted, then lets the virtual clock reach `time`.
  void runUntil(double time);
  void runToEnd() { runUntil(scenario_.endTime()); }
  // applicationWillTerminate.
  void terminate();

  TextMeasure textMeasure() const;
  // The simulated desktop; only for runs over it.
  sim::SimDesktop& desktop() { return *desktop_; }

 private:
  // Runs the next step and the work it posted.
  void runNextStep();
  // The simulated desktop's work done, then the caller's.
  void settle();

  Scenario scenario_;
  ScenarioViews* views_;
  RunOptions options_;
  std::unique_ptr<sim::SimDesktop> desktop_;
  std::optional<Platform> live_;
  std::unique_ptr<AppDelegate> delegate_;
  std::unique_ptr<RunContext> context_;
  size_t next_ = 0;
};

// Keys for custom groups in the form of upper-case UUIDs, issued in sequence
// (…-000000000001, …-000000000002), so that a scenario's output repeats from run to run.
std::function<std::string()> sequentialGroupKeys();

// A core-only run to its end: every checkpoint line goes to `writeLine`.
void runHeadless(Scenario scenario, const std::function<void(const OutJson&)>& writeLine);

}  // namespace tolv::scenario
