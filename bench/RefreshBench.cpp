// The cost of one scan tick of the refresh pipeline on a busy desktop, 20
// applications with 10 windows each on six spaces: quiet, with one application
// dirty, a full refresh, and a workspace pass after a change of space. Counters
// give the platform calls per tick by service, and the accessibility calls that
// reached applications other than the dirty one.

#include <benchmark/benchmark.h>

#include "BusyDesktop.h"
#include "model/AppModel.h"
#include "platform/sim/SimAccessibility.h"

namespace {

using tolv::bench::busyDesktop;
using tolv::bench::busySpaces;
using tolv::bench::kBusyApplications;
using tolv::bench::kFirstBusyPid;
using tolv::sim::SimDesktop;

constexpr tolv::Pid kDirtyPid = kFirstBusyPid + 7;

struct StartedDesktop {
  SimDesktop desktop;
  std::shared_ptr<tolv::AppModel> model;

  StartedDesktop() {
    desktop.setSpaces(busySpaces());
    desktop.populate(busyDesktop());
    model = tolv::AppModel::make(desktop.platform());
    model->start();
    desktop.runLoop().advance(0.5);  // the first refresh
    desktop.calls().reset();
  }
  int64_t callsOutside(tolv::Pid pid) {
    int64_t total = 0;
    for (int a = 0; a < kBusyApplications; ++a) {
      if (kFirstBusyPid + a != pid) total += desktop.accessibility().callsFor(kFirstBusyPid + a);
    }
    return total;
  }
};

void reportCalls(benchmark::State& state, StartedDesktop& started, int64_t otherAppsBefore) {
  auto perTick = [&](int64_t count) {
    return benchmark::Counter(static_cast<double>(count), benchmark::Counter::kAvgIterations);
  };
  const auto& calls = started.desktop.calls();
  state.counters["ax_calls"] = perTick(calls.service("accessibility"));
  // The calls that cross into another process; hash and equality are local.
  state.counters["ax_reads"] =
      perTick(calls["accessibility.copyAttribute"] + calls["accessibility.copyMultipleAttributes"]);
  state.counters["window_server_calls"] = perTick(calls.service("windowServer"));
  state.counters["workspace_calls"] = perTick(calls.service("workspace"));
  state.counters["spaces_calls"] = perTick(calls.service("spaces"));
  state.counters["ax_calls_other_apps"] =
      perTick(started.callsOutside(kDirtyPid) - otherAppsBefore);
}

// Nothing changed: the tick looks at the dirty and polled sets and ends.
void BM_QuietScanTick(benchmark::State& state) {
  StartedDesktop started;
  int64_t otherApps = started.callsOutside(kDirtyPid);
  for (auto _ : state)
    started.model->runWindowScanTick();
  reportCalls(state, started, otherApps);
}
BENCHMARK(BM_QuietScanTick);

// One window of one application is renamed: its observer marks it dirty, and
// the tick rescans that application alone.
void BM_OneDirtyApplicationScanTick(benchmark::State& state) {
  StartedDesktop started;
  int64_t otherApps = started.callsOutside(kDirtyPid);
  bool renamed = false;
  for (auto _ : state) {
    renamed = !renamed;
    started.desktop.changeWindow(kDirtyPid, {.index = 0},
                                 {.title = renamed ? "Renamed" : "Window 0"});
    started.desktop.runLoop().runUntilIdle();  // delivers AXTitleChanged
    started.model->runWindowScanTick();
  }
  reportCalls(state, started, otherApps);
}
BENCHMARK(BM_OneDirtyApplicationScanTick);

// Every application read in full and the result published.
void BM_FullRefresh(benchmark::State& state) {
  StartedDesktop started;
  int64_t otherApps = started.callsOutside(kDirtyPid);
  for (auto _ : state)
    started.model->refreshRunningApps({.publish = true});
  reportCalls(state, started, otherApps);
}
BENCHMARK(BM_FullRefresh);

// The user went to another desktop: one pass reads the listing and brings the
// workspace tasks and their tables up to date.
void BM_WorkspacePassAfterSpaceChange(benchmark::State& state) {
  StartedDesktop started;
  int64_t otherApps = started.callsOutside(kDirtyPid);
  bool second = false;
  for (auto _ : state) {
    second = !second;
    started.desktop.switchSpace(second ? "D2" : "D1");
    started.model->pollManagedWorkspaces();
  }
  reportCalls(state, started, otherApps);
}
BENCHMARK(BM_WorkspacePassAfterSpaceChange);

}  // namespace
