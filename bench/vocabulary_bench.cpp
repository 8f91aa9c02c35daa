// The tables that Ostrel_Init builds, and the lookups that run in loops: the filter gallery's window test asks
// the name of every number from 0 to 999 at each call.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "ostrel/OstrelCore.h"
#include "vocabulary/built_table.h"
#include "vocabulary/layer_filter_table.h"
#include "vocabulary/tool_table.h"
#include "vocabulary/top_menu_table.h"

namespace {

// The work of Ostrel_Init's three builds, in its order, into fresh tables each time (the real ones are built once
// for the life of the process): every row's texts copied into the rows the lookups search. The tool table's
// constant rows are private to its source, so its rows are copied from the built table, the same texts.
void BM_InitTableBuilding(benchmark::State& state) {
  Ostrel_Init();
  const auto tools = ostrel::ToolTable();
  for (auto _ : state) {
    ostrel::BuiltTable<ostrel::tagToolInfo> toolTable;
    toolTable.Build([&] {
      std::vector<ostrel::tagToolInfo> rows;
      rows.reserve(tools.size());
      for (const auto& row : tools) rows.push_back({row.nIndex, row.strNameEN, row.strNameCN});
      return rows;
    });
    ostrel::BuiltTable<tagTopMenuInfo> topMenuTable;
    topMenuTable.Build([] {
      std::vector<tagTopMenuInfo> rows;
      rows.reserve(ostrel::TopMenuRows().size());
      for (const auto& row : ostrel::TopMenuRows()) {
        rows.push_back({EnTopMenuIndex{row.nIndex}, std::wstring(row.strMenu1), std::wstring(row.strMenu2),
                        std::wstring(row.strMenu3)});
      }
      return rows;
    });
    ostrel::BuiltTable<ostrel::LayerFilterInfo> filterTable;
    filterTable.Build([] {
      std::vector<ostrel::LayerFilterInfo> rows;
      rows.reserve(ostrel::LayerFilterRows().size());
      for (const auto& row : ostrel::LayerFilterRows()) rows.push_back({std::wstring(row.strName), row.nFilter, -1});
      return rows;
    });
    benchmark::DoNotOptimize(toolTable.Rows().data());
    benchmark::DoNotOptimize(topMenuTable.Rows().data());
    benchmark::DoNotOptimize(filterTable.Rows().data());
  }
  state.SetLabel(std::to_string(tools.size() + ostrel::TopMenuRows().size() + ostrel::LayerFilterRows().size()) + " rows");
}
BENCHMARK(BM_InitTableBuilding);

// The lookup of the filter gallery's window test: the name of every number from 0 to 999, as
// Ostrel_GetFilterGallery asks them.
void BM_FilterGalleryThousandNames(benchmark::State& state) {
  Ostrel_Init();
  for (auto _ : state) {
    size_t found = 0;
    for (int number = 0; number < 1000; ++number) found += Ostrel_FilterGalleryToName(EnFilterGallery{number}).empty() ? 0 : 1;
    benchmark::DoNotOptimize(found);
  }
}
BENCHMARK(BM_FilterGalleryThousandNames);

}  // namespace
