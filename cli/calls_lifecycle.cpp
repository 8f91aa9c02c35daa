// Callable exports: module lifecycle.
#include "calls.h"
#include "ostrel/lifecycle.h"

namespace ostrel::cli {

const std::vector<CallEntry>& LifecycleCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_Init),
      OSTREL_CALL(Ostrel_UnInit),
      OSTREL_CALL(Ostrel_IsServiceIdle),
  };
  return calls;
}

}  // namespace ostrel::cli
