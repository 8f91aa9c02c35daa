// Module lifecycle: Ostrel_Init builds the vocabulary tables and connects; Ostrel_UnInit lets go of Photoshop.
#include "ostrel/lifecycle.h"

#include "frame/guard.h"
#include "vocabulary/layer_filter_table.h"
#include "vocabulary/tool_table.h"
#include "vocabulary/top_menu_table.h"

namespace ostrel {

// Builds the three tables that need building, in the order tool, top menu, filter. Each builder empties its
// table first, so calling this again gives the same tables.
void BuildTables() {
  BuildToolTable();
  BuildTopMenuTable();
  BuildLayerFilterTable();
}

}  // namespace ostrel

OSTREL_API int Ostrel_Init() noexcept {
  return ostrel::Guarded(0, [] {
    ostrel::BuildTables();
    return 0;  // no connection to Photoshop yet: the library works for scripts and vocabulary alone
  });
}

OSTREL_API void Ostrel_UnInit() noexcept {
  // Nothing is connected, so there is nothing to let go of; the tables stay.
}
