// The words of the tool options: option names, value names and the names of Photoshop's default gradients and
// patterns, over the constant tables of tool_option_names.def, tool_option_value_names.def and
// default_gradient_pattern_names.def.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vocabulary/fixed_list.h"

namespace ostrel {

// A name for a number or a run of numbers.
struct NumberedName {
  int nFirst = 0;
  int nLast = -1;
  const wchar_t* szName = L"";
  constexpr NumberedName() = default;
  constexpr NumberedName(int number, const wchar_t* name) : nFirst(number), nLast(number), szName(name) {}
  constexpr NumberedName(int first, int last, const wchar_t* name) : nFirst(first), nLast(last), szName(name) {}
};

using OptionIds = FixedList<IdSpan, 24>;

// Options that stand for several commands: the value picks the option's name.
struct NameByValueRow {
  OptionIds ids;
  FixedList<NumberedName, 4> names;
};

// Options and fields with one word whatever the value.
struct FixedWordRow {
  const wchar_t* szWord;
  OptionIds ids;
};

// The names of an option's values; szOtherwise, where set, names every number the list lacks.
struct ValueListRow {
  OptionIds ids;
  const wchar_t* szOtherwise;
  FixedList<NumberedName, 32> names;
};

std::span<const NameByValueRow> NameByValueRows() noexcept;
std::span<const FixedWordRow> FixedNameRows() noexcept;
std::span<const ValueListRow> ValueListRows() noexcept;
std::span<const FixedWordRow> FixedValueTextRows() noexcept;

// The option's name: by the value read as a whole number where the option is named by its value, else its
// fixed name; the empty string where it has none.
std::wstring ToolOptionName(long long id, std::wstring_view value);

// The name of the option's value, or the value as it came where there is none.
std::wstring ToolOptionValueName(long long id, std::wstring_view value);

// The Chinese name of a default pattern, by the first substring found; else the name unchanged.
std::wstring DefaultPatternName(std::wstring_view name);

// The Chinese name of a default gradient, by its whole resource string; else the name unchanged.
std::wstring DefaultGradientName(std::wstring_view name);

}  // namespace ostrel
