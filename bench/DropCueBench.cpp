// What a drag costs each time the pointer moves over the bar: the drop targets
// of the drawn bar, the one under the pointer, and its cue.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "taskbar/DropTargets.h"
#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/OverflowGeometry.h"

namespace {

void BM_DropCue(benchmark::State& state) {
  const size_t count = static_cast<size_t>(state.range(0));
  std::vector<tolv::RunningAppItem> items(count);
  std::vector<tolv::TaskbarEntry> entries(count);
  for (size_t i = 0; i < count; ++i) {
    items[i].id = "ax:" + std::to_string(1000 + i % 40) + ":hash:" + std::to_string(i);
    items[i].name = "Report " + std::to_string(i);
    entries[i].id = items[i].id;
    entries[i].item = items[i];
  }
  tolv::FixedTextMeasurer measure;
  tolv::TaskRowLayoutInput rows;
  rows.location = "bottomL";
  rows.offeredWidth = 1440;
  rows.groupingMode = "never";
  rows.visibleTaskItems = items;
  rows.entries = [&entries](bool) { return entries; };
  tolv::TaskRowLayout layout = tolv::layoutTaskRows(rows, measure);

  tolv::TaskbarDrawingInput draw;
  draw.location = "bottomL";
  tolv::OverflowGeometryKey key{
      .overflowCount = tolv::overflowCardCount(layout.taskOverflowRowCount()),
      .tuck = 7,
      .overlap = 2,
      .autoHideOverflow = false,
      .rowsExpanded = true};
  draw.panelSize = {1440, tolv::computeOverflowGeometry(key).normalHeight};
  draw.layout = &layout;
  tolv::TaskbarDrawing drawing = tolv::drawTaskbar(draw);

  tolv::DropTargetsInput input;
  input.layout = &layout;
  input.drawing = &drawing;
  input.location = "bottomL";
  input.dragging = true;
  // Over the farthest card's first tab: every target before it is tried.
  const tolv::Rect& far = drawing.tabs.front().frame;
  tolv::Point pointer{far.x + far.width / 2, far.y + far.height / 2};

  size_t targets = 0;
  for (auto _ : state) {
    auto all = tolv::dropTargets(input);
    const tolv::DropTarget* target = tolv::dropTargetAt(all, pointer);
    auto cue = target ? tolv::dropCueAt(*target, pointer) : std::nullopt;
    targets = all.size();
    benchmark::DoNotOptimize(cue);
  }
  state.counters["targets"] = static_cast<double>(targets);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_DropCue)->Arg(50)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond)->Complexity();

}  // namespace
