// The live windows around a main frame, recorded as the window tree backend sees them.
#include "platform/window_capture.h"

#include <windows.h>

#include <unordered_set>

#include "platform/win32/win32_windows.h"

namespace ostrel {
namespace {

using win32::ToHandle;
using win32::ToHwnd;

// A window that doesn't answer within this time is recorded without its text: a capture never hangs on it.
constexpr UINT kAnswerTimeoutMs = 2000;

LRESULT Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT fallback) {
  DWORD_PTR answer = 0;
  if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kAnswerTimeoutMs, &answer)) {
    return fallback;
  }
  return static_cast<LRESULT>(answer);
}

std::wstring TextOf(HWND window) {
  const LRESULT length = Ask(window, WM_GETTEXTLENGTH, 0, 0, 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  const LRESULT copied = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()), 0);
  text.resize(copied > 0 ? static_cast<size_t>(copied) : 0);
  return text;
}

void ReadComboBox(HWND combo, RecordedWindow& into) {
  const LRESULT count = Ask(combo, CB_GETCOUNT, 0, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    const LRESULT length = Ask(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0, CB_ERR);
    std::wstring item(length > 0 ? static_cast<size_t>(length) + 1 : 1, L'\0');
    const LRESULT copied =
        length > 0 ? Ask(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(item.data()), 0) : 0;
    item.resize(copied > 0 ? static_cast<size_t>(copied) : 0);
    into.items.push_back(std::move(item));
  }
  into.selected = static_cast<int32_t>(Ask(combo, CB_GETCURSEL, 0, 0, CB_ERR));
  if (into.selected < 0 || into.selected >= static_cast<int32_t>(into.items.size())) into.selected = -1;
}

// One window and, in z-order, its children and theirs.
RecordedWindow Capture(HWND window) {
  RecordedWindow recorded;
  recorded.hwnd = ToHandle(window);
  recorded.className = win32::WindowClass(window);
  recorded.title = TextOf(window);
  RECT rect{};
  GetWindowRect(window, &rect);
  recorded.rect = WindowRect{rect.left, rect.top, rect.right, rect.bottom};
  recorded.visible = (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  if (recorded.className == L"ComboBox") ReadComboBox(window, recorded);
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    recorded.children.push_back(Capture(child));
  }
  return recorded;
}

bool OwnedBy(HWND window, HWND owner) {
  for (HWND up = GetWindow(window, GW_OWNER); up; up = GetWindow(up, GW_OWNER)) {
    if (up == owner) return true;
  }
  return false;
}

}  // namespace

bool CanCaptureWindows() { return true; }

RecordedWindowTree CaptureWindowsAround(WindowHandle mainFrame) {
  const HWND frame = ToHwnd(mainFrame);
  DWORD process = 0;
  GetWindowThreadProcessId(frame, &process);
  std::vector<HWND> topLevel;
  win32::ForEachTopLevel([&](HWND window) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (window == frame || owner == process || OwnedBy(window, frame)) topLevel.push_back(window);
    return true;
  });
  RecordedWindowTree tree;
  tree.comment = "captured by ostrel capture-windows: the main frame, the windows it owns and the other top-level "
                 "windows of its process";
  tree.screenWidth = GetSystemMetrics(SM_CXSCREEN);
  tree.screenHeight = GetSystemMetrics(SM_CYSCREEN);
  std::unordered_set<WindowHandle> captured;
  for (HWND window : topLevel) captured.insert(ToHandle(window));
  for (HWND window : topLevel) {
    RecordedWindow recorded = Capture(window);
    // The owner as GetParent answers it (for a pop-up), and only when it is in the file too.
    const WindowHandle parent = ToHandle(GetParent(window));
    if (captured.count(parent) != 0) recorded.owner = parent;
    tree.windows.push_back(std::move(recorded));
  }
  return tree;
}

std::optional<RecordedWindowTree> CapturePhotoshopWindows() {
  const HWND frame = FindWindowW(L"Photoshop", nullptr);
  if (!frame) return std::nullopt;
  return CaptureWindowsAround(ToHandle(frame));
}

}  // namespace ostrel
