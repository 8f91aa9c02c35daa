// The rows LAYER_STYLE and ADJUST_LAYER.
#include "script/checked_parse.h"
#include "script/row_helpers.h"
#include "vocabulary/layer_vocabulary.h"

namespace ostrel {

// LAYER_STYLE: one fixed step. It looks at no item and can't fail, not even on an empty vector.
int ParseLayerStyleRow(const Items&, tagVantoScript& script) { return SetScript(script, L"图层样式", L"图层样式"); }

// ADJUST_LAYER,<EnAdjustLayer>. An unknown code gives an empty name, and the row still succeeds.
int ParseAdjustLayerRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  std::wstring name = NamedByLookup(AdjustLayerName(ItemInt(items, 1)));
  std::wstring detail = Format(L"设置调整图层 - %s", name);
  return SetScript(script, std::move(name), std::move(detail));
}

}  // namespace ostrel
