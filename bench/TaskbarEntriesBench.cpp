// The cost of one layout pass of the bar: 200 windows of 20 applications,
// two custom groups, a few windows taken out of their groups, and a stored
// order with stale ids and leftovers.

#include <benchmark/benchmark.h>

#include "model/AppModel.h"
#include "model/TaskIdentifiers.h"
#include "platform/sim/SimDesktop.h"

namespace {

using tolv::RunningAppItem;
using tolv::sim::SimDesktop;

struct LayoutFixture {
  SimDesktop desktop;
  std::shared_ptr<tolv::AppModel> model = tolv::AppModel::make(desktop.platform());

  LayoutFixture() {
    std::vector<RunningAppItem> items;
    for (int a = 0; a < 20; ++a) {
      for (int w = 0; w < 10; ++w) {
        RunningAppItem item;
        item.processIdentifier = 1000 + a;
        item.id = tolv::axTaskID(item.processIdentifier, tolv::hashWindowKey(a * 100 + w));
        item.windowIndex = w;
        item.appName = "App " + std::to_string(a);
        item.name = "Window " + std::to_string(w);
        items.push_back(item);
      }
    }
    auto& settings = model->settings;
    // Stored in reverse, with a stale id and a leftover copy every tenth.
    for (size_t i = items.size(); i-- > 0;) {
      settings.taskOrder.push_back(items[i].id);
      if (i % 10 == 0) settings.taskOrder.push_back("ax:1:hash:" + std::to_string(i));
      if (i % 10 == 5) settings.taskOrder.push_back(items[i / 2].id);
    }
    for (int i = 0; i < 6; ++i) {
      settings.customGroupMembers[items[i * 33].id] = i % 2 ? "GROUP-A" : "GROUP-B";
    }
    settings.forcedUngroupedWindows = {items[3].id, items[47].id, items[111].id};
    model->runningApps = items;
  }
};

void reportCalls(benchmark::State& state, const tolv::sim::CallCounter& calls, size_t entries) {
  state.counters["platform_calls_per_pass"] =
      static_cast<double>(calls.service("accessibility") + calls.service("workspace") +
                          calls.service("windowServer")) /
      static_cast<double>(state.iterations());
  state.counters["entries"] = static_cast<double>(entries);
}

// Every application grouped: 20 automatic groups, two custom groups, singles.
void BM_DisplayedEntriesGrouped(benchmark::State& state) {
  LayoutFixture fixture;
  fixture.desktop.calls().reset();
  size_t entries = 0;
  for (auto _ : state) {
    auto list = fixture.model->displayedTaskbarEntries(true);
    entries = list.size();
    benchmark::DoNotOptimize(list);
  }
  reportCalls(state, fixture.desktop.calls(), entries);
}
BENCHMARK(BM_DisplayedEntriesGrouped);

// Nothing grouped but the custom groups: about 200 entries to sort.
void BM_DisplayedEntriesUngrouped(benchmark::State& state) {
  LayoutFixture fixture;
  fixture.model->settings.groupingMode = "never";
  fixture.desktop.calls().reset();
  size_t entries = 0;
  for (auto _ : state) {
    auto list = fixture.model->displayedTaskbarEntries(false);
    entries = list.size();
    benchmark::DoNotOptimize(list);
  }
  reportCalls(state, fixture.desktop.calls(), entries);
}
BENCHMARK(BM_DisplayedEntriesUngrouped);

}  // namespace
