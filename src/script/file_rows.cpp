// The rows FILE, DOC and TOP_MENU.
// Not built yet: every row here answers 0 with an empty record.
#include "script/row_helpers.h"

namespace ostrel {

int ParseFileRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseDocRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseTopMenuRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

}  // namespace ostrel
