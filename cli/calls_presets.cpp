// Callable exports: the classes of the default presets.
#include "calls.h"
#include "ostrel/presets.h"

namespace ostrel::cli {

const std::vector<CallEntry>& PresetCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_GetBrushPresetClass, "strName"),
      OSTREL_CALL(Ostrel_GetColorPresetClass, "strName"),
      OSTREL_CALL(Ostrel_GetGradientPresetClass, "strName"),
      OSTREL_CALL(Ostrel_GetPatternPresetClass, "strName"),
      OSTREL_CALL(Ostrel_GetShapePresetClass, "strName"),
  };
  return calls;
}

}  // namespace ostrel::cli
