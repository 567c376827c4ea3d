// The bar's full row layout on one screen with the fixed text measure: the
// grouping decision, every tab's width, the primary-row fit and the overflow cards.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "taskbar/FixedTextMeasurer.h"
#include "taskbar/TaskRowLayout.h"

namespace {

// Counts the strings measured, so that a pass's cost shows beside its time.
class CountingMeasurer : public tolv::TextMeasurer {
 public:
  double width(std::string_view text, double fontSize) override {
    ++measured;
    return fixed.width(text, fontSize);
  }
  tolv::FixedTextMeasurer fixed;
  int64_t measured = 0;
};

std::vector<tolv::RunningAppItem> windows(size_t count) {
  std::vector<tolv::RunningAppItem> items(count);
  for (size_t i = 0; i < count; ++i) {
    auto& item = items[i];
    item.id = "ax:" + std::to_string(1000 + i % 40) + ":hash:" + std::to_string(i);
    item.processIdentifier = static_cast<tolv::Pid>(1000 + i % 40);
    // Every other title needs the Unicode break rules (an em dash), as real titles do.
    item.name = i % 2 ? "Report " + std::to_string(i) + " \xE2\x80\x94 Notes"
                      : "Inbox (" + std::to_string(i % 97) + " unread)";
    item.appName = "App " + std::to_string(i % 40);
  }
  return items;
}

void BM_RowLayout(benchmark::State& state) {
  auto items = windows(static_cast<size_t>(state.range(0)));
  std::vector<tolv::TaskbarEntry> entries(items.size());
  for (size_t i = 0; i < items.size(); ++i) {
    entries[i].id = items[i].id;
    entries[i].item = items[i];
  }
  CountingMeasurer measure;
  tolv::TaskRowLayoutInput input;
  input.location = "bottomL";
  input.offeredWidth = 1440;
  input.groupingMode = "asNeeded";
  input.visibleTaskItems = items;
  input.entries = [&entries](bool) { return entries; };

  size_t rows = 0;
  for (auto _ : state) {
    auto layout = tolv::layoutTaskRows(input, measure);
    rows = layout.rows.size();
    benchmark::DoNotOptimize(layout);
  }
  double passes = static_cast<double>(state.iterations());
  state.counters["measured_per_pass"] = static_cast<double>(measure.measured) / passes;
  state.counters["overflow_rows"] = static_cast<double>(rows);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_RowLayout)->Arg(50)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond)->Complexity();

}  // namespace
