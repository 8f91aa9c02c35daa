// The live windows of Windows through the window manager's own calls.
#include "platform/win32/win32_windows.h"

#include <exception>

namespace ostrel::win32 {
namespace {

// The room GetClassNameW is given: class names are at most 256 characters long.
constexpr int kClassNameCapacity = 260;

struct EnumerationContext {
  const std::function<bool(HWND)>* visit = nullptr;
  std::exception_ptr failure;
};

BOOL CALLBACK VisitOne(HWND window, LPARAM lParam) {
  auto& context = *reinterpret_cast<EnumerationContext*>(lParam);
  try {
    return (*context.visit)(window) ? TRUE : FALSE;
  } catch (...) {
    context.failure = std::current_exception();  // carried out through lParam, thrown after the enumeration
    return FALSE;
  }
}

// The window of a handle that names one; null for the null handle and for one that has gone.
HWND LiveWindow(WindowHandle handle) {
  const HWND window = ToHwnd(handle);
  return window != nullptr && IsWindow(window) ? window : nullptr;
}

}  // namespace

void ForEachDescendant(HWND parent, const std::function<bool(HWND)>& visit) {
  EnumerationContext context;
  context.visit = &visit;
  EnumChildWindows(parent, &VisitOne, reinterpret_cast<LPARAM>(&context));
  if (context.failure) std::rethrow_exception(context.failure);
}

void ForEachTopLevel(const std::function<bool(HWND)>& visit) {
  EnumerationContext context;
  context.visit = &visit;
  EnumWindows(&VisitOne, reinterpret_cast<LPARAM>(&context));
  if (context.failure) std::rethrow_exception(context.failure);
}

std::wstring WindowText(HWND window) {
  if (window == nullptr) return {};
  const LRESULT length = SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  const LRESULT copied =
      SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()));
  text.resize(copied > 0 ? static_cast<size_t>(copied) : 0);
  return text;
}

std::wstring WindowClass(HWND window) {
  if (window == nullptr) return {};
  wchar_t name[kClassNameCapacity] = {};
  const int length = GetClassNameW(window, name, kClassNameCapacity);
  return std::wstring(name, length > 0 ? static_cast<size_t>(length) : 0);
}

WindowHandle Win32WindowTree::FindTopLevel(const std::wstring& className, const std::wstring* title) {
  return ToHandle(FindWindowW(className.c_str(), title ? title->c_str() : nullptr));
}

WindowHandle Win32WindowTree::FindChild(WindowHandle parent, const std::wstring& className) {
  // A null parent is the desktop, whose children are the top-level windows; a handle that has gone has none.
  const HWND window = LiveWindow(parent);
  if (parent != 0 && !window) return 0;
  return ToHandle(FindWindowExW(window, nullptr, className.c_str(), nullptr));
}

WindowHandle Win32WindowTree::FindDescendantByClass(WindowHandle parent, const std::wstring& className) {
  const HWND window = LiveWindow(parent);
  if (!window) return 0;
  HWND found = nullptr;
  ForEachDescendant(window, [&](HWND descendant) {
    if (WindowClass(descendant) != className) return true;
    found = descendant;
    return false;
  });
  return ToHandle(found);
}

bool Win32WindowTree::GetDescendants(WindowHandle parent, bool visibleOnly, std::vector<WindowHandle>& out) {
  out.clear();  // the list holds this answer only, also when there is none
  const HWND window = LiveWindow(parent);
  if (!window) return false;
  ForEachDescendant(window, [&](HWND descendant) {
    if (!visibleOnly || IsWindowVisible(descendant)) out.push_back(ToHandle(descendant));
    return true;
  });
  return true;
}

WindowHandle Win32WindowTree::ParentOf(WindowHandle window) {
  const HWND live = LiveWindow(window);
  return live ? ToHandle(GetParent(live)) : 0;
}

bool Win32WindowTree::RectOf(WindowHandle window, WindowRect& rect) {
  const HWND live = LiveWindow(window);
  RECT read{};
  if (!live || !GetWindowRect(live, &read)) return false;
  rect = WindowRect{read.left, read.top, read.right, read.bottom};
  return true;
}

bool Win32WindowTree::IsVisible(WindowHandle window) {
  const HWND live = LiveWindow(window);
  return live && IsWindowVisible(live);
}

WindowHandle Win32WindowTree::WindowAt(int32_t x, int32_t y) {
  const HWND window = WindowFromPoint(POINT{x, y});
  // Where no application window lies the desktop answers; to the locator that is no window at all.
  return window == GetDesktopWindow() ? 0 : ToHandle(window);
}

std::wstring Win32WindowTree::ClassOf(WindowHandle window) { return WindowClass(LiveWindow(window)); }

std::wstring Win32WindowTree::TextOf(WindowHandle window) { return WindowText(LiveWindow(window)); }

bool Win32WindowTree::SetText(WindowHandle window, const std::wstring& text) {
  const HWND live = LiveWindow(window);
  return live && SendMessageW(live, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str())) == TRUE;
}

bool Win32WindowTree::GiveFocus(WindowHandle window) {
  const HWND live = LiveWindow(window);
  if (!live) return false;
  SendMessageW(live, WM_SETFOCUS, 0, 0);
  return true;
}

bool Win32WindowTree::PressEnter(WindowHandle window) {
  const HWND live = LiveWindow(window);
  if (!live) return false;
  SendMessageW(live, WM_KEYDOWN, VK_RETURN, 0);
  SendMessageW(live, WM_KEYUP, VK_RETURN, 0);
  return true;
}

// Both combo box questions go to any window: one that isn't a combo box leaves the message to DefWindowProc,
// which answers 0, and so does a null or vanished handle.
int32_t Win32WindowTree::ComboBoxCount(WindowHandle window) {
  const HWND live = LiveWindow(window);
  return live ? static_cast<int32_t>(SendMessageW(live, CB_GETCOUNT, 0, 0)) : 0;
}

int32_t Win32WindowTree::ComboBoxSelection(WindowHandle window) {
  const HWND live = LiveWindow(window);
  return live ? static_cast<int32_t>(SendMessageW(live, CB_GETCURSEL, 0, 0)) : 0;
}

}  // namespace ostrel::win32
