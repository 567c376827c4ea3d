// The tray's cost on a busy desktop, 20 applications with 10 windows each and
// a Dock with badges: a minute of quiet time with the clock shown (wake-ups and
// platform calls), a badge scan that finds nothing new, and one that finds a
// change and carries it to the tasks and the attention list.

#include <benchmark/benchmark.h>

#include "BusyDesktop.h"
#include "discovery/Badges.h"
#include "model/AppModel.h"
#include "platform/sim/SimTray.h"

namespace {

using tolv::bench::busyDesktop;
using tolv::sim::SimDesktop;

struct TrayDesktop {
  SimDesktop desktop;
  std::shared_ptr<tolv::AppModel> model;

  TrayDesktop() {
    desktop.populate(busyDesktop());
    desktop.dock().setRunning(true);
    desktop.dock().setBadge("App 3", "2");
    desktop.dock().setBadge("Not Running", "1");
    desktop.audio().setDevice(tolv::sim::outputDevice(0.5f));
    desktop.brightness().setLevel(0.5f);
    model = tolv::AppModel::make(desktop.platform());
    model->settings.showTimeAndDate = true;
    model->start();
    desktop.runLoop().advance(0.5);
    desktop.calls().reset();
  }
};

benchmark::Counter perIteration(int64_t count) {
  return benchmark::Counter(static_cast<double>(count), benchmark::Counter::kAvgIterations);
}

// A minute of a quiet desktop with the tray shown: every timer that fires, and
// every platform call, per minute.
void BM_QuietMinuteWithTray(benchmark::State& state) {
  TrayDesktop tray;
  uint64_t clockTicks = tray.model->clockMinute.assignmentCount();
  int64_t wakeUps = 0;
  auto& loop = tray.desktop.runLoop();
  for (auto _ : state) {
    const double end = loop.now() + 60;
    while (loop.nextDueTime() && *loop.nextDueTime() <= end) {
      loop.advanceTo(*loop.nextDueTime());
      ++wakeUps;
    }
    loop.advanceTo(end);
  }
  const auto& calls = tray.desktop.calls();
  // The scan and publish stages' own ticks are part of these.
  state.counters["wake_ups"] = perIteration(wakeUps);
  state.counters["clock_redraws"] =
      perIteration(static_cast<int64_t>(tray.model->clockMinute.assignmentCount() - clockTicks));
  state.counters["badge_calls"] = perIteration(calls.service("badges"));
  state.counters["other_calls"] = perIteration(
      calls.service("accessibility") + calls.service("workspace") + calls.service("windowServer") +
      calls.service("audio") + calls.service("power") + calls.service("brightness"));
}
BENCHMARK(BM_QuietMinuteWithTray)->Unit(benchmark::kMillisecond);

// The badge tree read and compared: nothing changed.
void BM_UnchangedBadgeScan(benchmark::State& state) {
  TrayDesktop tray;
  for (auto _ : state)
    benchmark::DoNotOptimize(tray.model->scanBadgesIfDue(true));
  state.counters["badge_calls"] = perIteration(tray.desktop.calls().service("badges"));
}
BENCHMARK(BM_UnchangedBadgeScan);

// A badge comes and goes: each scan changes the flags, and the refresh carries
// them to the tasks and the attention list.
void BM_ChangedBadgeRefresh(benchmark::State& state) {
  TrayDesktop tray;
  bool on = false;
  for (auto _ : state) {
    on = !on;
    tray.desktop.dock().setBadge("App 7", on ? "1" : "");
    tray.model->refreshRunningApps(
        {.forceBadgeScan = true, .allowCacheSkip = true, .onlyIfDirty = true});
  }
  state.counters["ax_calls"] = perIteration(tray.desktop.calls().service("accessibility"));
  state.counters["badge_calls"] = perIteration(tray.desktop.calls().service("badges"));
}
BENCHMARK(BM_ChangedBadgeRefresh);

}  // namespace
