// The words of the tool options and of Photoshop's default gradients and patterns, and their exports.
#include "vocabulary/tool_option_names.h"

#include "ostrel/tool_options.h"
#include "platform/text.h"

namespace ostrel {
namespace {

constexpr NameByValueRow kNamesByValue[] = {
#define OSTREL_OPTION_NAME_BY_VALUE(ids, ...) {ids, {__VA_ARGS__}},
#include "vocabulary/tool_option_names.def"
};

constexpr FixedWordRow kFixedNames[] = {
#define OSTREL_OPTION_NAME(name, ...) {name, {__VA_ARGS__}},
#include "vocabulary/tool_option_names.def"
};

constexpr ValueListRow kValueLists[] = {
#define OSTREL_VALUE_LIST(ids, ...) {ids, nullptr, {__VA_ARGS__}},
#define OSTREL_VALUE_LIST_ELSE(ids, otherwise, ...) {ids, otherwise, {__VA_ARGS__}},
#include "vocabulary/tool_option_value_names.def"
};

constexpr FixedWordRow kFixedValueTexts[] = {
#define OSTREL_VALUE_TEXT(text, ...) {text, {__VA_ARGS__}},
#include "vocabulary/tool_option_value_names.def"
};

struct TranslatedName {
  const wchar_t* szPhotoshop;
  const wchar_t* szChinese;
};

constexpr TranslatedName kDefaultGradients[] = {
#define OSTREL_DEFAULT_GRADIENT(photoshopName, name) {photoshopName, name},
#include "vocabulary/default_gradient_pattern_names.def"
};

constexpr TranslatedName kDefaultPatterns[] = {
#define OSTREL_DEFAULT_PATTERN(substring, name) {substring, name},
#include "vocabulary/default_gradient_pattern_names.def"
};

// The first row of the table that lists the id, or nullptr: an id stands in at most one row.
template <class Row, std::size_t N>
const Row* RowOf(const Row (&rows)[N], long long id) noexcept {
  for (const Row& row : rows) {
    if (SpansContain(row.ids, id)) return &row;
  }
  return nullptr;
}

// The name of the first entry whose numbers hold the number, or nullptr.
template <std::size_t N>
const wchar_t* NameOfNumber(const FixedList<NumberedName, N>& names, int number) noexcept {
  for (const NumberedName& entry : names) {
    if (number >= entry.nFirst && number <= entry.nLast) return entry.szName;
  }
  return nullptr;
}

}  // namespace

std::span<const NameByValueRow> NameByValueRows() noexcept { return kNamesByValue; }
std::span<const FixedWordRow> FixedNameRows() noexcept { return kFixedNames; }
std::span<const ValueListRow> ValueListRows() noexcept { return kValueLists; }
std::span<const FixedWordRow> FixedValueTextRows() noexcept { return kFixedValueTexts; }

std::wstring ToolOptionName(long long id, std::wstring_view value) {
  if (const NameByValueRow* row = RowOf(kNamesByValue, id)) {
    const wchar_t* name = NameOfNumber(row->names, WToI(value));
    return name ? name : L"";
  }
  if (const FixedWordRow* row = RowOf(kFixedNames, id)) return row->szWord;
  return L"";
}

std::wstring ToolOptionValueName(long long id, std::wstring_view value) {
  if (const ValueListRow* row = RowOf(kValueLists, id)) {
    if (const wchar_t* name = NameOfNumber(row->names, WToI(value))) return name;
    return row->szOtherwise ? std::wstring(row->szOtherwise) : std::wstring(value);
  }
  if (const FixedWordRow* row = RowOf(kFixedValueTexts, id)) return row->szWord;
  return std::wstring(value);
}

std::wstring DefaultPatternName(std::wstring_view name) {
  for (const TranslatedName& pattern : kDefaultPatterns) {
    if (name.find(pattern.szPhotoshop) != std::wstring_view::npos) return pattern.szChinese;
  }
  return std::wstring(name);
}

std::wstring DefaultGradientName(std::wstring_view name) {
  for (const TranslatedName& gradient : kDefaultGradients) {
    if (name == gradient.szPhotoshop) return gradient.szChinese;
  }
  return std::wstring(name);
}

}  // namespace ostrel
