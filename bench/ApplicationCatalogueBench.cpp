// The start menu's application catalogue: building it from the installed
// applications (one platform call, then sorting and folding every name), and
// one search over it as a user types, at best and at worst.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "model/AppModel.h"
#include "platform/sim/SimApplications.h"
#include "platform/sim/SimDesktop.h"
#include "startmenu/ApplicationSearch.h"

namespace {

// Names as installed applications have them: mixed case, a third of them
// beyond ASCII.
std::vector<tolv::InstalledApplication> installed(size_t count) {
  static const char* const kWords[] = {"Text",    "Mail",  "Términal",   "Photo",
                                       "Straße",  "Notes", "Calculator", "Preview",
                                       "Éditeur", "Music", "Maps"};
  std::vector<tolv::InstalledApplication> list;
  for (size_t i = 0; i < count; ++i) {
    std::string name =
        std::string(kWords[i % 11]) + " " + kWords[(i / 11) % 11] + " " + std::to_string(i);
    list.push_back({name, "org.example.app" + std::to_string(i),
                    "/usr/share/applications/app" + std::to_string(i) + ".desktop"});
  }
  return list;
}

void BM_BuildCatalogue(benchmark::State& state) {
  tolv::sim::SimDesktop desktop;
  for (const auto& application : installed(static_cast<size_t>(state.range(0))))
    desktop.applications().install({application, false});
  int64_t platformCalls = 0;
  for (auto _ : state) {
    // A new model asks the platform once and builds the catalogue.
    auto model = tolv::AppModel::make(desktop.platform());
    desktop.calls().reset();
    benchmark::DoNotOptimize(model->searchableApplications().size());
    platformCalls = desktop.calls().service("applications");
  }
  state.counters["platformCalls"] = static_cast<double>(platformCalls);
}
BENCHMARK(BM_BuildCatalogue)->Arg(1000)->Unit(benchmark::kMillisecond);

void searchCatalogue(benchmark::State& state, const char* query) {
  auto catalogue = tolv::makeCatalogue(installed(static_cast<size_t>(state.range(0))));
  size_t found = 0;
  for (auto _ : state) {
    found = tolv::searchApplications(catalogue, query).size();
    benchmark::DoNotOptimize(found);
  }
  state.counters["results"] = static_cast<double>(found);
}

// "te" matches in many names: the search stops at the 30th result.
void BM_SearchCatalogueManyMatches(benchmark::State& state) {
  searchCatalogue(state, "te");
}
BENCHMARK(BM_SearchCatalogueManyMatches)->Arg(1000)->Unit(benchmark::kMicrosecond);

// Nothing matches: every name is looked at.
void BM_SearchCatalogueNoMatch(benchmark::State& state) {
  searchCatalogue(state, "zzz");
}
BENCHMARK(BM_SearchCatalogueNoMatch)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace
