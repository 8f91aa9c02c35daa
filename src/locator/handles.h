// The locator's handles and rectangles as the exported interface gives them.
#pragma once

#include <cstdint>
#include <vector>

#include "ostrel/window_locator.h"
#include "platform/window_tree.h"

namespace ostrel::locator {

// Window handles have 32 significant bits, also in a 64-bit process; widened, they are sign-extended, as Windows
// does when it hands a 32-bit handle to a 64-bit process.
inline HWND ToHwnd(WindowHandle window) {
  return reinterpret_cast<HWND>(static_cast<intptr_t>(static_cast<int32_t>(window)));
}

inline WindowHandle FromHwnd(HWND window) {
  return static_cast<WindowHandle>(reinterpret_cast<uintptr_t>(window));
}

inline tagRECT ToRect(const WindowRect& rect) { return tagRECT{rect.left, rect.top, rect.right, rect.bottom}; }

// Replaces out with the handles of windows.
inline void CopyHandles(const std::vector<WindowHandle>& windows, std::vector<HWND>& out) {
  out.clear();
  for (const WindowHandle window : windows) out.push_back(ToHwnd(window));
}

// The controls of the tool options bar from left to right into list (replaced); 1 if there are any, else 0.
int ToolOptionsBarControlsInto(std::vector<HWND>& list);

}  // namespace ostrel::locator
