// Callable exports: the colour swatch names.
#include "calls.h"
#include "ostrel/swatches.h"

namespace ostrel::cli {

const std::vector<CallEntry>& SwatchCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_PureColorToName, "nColor"),
      OSTREL_CALL(Ostrel_PureColorNameToColor, "strName"),
  };
  return calls;
}

}  // namespace ostrel::cli
