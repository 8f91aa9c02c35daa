// The tool table: Photoshop's tools by number, tool id and Chinese name, and the six exported conversions.
#include "vocabulary/tool_table.h"

#include "vocabulary/built_table.h"

#include <string_view>


namespace ostrel {
namespace {

struct ToolRow {
  int index;
  const wchar_t* nameCN;
  const wchar_t* nameEN;
};

constexpr ToolRow kToolRows[] = {
#define OSTREL_TOOL(index, nameCN, nameEN) {index, nameCN, nameEN},
#include "vocabulary/tools.def"
};

// Module-wide, built by Ostrel_Init; empty until then, so lookups before it find nothing.
BuiltTable<tagToolInfo>& TheToolTable() noexcept {
  static BuiltTable<tagToolInfo> table;
  return table;
}

// The first row whose field (picked by member) matches, or nullptr.
template <class Pred>
const tagToolInfo* FindTool(Pred matches) noexcept {
  for (const tagToolInfo& row : ToolTable()) {
    if (matches(row)) return &row;
  }
  return nullptr;
}

}  // namespace

void BuildToolTable() {
  TheToolTable().Build([] {
    std::vector<tagToolInfo> rows;
    rows.reserve(std::size(kToolRows));
    for (const ToolRow& row : kToolRows) rows.push_back({row.index, row.nameEN, row.nameCN});
    return rows;
  });
}

std::span<const tagToolInfo> ToolTable() noexcept { return TheToolTable().Rows(); }

int ToolIndexFromNameCN(std::wstring_view nameCN) noexcept {
  const tagToolInfo* row = FindTool([&](const tagToolInfo& r) { return r.strNameCN == nameCN; });
  return row ? row->nIndex : -1;
}

int ToolIndexFromNameEN(std::wstring_view nameEN) noexcept {
  const tagToolInfo* row = FindTool([&](const tagToolInfo& r) { return r.strNameEN == nameEN; });
  return row ? row->nIndex : -1;
}

std::wstring ToolNameCN(int index) {
  const tagToolInfo* row = FindTool([&](const tagToolInfo& r) { return r.nIndex == index; });
  return row ? row->strNameCN : std::wstring();
}

std::wstring ToolNameEN(int index) {
  const tagToolInfo* row = FindTool([&](const tagToolInfo& r) { return r.nIndex == index; });
  return row ? row->strNameEN : std::wstring();
}

std::wstring ToolNameCNFromEN(std::wstring_view nameEN) {
  const tagToolInfo* row = FindTool([&](const tagToolInfo& r) { return r.strNameEN == nameEN; });
  return row ? row->strNameCN : std::wstring();
}

std::wstring ToolNameENFromCN(std::wstring_view nameCN) {
  const tagToolInfo* row = FindTool([&](const tagToolInfo& r) { return r.strNameCN == nameCN; });
  return row ? row->strNameEN : std::wstring();
}

}  // namespace ostrel
