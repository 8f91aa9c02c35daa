// The row parsers behind the dispatcher, one per keyword. Each takes the items of a line (item 0 is the
// keyword, which the parser never looks at) and fills the record; 1 if the line was understood, else 0.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ostrel/script.h"

namespace ostrel {

using Items = std::vector<std::wstring>;
using RowParser = int (*)(const Items& items, tagVantoScript& script);

int ParseFileRow(const Items& items, tagVantoScript& script);
int ParseTopMenuRow(const Items& items, tagVantoScript& script);
int ParseToolRow(const Items& items, tagVantoScript& script);
int ParseToolFeaturesRow(const Items& items, tagVantoScript& script);
int ParseLayerRow(const Items& items, tagVantoScript& script);
int ParseLayerStyleRow(const Items& items, tagVantoScript& script);
int ParseAdjustLayerRow(const Items& items, tagVantoScript& script);
int ParseCanvasRow(const Items& items, tagVantoScript& script);
int ParseCanvasMenuRow(const Items& items, tagVantoScript& script);
int ParseCanvasSubmitRow(const Items& items, tagVantoScript& script);
int ParseWorkZoneRow(const Items& items, tagVantoScript& script);
int ParseDocRow(const Items& items, tagVantoScript& script);
int ParseShortcutKeyRow(const Items& items, tagVantoScript& script);
int ParseColorRow(const Items& items, tagVantoScript& script);
int ParseHistoryRow(const Items& items, tagVantoScript& script);
int ParseQuickMaskRow(const Items& items, tagVantoScript& script);

// Rows that only the dispatcher answers; they have no direct export.
int ParseScreenModeRow(const Items& items, tagVantoScript& script);
int ParseTipRow(const Items& items, tagVantoScript& script);
int ParseRefLineRow(const Items& items, tagVantoScript& script);
int ParseVerboseRow(const Items& items, tagVantoScript& script);

// Splits a line at every comma, empty fields included; an empty line gives no items.
Items SplitLine(std::wstring_view line);

// The export's split: items emptied first, then filled with the items of the line.
void SplitLineInto(std::wstring_view line, Items& items);

// 1 if the item at index exists and equals text exactly, else 0.
int IsItemAt(const Items& items, int index, std::wstring_view text) noexcept;

// True if the word is a keyword of the dispatcher, exactly (whole and with regard to case).
bool IsScriptKeyword(std::wstring_view word) noexcept;

// The dispatcher over items: empties the record, finds the keyword and runs its row.
int DispatchScript(const Items& items, tagVantoScript& script);

// The dispatcher over a whole line.
int DispatchLine(std::wstring_view line, tagVantoScript& script);

// What a parse that failed inside a row gives: result 0 and an empty record.
int FailedParse(tagVantoScript& script) noexcept;

}  // namespace ostrel
