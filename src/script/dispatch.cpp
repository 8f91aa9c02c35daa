// The dispatcher: the keyword of item 0 picks one row parser, tested in a fixed order.
#include <iterator>

#include "frame/guard.h"
#include "script/row_helpers.h"
#include "script/rows.h"

namespace ostrel {
namespace {

struct KeywordRow {
  const wchar_t* keyword;
  RowParser parse;
};

// The keywords in the order of the dispatcher's tests. The fewest items of each row are checked by the row.
constexpr KeywordRow kKeywords[] = {
    {L"FILE", ParseFileRow},
    {L"TOP_MENU", ParseTopMenuRow},
    {L"TOOL", ParseToolRow},
    {L"TF", ParseToolFeaturesRow},
    {L"LAYER", ParseLayerRow},
    {L"LAYER_STYLE", ParseLayerStyleRow},
    {L"ADJUST_LAYER", ParseAdjustLayerRow},
    {L"CANVAS", ParseCanvasRow},
    {L"CANVAS_MENU", ParseCanvasMenuRow},
    {L"CANVAS_SUBMIT", ParseCanvasSubmitRow},
    {L"WORK_ZONE", ParseWorkZoneRow},
    {L"DOC", ParseDocRow},
    {L"SHORTCUT_KEY", ParseShortcutKeyRow},
    {L"COLOR", ParseColorRow},
    {L"HISTORY", ParseHistoryRow},
    {L"QUICK_MASK", ParseQuickMaskRow},
    {L"SCREEN_MODE", ParseScreenModeRow},
    {L"TIP", ParseTipRow},
    {L"REF_LINE", ParseRefLineRow},
    {L"VERBOSE", ParseVerboseRow},
};

}  // namespace

int DispatchScript(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (items.empty()) return 0;
  for (const KeywordRow& row : kKeywords) {
    if (items[0] == row.keyword) return row.parse(items, script);
  }
  return 0;
}

// Runs a row and turns a failure inside it (allocation, in practice) into the result 0 with an empty record.
bool IsScriptKeyword(std::wstring_view word) noexcept {
  for (const KeywordRow& row : kKeywords) {
    if (word == row.keyword) return true;
  }
  return false;
}

int RunRowGuarded(RowParser parse, const Items& items, tagVantoScript& script) noexcept {
  try {
    return parse(items, script);
  } catch (...) {
    script.strTitle.clear();
    script.strDetail.clear();
    return 0;
  }
}

}  // namespace ostrel

using ostrel::RunRowGuarded;

OSTREL_API int Ostrel_ParseScript(std::wstring strLine, tagVantoScript& script) noexcept {
  return RunRowGuarded(
      [](const ostrel::Items& line, tagVantoScript& s) { return ostrel::DispatchScript(line, s); },
      ostrel::Guarded(ostrel::Items(), [&] { return ostrel::SplitLine(strLine); }), script);
}

OSTREL_API int Ostrel_ParseScript(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::DispatchScript, vecItems, script);
}

// The direct row functions: each runs one row parser, whatever item 0 holds.
OSTREL_API int Ostrel_ParseScriptFile(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseFileRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptTopMenu(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseTopMenuRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptTool(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseToolRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptToolFeatures(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseToolFeaturesRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptLayer(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseLayerRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptLayerStyle(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseLayerStyleRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptAdjustLayer(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseAdjustLayerRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptCanvas(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseCanvasRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptCanvasMenu(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseCanvasMenuRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptCanvasSubmit(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseCanvasSubmitRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptWokrZone(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseWorkZoneRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptDoc(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseDocRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptShortcutKey(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseShortcutKeyRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptColor(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseColorRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptHistory(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseHistoryRow, vecItems, script);
}
OSTREL_API int Ostrel_ParseScriptQuickMask(std::vector<std::wstring> vecItems, tagVantoScript& script) noexcept {
  return RunRowGuarded(ostrel::ParseQuickMaskRow, vecItems, script);
}
