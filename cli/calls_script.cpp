// Callable exports: script lines, the dispatcher and the direct row parsers.
#include "calls.h"
#include "ostrel/script.h"

namespace ostrel::cli {

using LineParser = int (*)(std::wstring, tagVantoScript&) noexcept;
using ItemsParser = int (*)(std::vector<std::wstring>, tagVantoScript&) noexcept;

const std::vector<CallEntry>& ScriptCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_ParseItem, "line", "items"),
      OSTREL_CALL(Ostrel_IsItem, "items", "index", "text"),
      OSTREL_CALL_AS(Ostrel_ParseScript, LineParser, "line", "script"),
      OSTREL_CALL_AS(Ostrel_ParseScript, ItemsParser, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptFile, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptTopMenu, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptTool, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptToolFeatures, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptLayer, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptLayerStyle, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptAdjustLayer, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptCanvas, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptCanvasMenu, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptCanvasSubmit, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptWokrZone, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptDoc, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptShortcutKey, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptColor, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptHistory, "items", "script"),
      OSTREL_CALL(Ostrel_ParseScriptQuickMask, "items", "script"),
  };
  return calls;
}

}  // namespace ostrel::cli
