// The split of a script line into items and the test of one item.
#include <string_view>

#include "frame/guard.h"
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

}  // namespace ostrel

OSTREL_API void Ostrel_ParseItem(std::wstring strLine, std::vector<std::wstring>& vecItems) noexcept {
  ostrel::GuardedVoid([&] {
    vecItems.clear();
    vecItems = ostrel::SplitLine(strLine);
  });
}

OSTREL_API int Ostrel_IsItem(std::vector<std::wstring> vecItems, int nIndex, std::wstring strText) noexcept {
  if (nIndex < 0 || static_cast<size_t>(nIndex) >= vecItems.size()) return 0;
  return vecItems[static_cast<size_t>(nIndex)] == strText ? 1 : 0;
}
