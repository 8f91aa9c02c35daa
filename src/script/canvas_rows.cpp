// The rows CANVAS, CANVAS_MENU and CANVAS_SUBMIT.
// Not built yet: every row here answers 0 with an empty record.
#include "script/row_helpers.h"

namespace ostrel {

int ParseCanvasRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseCanvasMenuRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseCanvasSubmitRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

}  // namespace ostrel
