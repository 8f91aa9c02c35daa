// Callable exports: the tool table's conversions.
#include "calls.h"
#include "ostrel/tools.h"

namespace ostrel::cli {

const std::vector<CallEntry>& ToolCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_ToolNameCNToIndex, "strNameCN"),
      OSTREL_CALL(Ostrel_ToolNameENToIndex, "strNameEN"),
      OSTREL_CALL(Ostrel_ToolIndexToNameCN, "nIndex"),
      OSTREL_CALL(Ostrel_ToolIndexToNameEN, "nIndex"),
      OSTREL_CALL(Ostrel_ToolNameENToNameCN, "strNameEN"),
      OSTREL_CALL(Ostrel_ToolNameCNToNameEN, "strNameCN"),
  };
  return calls;
}

}  // namespace ostrel::cli
