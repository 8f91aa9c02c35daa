// Small pieces of the shape that every row parser shares.
#pragma once

#include <cstddef>
#include <string>

#include "ostrel/script.h"
#include "platform/text.h"
#include "script/rows.h"

namespace ostrel {

// Empties both strings of the record: the first step of a row.
inline void ClearScript(tagVantoScript& script) {
  script.strTitle.clear();
  script.strDetail.clear();
}

// True if the line has at least `fewest` items, the keyword included.
inline bool HasItems(const Items& items, size_t fewest) noexcept { return items.size() >= fewest; }

// The item at index as recorded, or the empty text when the line is shorter.
inline const std::wstring& ItemText(const Items& items, size_t index) noexcept {
  static const std::wstring kEmpty;
  return index < items.size() ? items[index] : kEmpty;
}

// The item at index read as a whole number the way _wtoi reads it; a missing item reads as 0.
inline int ItemInt(const Items& items, size_t index) noexcept { return WToI(ItemText(items, index)); }

// Sets both strings of the record and reports success: the last step of a row.
inline int SetScript(tagVantoScript& script, std::wstring title, std::wstring detail) {
  script.strTitle = std::move(title);
  script.strDetail = std::move(detail);
  return 1;
}

}  // namespace ostrel
