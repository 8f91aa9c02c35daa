// Callable exports: the top menu table.
#include "calls.h"
#include "ostrel/menus.h"

namespace ostrel::cli {

const std::vector<CallEntry>& MenuCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_TopMenuIndexToName, "nIndex", "info"),
      OSTREL_CALL(Ostrel_TopMenuToHistoryName, "nIndex"),
  };
  return calls;
}

}  // namespace ostrel::cli
