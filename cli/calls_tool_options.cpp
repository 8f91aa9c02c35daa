// Callable exports: the tool option catalogue and the words of options, values, gradients and patterns.
#include "calls.h"
#include "ostrel/tool_options.h"

namespace ostrel::cli {

const std::vector<CallEntry>& ToolOptionCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_ToolFeaturesIDToToolIndex, "id"),
      OSTREL_CALL(Ostrel_GetToolFeaturesType, "id"),
      OSTREL_CALL(Ostrel_ToolFeaturesToStringID, "id"),
      OSTREL_CALL(Ostrel_GetToolFeaturesValueUnits, "id"),
      OSTREL_CALL(Ostrel_SetToolFeatures, "id", "value"),
      OSTREL_CALL(Ostrel_ToolFeaturesToName, "id", "value"),
      OSTREL_CALL(Ostrel_ToolFeaturesValueToName, "id", "value"),
      OSTREL_CALL(Ostrel_TransfPatternName, "name"),
      OSTREL_CALL(Ostrel_TransfGradualName, "name"),
  };
  return calls;
}

}  // namespace ostrel::cli
