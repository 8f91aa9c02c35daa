// The small rows WORK_ZONE, SHORTCUT_KEY, COLOR, HISTORY, QUICK_MASK, SCREEN_MODE, TIP and REF_LINE.
// Not built yet: every row here answers 0 with an empty record.
#include "script/row_helpers.h"

namespace ostrel {

int ParseWorkZoneRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseShortcutKeyRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseColorRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseHistoryRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseQuickMaskRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseScreenModeRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseTipRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

int ParseRefLineRow(const Items&, tagVantoScript& script) {
  ClearScript(script);
  return 0;
}

}  // namespace ostrel
