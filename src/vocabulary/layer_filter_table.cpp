// The filter table: the filters a smart filter can be, by number and Chinese name, with its exported lookups.
#include "vocabulary/layer_filter_table.h"

#include "vocabulary/built_table.h"

#include <iterator>

#include "ostrel/filters.h"

namespace ostrel {
namespace {

constexpr LayerFilterRow kLayerFilterRows[] = {
#define OSTREL_LAYER_FILTER(number, name) {number, name},
#include "vocabulary/layer_filters.def"
};

// No row is linked to its top menu command; the field is kept for the callers that read it.
constexpr int kNoTopMenu = -1;

// Module-wide, built by Ostrel_Init; empty until then, so lookups before it find nothing.
BuiltTable<LayerFilterInfo>& TheLayerFilterTable() noexcept {
  static BuiltTable<LayerFilterInfo> table;
  return table;
}

const LayerFilterInfo* FindFilter(int filter) noexcept {
  for (const LayerFilterInfo& row : LayerFilterTable()) {
    if (row.nFilter == filter) return &row;
  }
  return nullptr;
}

}  // namespace

std::span<const LayerFilterRow> LayerFilterRows() noexcept { return kLayerFilterRows; }

void BuildLayerFilterTable() {
  TheLayerFilterTable().Build([] {
    std::vector<LayerFilterInfo> rows;
    rows.reserve(std::size(kLayerFilterRows));
    for (const LayerFilterRow& row : kLayerFilterRows) rows.push_back({std::wstring(row.strName), row.nFilter, kNoTopMenu});
    return rows;
  });
}

std::span<const LayerFilterInfo> LayerFilterTable() noexcept { return TheLayerFilterTable().Rows(); }

std::wstring LayerFilterName(int filter) {
  const LayerFilterInfo* row = FindFilter(filter);
  return row ? row->strName : std::wstring();
}

int LayerFilterFromName(std::wstring_view name) noexcept {
  for (const LayerFilterInfo& row : LayerFilterTable()) {
    if (row.strName == name) return row.nFilter;
  }
  return -1;
}

int LayerFilterTopMenu(int filter) noexcept {
  const LayerFilterInfo* row = FindFilter(filter);
  return row ? row->nTopMenu : -1;
}

}  // namespace ostrel
