#include "app/scenario/ScenarioRun.h"

#include <algorithm>
#include <cstdio>

namespace tolv::scenario {

std::function<std::string()> sequentialGroupKeys() {
  auto issued = std::make_shared<uint64_t>(0);
  return [issued] {
    char key[40];
    std::snprintf(key, sizeof key, "00000000-0000-4000-8000-%012llX",
                  static_cast<unsigned long long>(++*issued));
    return std::string(key);
  };
}

ScenarioRun::ScenarioRun(Scenario scenario, ScenarioViews* views, RunOptions options)
    : scenario_(std::move(scenario)),
      views_(views),
      options_(std::move(options)),
      desktop_(std::make_unique<sim::SimDesktop>()) {}

ScenarioRun::~ScenarioRun() {
  context_.reset();
  delegate_.reset();
}

TextMeasure ScenarioRun::textMeasure() const {
  return scenario_.desktop.textMeasure.value_or(options_.headless ? TextMeasure::Fixed
                                                                  : TextMeasure::Toolkit);
}

void ScenarioRun::launch() {
  buildDesktop(*desktop_, scenario_.desktop);
  ControllerFactories factories;
  if (views_) factories = views_->controllerFactories(textMeasure());
  delegate_ = std::make_unique<AppDelegate>(desktop_->platform(), std::move(factories));
  delegate_->model().makeGroupKey = sequentialGroupKeys();
  context_.reset(new RunContext{*desktop_, delegate_->model(), views_, options_.snapshotDirectory,
                                options_.writeLine});
  while (next_ < scenario_.timeline.size() && scenario_.timeline[next_].at <= 0)
    runNextStep();
  delegate_->applicationDidFinishLaunching();
  desktop_->runLoop().runUntilIdle();
  if (options_.afterStep) options_.afterStep();
}

void ScenarioRun::runNextStep() {
  sim::SimRunLoop& loop = desktop_->runLoop();
  const TimelineStep& step = scenario_.timeline[next_++];
  loop.advanceTo(std::max(step.at, loop.now()));
  step.action(*context_);
  loop.runUntilIdle();
  if (options_.afterStep) options_.afterStep();
}

void ScenarioRun::runUntil(double time) {
  while (next_ < scenario_.timeline.size() && scenario_.timeline[next_].at <= time)
    runNextStep();
  desktop_->runLoop().advanceTo(std::max(time, desktop_->runLoop().now()));
}

void ScenarioRun::terminate() {
  if (delegate_) delegate_->applicationWillTerminate();
}

void runHeadless(Scenario scenario, const std::function<void(const OutJson&)>& writeLine) {
  ScenarioRun run(std::move(scenario), nullptr, RunOptions{true, std::nullopt, writeLine, {}});
  run.launch();
  run.runToEnd();
  run.terminate();
}

}  // namespace tolv::scenario
