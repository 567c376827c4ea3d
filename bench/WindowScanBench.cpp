// The cost of scanning a busy desktop: 20 applications with 10 windows each.

#include <benchmark/benchmark.h>

#include <set>

#include "model/AppModel.h"
#include "platform/sim/SimDesktop.h"

namespace {

using tolv::sim::AppSpec;
using tolv::sim::SimDesktop;
using tolv::sim::WindowSpec;

std::vector<AppSpec> busyDesktop() {
  std::vector<AppSpec> apps;
  for (int a = 0; a < 20; ++a) {
    AppSpec app;
    app.pid = 1000 + a;
    app.name = "App " + std::to_string(a);
    app.bundleIdentifier = "com.example.app" + std::to_string(a);
    app.active = a == 0;
    for (int w = 0; w < 10; ++w) {
      WindowSpec window;
      window.title = "Window " + std::to_string(w);
      app.windows.push_back(window);
    }
    apps.push_back(app);
  }
  return apps;
}

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
      tasks += model->scanApplicationWindows(app, false, allowCachedSnapshot).size();
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
