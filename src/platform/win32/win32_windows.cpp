// The live windows of Windows through the window manager's own calls.
#include "platform/win32/win32_windows.h"

#include <exception>
#include <vector>

#include "platform/win32/holders.h"

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

// The GDI objects of a screen copy.
using MemoryDc = UniqueAny<HDC, &DeleteDC>;
using Bitmap = UniqueAny<HBITMAP, &DeleteObject>;

// The screen's device context, given back with ReleaseDC.
class ScreenDc {
 public:
  ScreenDc() noexcept : m_dc(GetDC(nullptr)) {}
  ~ScreenDc() {
    if (m_dc) ReleaseDC(nullptr, m_dc);
  }
  ScreenDc(const ScreenDc&) = delete;
  ScreenDc& operator=(const ScreenDc&) = delete;
  HDC Get() const noexcept { return m_dc; }

 private:
  HDC m_dc;
};

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

namespace ostrel::win32 {

std::optional<ScreenPixels> CaptureScreen(const WindowRect& rect) {
  const int width = rect.right - rect.left;
  const int height = rect.bottom - rect.top;
  if (width <= 0 || height <= 0) return std::nullopt;
  const ScreenDc screen;
  if (!screen.Get()) return std::nullopt;
  const MemoryDc memory(CreateCompatibleDC(screen.Get()));
  const Bitmap bitmap(CreateCompatibleBitmap(screen.Get(), width, height));
  if (!memory || !bitmap) return std::nullopt;
  const HGDIOBJ before = SelectObject(memory.Get(), bitmap.Get());
  if (before == nullptr || before == HGDI_ERROR) return std::nullopt;
  // CAPTUREBLT takes layered windows too: what the learner sees.
  const BOOL copied = BitBlt(memory.Get(), 0, 0, width, height, screen.Get(), rect.left, rect.top, SRCCOPY | CAPTUREBLT);
  SelectObject(memory.Get(), before);  // GetDIBits wants the bitmap out of every device context
  if (!copied) return std::nullopt;

  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // top row first
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  std::vector<uint8_t> bgrx(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
  if (GetDIBits(memory.Get(), bitmap.Get(), 0, static_cast<UINT>(height), bgrx.data(), &info, DIB_RGB_COLORS) !=
      height) {
    return std::nullopt;
  }
  ScreenPixels pixels;
  pixels.left = rect.left;
  pixels.top = rect.top;
  pixels.image.width = width;
  pixels.image.height = height;
  pixels.image.rgb.resize(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
  for (size_t i = 0, n = static_cast<size_t>(width) * static_cast<size_t>(height); i < n; ++i) {
    pixels.image.rgb[3 * i] = bgrx[4 * i + 2];
    pixels.image.rgb[3 * i + 1] = bgrx[4 * i + 1];
    pixels.image.rgb[3 * i + 2] = bgrx[4 * i];
  }
  return pixels;
}

void Win32Screen::ScreenSize(int32_t& width, int32_t& height) {
  width = GetSystemMetrics(SM_CXSCREEN);
  height = GetSystemMetrics(SM_CYSCREEN);
}

int32_t Win32Screen::FindImage(const std::wstring& imagePath, const WindowRect& area, WindowRect& found,
                               double threshold) {
  int32_t width = 0, height = 0;
  ScreenSize(width, height);
  return FindImageOnScreen(imagePath, area, found, threshold, width, height, &CaptureScreen);
}

}  // namespace ostrel::win32
