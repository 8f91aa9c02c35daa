// The split of a script line into items and the test of one item.
#include <string_view>

#include "script/rows.h"

namespace ostrel {

Items SplitLine(std::wstring_view line) {
  Items items;
  if (line.empty()) return items;
  size_t start = 0;
  for (;;) {
    const size_t comma = line.find(L',', start);
    if (comma == std::wstring_view::npos) {
      items.emplace_back(line.substr(start));
      return items;
    }
    items.emplace_back(line.substr(start, comma - start));
    start = comma + 1;
  }
}

void SplitLineInto(std::wstring_view line, Items& items) {
  items.clear();
  items = SplitLine(line);
}

int IsItemAt(const Items& items, int index, std::wstring_view text) noexcept {
  if (index < 0 || static_cast<size_t>(index) >= items.size()) return 0;
  return items[static_cast<size_t>(index)] == text ? 1 : 0;
}

}  // namespace ostrel
