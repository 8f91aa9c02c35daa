// The row LAYER.
// Not built yet: every row here answers 0 with an empty record.
#include "script/row_helpers.h"

namespace ostrel {

int ParseLayerRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

}  // namespace ostrel
