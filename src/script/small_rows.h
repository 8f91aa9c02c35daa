// The shortcut table behind the row SHORTCUT_KEY.
#pragma once

#include <span>
#include <string>

namespace ostrel {

struct ShortcutKey {
  int nCode;
  const wchar_t* strName;
};

// The rows in code order.
std::span<const ShortcutKey> ShortcutKeys() noexcept;

// The name of what a shortcut code does, or the empty string for a code that has no row.
std::wstring ShortcutKeyName(int code);

}  // namespace ostrel
