// Helpers of the script tests: a line, or its items, run through the dispatcher or a direct row function on a
// record with old content, and the step it gives.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "ostrel/script.h"
#include "platform/text.h"

namespace ostrel::test_support {

using Items = std::vector<std::wstring>;
using RowFunction = int (*)(std::vector<std::wstring>, tagVantoScript&) noexcept;

struct Parsed {
  int result;
  std::wstring title;
  std::wstring detail;
  bool operator==(const Parsed&) const = default;
};

inline void PrintTo(const Parsed& parsed, std::ostream* out) {
  *out << parsed.result << " [" << ToUtf8(parsed.title) << "] [" << ToUtf8(parsed.detail) << "]";
}

// The record holds old text, which every row must replace or empty.
inline Parsed ParseItems(Items items, RowFunction row = Ostrel_ParseScript) {
  tagVantoScript script{L"old", L"old"};
  const int result = row(std::move(items), script);
  return {result, script.strTitle, script.strDetail};
}

inline Parsed ParseLine(const std::wstring& line) {
  tagVantoScript script{L"old", L"old"};
  const int result = Ostrel_ParseScript(line, script);
  return {result, script.strTitle, script.strDetail};
}

}  // namespace ostrel::test_support
