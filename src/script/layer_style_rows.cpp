// The rows LAYER_STYLE and ADJUST_LAYER.
// Not built yet: every row here answers 0 with an empty record.
#include "script/row_helpers.h"

namespace ostrel {

int ParseLayerStyleRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseAdjustLayerRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

}  // namespace ostrel
