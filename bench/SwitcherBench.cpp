// The switcher on a desktop of 100 windows (10 applications with 10 each):
// from the hot key to everything the first frame needs (the synchronous
// refresh, the groups, the rows, the card's layout and the tiles it shows
// announced), and one step of the selection. Each reports the captures it
// started and the platform calls it made.

#include <benchmark/benchmark.h>

#include "model/AppModel.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimHotKeys.h"
#include "switcher/LumoSwitcherController.h"
#include "switcher/OverlayLayout.h"

namespace {

using tolv::LumoSwitcherController;

// An overlay that lays the card out as the toolkit's view does when shown.
class LayingOutOverlay : public tolv::SwitcherOverlay {
 public:
  void showCovering(const tolv::Rect& frame) override {
    visible = true;
    size = {frame.width, frame.height};
  }
  void hide() override { visible = false; }
  bool isVisible() const override { return visible; }
  void bringToFront() override {}
  void stateChanged() override {}

  bool visible = false;
  tolv::Size size;
};

struct SwitcherDesktop {
  tolv::sim::SimDesktop desktop;
  std::shared_ptr<tolv::AppModel> model;
  LayingOutOverlay* overlay = nullptr;
  std::unique_ptr<LumoSwitcherController> switcher;

  SwitcherDesktop() {
    std::vector<tolv::sim::AppSetup> apps;
    for (int a = 0; a < 10; ++a) {
      tolv::sim::AppSetup app;
      app.pid = 1000 + a;
      app.name = "App " + std::to_string(a);
      app.bundleIdentifier = "com.example.app" + std::to_string(a);
      app.active = a == 0;
      for (int w = 0; w < 10; ++w) {
        tolv::sim::WindowSetup window;
        window.title = "Window " + std::to_string(w);
        app.windows.push_back(window);
      }
      apps.push_back(app);
    }
    desktop.populate(apps);
    model = tolv::AppModel::make(desktop.platform());
    model->start();
    desktop.runLoop().advance(3.0);
    auto owned = std::make_unique<LayingOutOverlay>();
    overlay = owned.get();
    switcher = std::make_unique<LumoSwitcherController>(*model, std::move(owned));
    switcher->start();
    desktop.hotKeys().holdModifiers(tolv::key_modifier::Control);
  }

  // What the view does for a frame: lay the card out and announce its tiles.
  size_t firstFrame() {
    auto layout = tolv::layoutOverlay(switcher->state(), overlay->size);
    size_t tiles = 0;
    for (const auto& row : layout.rows) {
      if (row.kind == tolv::OverlayRow::Kind::Tile && row.item) {
        switcher->setTileVisible(*row.item, true);
        ++tiles;
      }
    }
    return tiles;
  }
};

benchmark::Counter perIteration(int64_t count) {
  return benchmark::Counter(static_cast<double>(count), benchmark::Counter::kAvgIterations);
}

void BM_SwitcherOpenToFirstFrame100Windows(benchmark::State& state) {
  SwitcherDesktop bench;
  auto& calls = bench.desktop.calls();
  int64_t tiles = 0;
  calls.reset();
  for (auto _ : state) {
    bench.switcher->open(false);
    tiles += static_cast<int64_t>(bench.firstFrame());
    state.PauseTiming();
    bench.desktop.runLoop().advance(0.01);  // the window list arrives, captures start
    bench.switcher->close();
    state.ResumeTiming();
  }
  state.counters["tiles_shown"] = perIteration(tiles);
  state.counters["captures_started"] = perIteration(calls["screenCapture.captureWindow"]);
  state.counters["content_fetches"] = perIteration(calls["screenCapture.fetchShareableContent"]);
  state.counters["accessibility_calls"] = perIteration(calls.service("accessibility"));
}
BENCHMARK(BM_SwitcherOpenToFirstFrame100Windows)->Unit(benchmark::kMillisecond);

void BM_SwitcherOneStep(benchmark::State& state) {
  SwitcherDesktop bench;
  bench.switcher->open(false);
  bench.firstFrame();
  bench.desktop.runLoop().advance(1.0);  // the first captures are in
  auto& calls = bench.desktop.calls();
  calls.reset();
  for (auto _ : state) {
    bench.switcher->moveSelection(false);
    bench.firstFrame();
  }
  state.counters["captures_started"] = perIteration(calls["screenCapture.captureWindow"]);
  int64_t total = 0;
  for (const auto& [name, count] : calls.all())
    total += count;
  state.counters["platform_calls"] = perIteration(total);
}
BENCHMARK(BM_SwitcherOneStep)->Unit(benchmark::kMicrosecond);

}  // namespace
