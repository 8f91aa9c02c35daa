// The row LAYER: steps in the panels of layers, channels and paths, one sub-command each, driven by the rows of
// layer_rows.def.
#include "script/layer_rows.h"

#include <vector>

#include "script/checked_parse.h"
#include "script/row_helpers.h"
#include "vocabulary/layer_filter_table.h"
#include "vocabulary/layer_vocabulary.h"

namespace ostrel {
namespace {

// The argument forms that the rows of layer_rows.def are written in.
namespace layer_args {
constexpr LayerArg Item(size_t item) { return {LayerArgKind::Item, item, {}, {}}; }
constexpr LayerArg Blend(size_t item) { return {LayerArgKind::Blend, item, {}, {}}; }
constexpr LayerArg Style(size_t item) { return {LayerArgKind::Style, item, {}, {}}; }
constexpr LayerArg Adjust(size_t item) { return {LayerArgKind::Adjust, item, {}, {}}; }
constexpr LayerArg Mask(size_t item) { return {LayerArgKind::Mask, item, {}, {}}; }
constexpr LayerArg Menu(size_t item) { return {LayerArgKind::Menu, item, {}, {}}; }
constexpr LayerArg Filter(size_t item) { return {LayerArgKind::Filter, item, {}, {}}; }
constexpr LayerArg Select(size_t item) { return {LayerArgKind::Select, item, {}, {}}; }
constexpr LayerArg Flag(size_t item, std::wstring_view yes, std::wstring_view no) {
  return {LayerArgKind::Flag, item, yes, no};
}
}  // namespace layer_args

using namespace layer_args;

constexpr LayerRow kLayerRows[] = {
#define OSTREL_LAYER_ROW(sub, items, title, how, pattern, ...) \
  {sub, items, title, LayerSentence::how, pattern, {__VA_ARGS__}},
#include "script/layer_rows.def"
};

constexpr LayerCase kLayerCases[] = {
#define OSTREL_LAYER_CASE(sub, key, text) {sub, key, text},
#include "script/layer_rows.def"
};

// Every argument names an item that the row's count of items guarantees.
constexpr bool ArgumentsWithinItems() {
  for (const LayerRow& row : kLayerRows) {
    for (const LayerArg& arg : row.args) {
      if (arg.kind != LayerArgKind::None && arg.nItem >= row.nItems) return false;
    }
  }
  return true;
}
static_assert(ArgumentsWithinItems(), "a LAYER row reads an item beyond its count of items");

const LayerRow* FindLayerRow(int sub) noexcept {
  for (const LayerRow& row : kLayerRows) {
    if (row.nSub == sub) return &row;
  }
  return nullptr;
}

const LayerCase* FindCase(int sub, int key) noexcept {
  for (const LayerCase& c : kLayerCases) {
    if (c.nSub == sub && c.nKey == key) return &c;
  }
  return nullptr;
}

// The first case of the sub-command whose bit is set in mask, in the order of the rows.
const LayerCase* FindBitCase(int sub, int mask) noexcept {
  for (const LayerCase& c : kLayerCases) {
    if (c.nSub == sub && (mask & c.nKey) != 0) return &c;
  }
  return nullptr;
}

std::wstring ArgText(const LayerArg& arg, const Items& items) {
  const std::wstring& text = ItemText(items, arg.nItem);
  switch (arg.kind) {
    case LayerArgKind::None:
      return {};
    case LayerArgKind::Item:
      return text;  // sequence numbers and names as recorded: 007 stays 007
    case LayerArgKind::Blend:
      return NamedByLookup(LayerBlendName(WToI(text)));
    case LayerArgKind::Style:
      return NamedByLookup(LayerStyleName(WToI(text)));
    case LayerArgKind::Adjust:
      return NamedByLookup(AdjustLayerName(WToI(text)));
    case LayerArgKind::Mask:
      return NamedByLookup(LayerMaskName(WToI(text)));
    case LayerArgKind::Menu:
      return NamedByLookup(LayerMenuName(WToI(text)));
    case LayerArgKind::Filter:
      return NamedByLookup(LayerFilterName(WToI(text)));
    case LayerArgKind::Select:
      return NamedByLookup(SelectModeName(WToI(text)));
    case LayerArgKind::Flag:
      return std::wstring(WToI(text) == 1 ? arg.strYes : arg.strNo);
  }
  return {};
}

// The pattern filled with the row's arguments, in their order.
std::wstring Fill(std::wstring_view pattern, const LayerRow& row, const Items& items) {
  std::vector<std::wstring> texts;
  for (const LayerArg& arg : row.args) {
    if (arg.kind != LayerArgKind::None) texts.push_back(ArgText(arg, items));
  }
  std::vector<FormatArg> args(texts.begin(), texts.end());
  return FormatArgs(pattern, args.data(), args.size());
}

// The sentence of a sub-command that chooses it by a case of item 2 or 3; returns the row's result.
int ChooseSentence(const LayerRow& row, const Items& items, std::wstring& detail) {
  switch (row.sentence) {
    case LayerSentence::ByMode: {
      const LayerCase* c = FindCase(row.nSub, ItemInt(items, 2));
      if (c != nullptr) detail = Fill(c->strText, row, items);
      return 1;  // an unknown mode leaves the sentence empty and still succeeds
    }
    case LayerSentence::ByBit: {
      const LayerCase* c = FindBitCase(row.nSub, ItemInt(items, 2));
      if (c == nullptr) return 0;
      detail = Fill(c->strText, row, items);
      return 1;
    }
    case LayerSentence::ByLock: {
      detail = ArgText(row.args[0], items);  // the first word stays even when the lock is unknown
      const LayerCase* c = FindCase(row.nSub, ItemInt(items, 2));
      if (c == nullptr) return 0;
      detail += c->strText;
      return 1;
    }
    case LayerSentence::ByFlag: {
      const LayerCase* c = FindCase(row.nSub, ItemInt(items, 3) == 1 ? 1 : 0);
      if (c != nullptr) detail = Fill(c->strText, row, items);
      return 1;
    }
    case LayerSentence::Same:
    case LayerSentence::Pattern:
    case LayerSentence::MenuTitle:
      break;
  }
  return 0;
}

// Fills the record for a sub-command whose count of items is there; returns the row's result. The title is
// set first, so that a sentence that fails leaves it set.
int MakeStep(const LayerRow& row, const Items& items, tagVantoScript& script) {
  script.strTitle = row.strTitle;
  switch (row.sentence) {
    case LayerSentence::Same:
      script.strDetail = script.strTitle;
      return 1;
    case LayerSentence::Pattern:
      script.strDetail = Fill(row.strPattern, row, items);
      return 1;
    case LayerSentence::MenuTitle:
      script.strTitle = NamedByLookup(LayerMenuName(ItemInt(items, 2)));
      script.strDetail = Fill(row.strPattern, row, items);
      return 1;
    case LayerSentence::ByMode:
    case LayerSentence::ByBit:
    case LayerSentence::ByLock:
    case LayerSentence::ByFlag:
      return ChooseSentence(row, items, script.strDetail);
  }
  return 0;
}

}  // namespace

std::span<const LayerRow> LayerRows() noexcept { return kLayerRows; }
std::span<const LayerCase> LayerCases() noexcept { return kLayerCases; }

// LAYER,<sub-command>[,<item 2>[,<item 3>[,<item 4>]]].
int ParseLayerRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  const LayerRow* row = FindLayerRow(ItemInt(items, 1));
  if (row == nullptr || !HasItems(items, row->nItems)) return 0;
  return MakeStep(*row, items, script);
}

}  // namespace ostrel
