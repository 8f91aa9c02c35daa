// The row TOOL: choosing a tool from the tool bar.
#include "script/checked_parse.h"
#include "script/row_helpers.h"
#include "vocabulary/tool_table.h"

namespace ostrel {

// TOOL,<EnToolIndex>. An index that the table doesn't know gives an empty name, and the row still succeeds.
int ParseToolRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  std::wstring name = NamedByLookup(ToolNameCN(ItemInt(items, 1)));
  std::wstring detail = Format(L"选择工具：%s", name);
  return SetScript(script, std::move(name), std::move(detail));
}

}  // namespace ostrel
