// The small rows WORK_ZONE, SHORTCUT_KEY, COLOR, HISTORY, QUICK_MASK, SCREEN_MODE, TIP and REF_LINE.
#include "script/small_rows.h"

#include "script/checked_parse.h"
#include "script/row_helpers.h"

namespace ostrel {
namespace {

constexpr ShortcutKey kShortcutKeys[] = {
#define OSTREL_SHORTCUT_KEY(code, name) {code, name},
#include "script/shortcut_keys.def"
};

// The rows whose sub-commands are fixed title and sentence pairs.
enum class SmallRow { Color, History, QuickMask, ScreenMode, Tip };

struct SmallStep {
  SmallRow row;
  int code;
  const wchar_t* title;
  const wchar_t* detail;
};

constexpr SmallStep kSmallSteps[] = {
#define OSTREL_SMALL_ROW(row, code, title, detail) {SmallRow::row, code, title, detail},
#include "script/small_rows.def"
};

// The sentences of one guide line direction, by the action in item 2.
struct RefLineSentences {
  int direction;
  const wchar_t* remove;  // action "0"
  const wchar_t* add;     // action "1"
  const wchar_t* other;   // any other action text
};

constexpr RefLineSentences kRefLines[] = {
#define OSTREL_REF_LINE_ROW(direction, remove, add, other) {direction, remove, add, other},
#include "script/small_rows.def"
};

// <keyword>,<code>: the title and sentence of the code's row, or 0 for a code that the row doesn't have.
int ParseSmallStep(SmallRow row, const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  const int code = ItemInt(items, 1);
  for (const SmallStep& step : kSmallSteps) {
    if (step.row == row && step.code == code) return SetScript(script, step.title, step.detail);
  }
  return 0;
}

}  // namespace

std::span<const ShortcutKey> ShortcutKeys() noexcept { return kShortcutKeys; }

std::wstring ShortcutKeyName(int code) {
  for (const ShortcutKey& key : kShortcutKeys) {
    if (key.nCode == code) return key.strName;
  }
  return std::wstring();
}

// WORK_ZONE looks at no item and can't fail.
int ParseWorkZoneRow(const Items&, tagVantoScript& script) { return SetScript(script, L"工作区介绍", L"工作区介绍"); }

// SHORTCUT_KEY,<code>. An unknown code leaves the name out and still succeeds.
int ParseShortcutKeyRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  return SetScript(script, L"快捷键", L"快捷键：" + NamedByLookup(ShortcutKeyName(ItemInt(items, 1))));
}

int ParseColorRow(const Items& items, tagVantoScript& script) { return ParseSmallStep(SmallRow::Color, items, script); }

int ParseHistoryRow(const Items& items, tagVantoScript& script) {
  return ParseSmallStep(SmallRow::History, items, script);
}

int ParseQuickMaskRow(const Items& items, tagVantoScript& script) {
  return ParseSmallStep(SmallRow::QuickMask, items, script);
}

int ParseScreenModeRow(const Items& items, tagVantoScript& script) {
  return ParseSmallStep(SmallRow::ScreenMode, items, script);
}

int ParseTipRow(const Items& items, tagVantoScript& script) { return ParseSmallStep(SmallRow::Tip, items, script); }

// REF_LINE,<direction>,<action>. The action is compared as text: only "0" and "1" are actions, anything else
// (also "00" or an empty item) gives the third sentence.
int ParseRefLineRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 3)) return 0;
  const int direction = ItemInt(items, 1);
  const std::wstring& action = ItemText(items, 2);
  for (const RefLineSentences& line : kRefLines) {
    if (line.direction != direction) continue;
    const wchar_t* detail = action == L"0" ? line.remove : action == L"1" ? line.add : line.other;
    return SetScript(script, L"参考线", detail);
  }
  return 0;
}

}  // namespace ostrel
