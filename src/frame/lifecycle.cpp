// Module lifecycle: Ostrel_Init builds the vocabulary tables and connects; Ostrel_UnInit lets go of Photoshop.
#include "ostrel/lifecycle.h"

#include "frame/connection.h"
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
    ostrel::BuildTables();  // whether or not Photoshop can be reached
    return ostrel::ConnectPhotoshop();
  });
}

OSTREL_API void Ostrel_UnInit() noexcept {
  ostrel::ReleasePhotoshop();  // the tables, the ProgID strings and the thread's COM state stay
}
