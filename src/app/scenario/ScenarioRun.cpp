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

ScenarioRun::ScenarioRun(Scenario scenario, const Platform& live, ScenarioViews* views,
                         RunOptions options)
    : scenario_(std::move(scenario)), views_(views), options_(std::move(options)), live_(live) {}

ScenarioRun::~ScenarioRun() {
  context_.reset();
  delegate_.reset();
}

TextMeasure ScenarioRun::textMeasure() const {
  return scenario_.desktop.textMeasure.value_or(options_.headless ? TextMeasure::Fixed
                                                                  : TextMeasure::Toolkit);
}

void ScenarioRun::launch() {
  if (desktop_) buildDesktop(*desktop_, scenario_.desktop);
  const Platform platform = desktop_ ? desktop_->platform() : *live_;
  ControllerFactories factories;
  if (views_) factories = views_->controllerFactories(textMeasure());
  delegate_ = std::make_unique<AppDelegate>(platform, std::move(factories));
  // Repeatable keys only where nothing outlives the run.
  if (desktop_) delegate_->model().makeGroupKey = sequentialGroupKeys();
  context_.reset(new RunContext{desktop_.get(), delegate_->model(), views_,
                                options_.snapshotDirectory, options_.writeLine,
                                platform.runLoop->now(), delegate_.get()});
  while (next_ < scenario_.timeline.size() && scenario_.timeline[next_].at <= 0)
    runNextStep();
  delegate_->applicationDidFinishLaunching();
  settle();
}

void ScenarioRun::settle() {
  if (desktop_) desktop_->runLoop().runUntilIdle();
  if (options_.afterStep) options_.afterStep();
}

void ScenarioRun::runNextStep() {
  const TimelineStep& step = scenario_.timeline[next_++];
  if (desktop_) desktop_->runLoop().advanceTo(std::max(step.at, desktop_->runLoop().now()));
  step.action(*context_);
  settle();
}

void ScenarioRun::runUntil(double time) {
  while (next_ < scenario_.timeline.size() && scenario_.timeline[next_].at <= time)
    runNextStep();
  if (desktop_) desktop_->runLoop().advanceTo(std::max(time, desktop_->runLoop().now()));
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
