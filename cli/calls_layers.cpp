// Callable exports: the layer vocabulary.
#include "calls.h"
#include "ostrel/layers.h"

namespace ostrel::cli {

const std::vector<CallEntry>& LayerCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_LayerBlendToName, "nBlend"),
      OSTREL_CALL(LayerMaskToName, "nMask"),
      OSTREL_CALL(Ostrel_LayerMenuIndexToName, "nIndex"),
      OSTREL_CALL(Ostrel_LayerStyleIndexToName, "nStyle"),
      OSTREL_CALL(Ostrel_LayerStyleMenuIndexToName, "nStyle"),
      OSTREL_CALL(Ostrel_AdjustLayerIndexToName, "nAdjust"),
      OSTREL_CALL(Ostrel_LayerAdjustMenuIndexToName, "nAdjust"),
      OSTREL_CALL(Ostrel_AdjustLayerCmbValueName, "nAdjust", "nValue"),
  };
  return calls;
}

}  // namespace ostrel::cli
