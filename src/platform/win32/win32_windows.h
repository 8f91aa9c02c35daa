// The live windows of Windows as the window locator's tree: each query is one call of the window manager, made
// at the moment of asking. Nothing is cached; a handle that has gone answers as a missing window does.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/image_search.h"
#include "platform/window_tree.h"

namespace ostrel::win32 {

// Window handles are 32-bit values on 64-bit Windows too, so that 32-bit and 64-bit processes can share them: a
// handle is cut to its low 32 bits on the way out and sign-extended on the way back in.
inline WindowHandle ToHandle(HWND window) noexcept {
  return static_cast<WindowHandle>(reinterpret_cast<uintptr_t>(window));
}
inline HWND ToHwnd(WindowHandle handle) noexcept {
  return reinterpret_cast<HWND>(static_cast<intptr_t>(static_cast<int32_t>(handle)));
}

// Calls visit for every descendant of parent in the order EnumChildWindows gives them (z-order, each window
// followed by its own descendants) until visit returns false. An exception thrown by visit stops the enumeration
// and is thrown again after EnumChildWindows has returned: none crosses the system's callback.
void ForEachDescendant(HWND parent, const std::function<bool(HWND)>& visit);

// The same for the top-level windows (EnumWindows), topmost first.
void ForEachTopLevel(const std::function<bool(HWND)>& visit);

// The text of a window by WM_GETTEXT, whole: its length first by WM_GETTEXTLENGTH.
std::wstring WindowText(HWND window);

// The class name of a window (at most 256 characters, as the system allows); empty for a null handle.
std::wstring WindowClass(HWND window);

class Win32WindowTree final : public IWindowTree {
 public:
  WindowHandle FindTopLevel(const std::wstring& className, const std::wstring* title) override;
  WindowHandle FindChild(WindowHandle parent, const std::wstring& className) override;
  WindowHandle FindDescendantByClass(WindowHandle parent, const std::wstring& className) override;
  bool GetDescendants(WindowHandle parent, bool visibleOnly, std::vector<WindowHandle>& out) override;
  WindowHandle ParentOf(WindowHandle window) override;
  bool RectOf(WindowHandle window, WindowRect& rect) override;
  bool IsVisible(WindowHandle window) override;
  WindowHandle WindowAt(int32_t x, int32_t y) override;
  std::wstring ClassOf(WindowHandle window) override;
  std::wstring TextOf(WindowHandle window) override;
  bool SetText(WindowHandle window, const std::wstring& text) override;
  bool GiveFocus(WindowHandle window) override;
  bool PressEnter(WindowHandle window) override;
  int32_t ComboBoxCount(WindowHandle window) override;
  int32_t ComboBoxSelection(WindowHandle window) override;
};

// The pixels of the screen within rect (screen coordinates, inside the screen), copied from the screen's device
// context; nothing when the system refuses a step.
std::optional<ScreenPixels> CaptureScreen(const WindowRect& rect);

// The screen of Windows: the primary display's size, and the image search on what it shows at the moment of
// asking (only the searched rectangle is copied).
class Win32Screen final : public IScreen {
 public:
  void ScreenSize(int32_t& width, int32_t& height) override;
  int32_t FindImage(const std::wstring& imagePath, const WindowRect& area, WindowRect& found,
                    double threshold) override;
};

}  // namespace ostrel::win32
