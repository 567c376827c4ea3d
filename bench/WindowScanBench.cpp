// The cost of scanning a busy desktop: 20 applications with 10 windows each.

#include <benchmark/benchmark.h>

#include <set>

#include "BusyDesktop.h"
#include "model/AppModel.h"

namespace {

using tolv::bench::busyDesktop;
using tolv::sim::SimDesktop;

struct ScanFixture {
  SimDesktop desktop;
  std::shared_ptr<tolv::AppModel> model;
  std::vector<tolv::RunningApplication> apps;

  ScanFixture() {
    desktop.populate(busyDesktop());
    model = tolv::AppModel::make(desktop.platform());
    std::set<tolv::Pid> seen;
    apps = model->listRegularApplications(SimDesktop::kOwnPid, seen);
  }
  size_t scanAll(bool allowCachedSnapshot) {
    size_t tasks = 0;
    for (const auto& app : apps) {
      tasks +=
          model->scanApplicationWindows(app, {.allowCachedSnapshot = allowCachedSnapshot}).size();
    }
    return tasks;
  }
};

void reportCalls(benchmark::State& state, const tolv::sim::CallCounter& calls) {
  double iterations = static_cast<double>(state.iterations());
  state.counters["ax_calls_per_pass"] =
      static_cast<double>(calls["accessibility.copyAttribute"] +
                          calls["accessibility.copyMultipleAttributes"]) /
      iterations;
}

// Every application read in full: titles and identifiers of all 200 windows.
void BM_FullScan(benchmark::State& state) {
  ScanFixture fixture;
  fixture.desktop.calls().reset();
  for (auto _ : state)
    benchmark::DoNotOptimize(fixture.scanAll(false));
  reportCalls(state, fixture.desktop.calls());
}
BENCHMARK(BM_FullScan);

// Every application polled with an unchanged snapshot: the list, the focus and
// one title per application.
void BM_SnapshotScan(benchmark::State& state) {
  ScanFixture fixture;
  fixture.scanAll(false);
  fixture.desktop.calls().reset();
  for (auto _ : state)
    benchmark::DoNotOptimize(fixture.scanAll(true));
  reportCalls(state, fixture.desktop.calls());
}
BENCHMARK(BM_SnapshotScan);

// Every application served from its cache: no platform call at all.
void BM_CachedApplications(benchmark::State& state) {
  ScanFixture fixture;
  fixture.scanAll(false);
  fixture.desktop.calls().reset();
  for (auto _ : state) {
    size_t tasks = 0;
    for (const auto& app : fixture.apps) {
      tasks += fixture.model->cachedApplicationWindows(app.processIdentifier, false)->size();
    }
    benchmark::DoNotOptimize(tasks);
  }
  reportCalls(state, fixture.desktop.calls());
}
BENCHMARK(BM_CachedApplications);

}  // namespace
