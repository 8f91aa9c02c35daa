// The sub-commands of the LAYER row as data: the rows of layer_rows.def, for the parser and its tests.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace ostrel {

// How the sentence of a sub-command is made.
enum class LayerSentence {
  Same,       // the sentence is the title
  Pattern,    // the pattern filled with the arguments
  MenuTitle,  // the title is the context menu entry of item 2; the sentence as Pattern
  ByMode,     // the case of item 2's value, filled with the arguments; no case: empty sentence, result 1
  ByBit,      // the first case whose bit item 2 has, filled with the arguments; no case: result 0
  ByLock,     // the first argument's word and, behind it, the word of item 2's case; no case: result 0
  ByFlag,     // the case 1 when item 3 reads as 1, else the case 0, filled with the arguments
};

// What one argument of a pattern is: an item as recorded, or the name that a lookup gives for it.
enum class LayerArgKind { None, Item, Blend, Style, Adjust, Mask, Menu, Filter, Select, Flag };

struct LayerArg {
  LayerArgKind kind = LayerArgKind::None;
  size_t nItem = 0;
  std::wstring_view strYes;  // Flag: the word when the item reads as 1
  std::wstring_view strNo;   // Flag: the word for anything else
};

inline constexpr size_t kMaxLayerArgs = 3;

struct LayerRow {
  int nSub;
  size_t nItems;  // items the sub-command needs, the keyword included
  std::wstring_view strTitle;
  LayerSentence sentence;
  std::wstring_view strPattern;
  std::array<LayerArg, kMaxLayerArgs> args;
};

// A sentence of a sub-command that chooses among several by a mode, a bit or a flag.
struct LayerCase {
  int nSub;
  int nKey;
  std::wstring_view strText;
};

std::span<const LayerRow> LayerRows() noexcept;
std::span<const LayerCase> LayerCases() noexcept;

}  // namespace ostrel
