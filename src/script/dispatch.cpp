// The dispatcher: the keyword of item 0 picks one row parser, tested in a fixed order.
#include <iterator>
#include <string_view>

#include "script/row_helpers.h"
#include "script/rows.h"

namespace ostrel {
namespace {

struct KeywordRow {
  std::wstring_view keyword;  // a view, so that a comparison with another length ends at the lengths
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

bool IsScriptKeyword(std::wstring_view word) noexcept {
  for (const KeywordRow& row : kKeywords) {
    if (word == row.keyword) return true;
  }
  return false;
}

int DispatchLine(std::wstring_view line, tagVantoScript& script) { return DispatchScript(SplitLine(line), script); }

int FailedParse(tagVantoScript& script) noexcept {
  script.strTitle.clear();
  script.strDetail.clear();
  return 0;
}

}  // namespace ostrel
