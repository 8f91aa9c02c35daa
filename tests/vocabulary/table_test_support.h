// Helpers of the vocabulary tests: a fingerprint of a whole table, the checks of one list of numbered names,
// calling an export with a plain number, and a suite whose tables are built.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "ostrel/lifecycle.h"
#include "platform/text.h"
#include "vocabulary/listed_names.h"
#include "../support/fingerprint.h"

namespace ostrel::test_support {

inline std::wstring FieldText(long long number) { return std::to_wstring(number); }
inline std::wstring FieldText(std::wstring_view text) { return std::wstring(text); }
template <class Enum>
  requires std::is_enum_v<Enum>
std::wstring FieldText(Enum value) {
  return std::to_wstring(static_cast<long long>(value));
}
template <size_t N>
std::wstring FieldText(const std::array<std::wstring_view, N>& texts) {
  std::wstring text;
  for (std::wstring_view item : texts) text += std::wstring(item) + L',';
  return text;
}

// Over the UTF-8 of the given fields of every row, in table order: any changed letter or number, lost row or row
// moved to another place changes it, without the test listing the rows again.
template <class Rows, class... Fields>
std::uint64_t RowsFingerprint(const Rows& rows, Fields... fields) {
  std::wstring text;
  for (const auto& row : rows) {
    ((text += FieldText(row.*fields) + L'|'), ...);
    text += L'\n';
  }
  return Fingerprint(ToUtf8(text));
}

// One list of a table of numbered names: its count, numbers in ascending order (so none twice), a name without
// a trailing blank in every row, and the list's lookup giving each row's name and nothing for any other number
// (all from -1 to 256, then every bit up to 2^28). Returns the numbers of the list in table order.
template <class List>
std::vector<int> CheckListedNames(std::span<const ListedName<List>> rows, List list, size_t count,
                                  std::wstring (*name)(int)) {
  std::vector<int> numbers;
  for (const ListedName<List>& row : rows) {
    if (row.list != list) continue;
    SCOPED_TRACE(row.nNumber);
    EXPECT_TRUE(numbers.empty() || row.nNumber > numbers.back()) << "ascending, so no number twice";
    numbers.push_back(row.nNumber);
    EXPECT_FALSE(row.strName.empty() || row.strName.back() == L' ');
    EXPECT_EQ(name(row.nNumber), row.strName);
  }
  EXPECT_EQ(numbers.size(), count);
  for (int n = -1; n < 1 << 29; n = n < 256 ? n + 1 : n * 2) {
    EXPECT_TRUE(std::find(numbers.begin(), numbers.end(), n) != numbers.end() || name(n).empty()) << n;
  }
  return numbers;
}

// An export that takes one enumeration, called with a plain number: ByNumber<Ostrel_FileTypeToName>(4).
template <class Result, class Enum>
Enum ArgumentOf(Result (*)(Enum) noexcept);
template <auto Export>
auto ByNumber(int number) {
  return Export(decltype(ArgumentOf(Export)){number});
}

// For the tests of the tables that Ostrel_Init builds.
class BuiltTables : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { Ostrel_Init(); }
};

}  // namespace ostrel::test_support
