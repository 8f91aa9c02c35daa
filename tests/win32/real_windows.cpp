#include "real_windows.h"

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>

#include "platform/text.h"
#include "platform/win32/win32_windows.h"

namespace ostrel::test {
namespace {

using win32::ToHandle;
using win32::ToHwnd;

// The classes that Windows itself registers for every process: these windows are made with the system's class,
// so that they answer as real controls do (WM_GETTEXT of an Edit, CB_GETCOUNT of a combo box). Every other class
// of a tree is registered here with a plain window procedure.
constexpr std::array<const wchar_t*, 7> kSystemClasses = {L"Button", L"ComboBox", L"Edit",   L"ListBox",
                                                           L"ScrollBar", L"Static", L"#32770"};

bool IsSystemClass(const std::wstring& name) {
  return std::find_if(kSystemClasses.begin(), kSystemClasses.end(),
                      [&](const wchar_t* system) { return name == system; }) != kSystemClasses.end();
}

void EnsureClass(const std::wstring& name, const std::string& place) {
  if (IsSystemClass(name)) return;
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  WNDCLASSEXW existing{};
  existing.cbSize = sizeof existing;
  if (GetClassInfoExW(instance, name.c_str(), &existing)) return;
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = &DefWindowProcW;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = name.c_str();
  if (!RegisterClassExW(&windowClass)) throw std::runtime_error(place + ": RegisterClassExW failed");
}

// The style a control of a system class is made with: a combo box shows its selected item and has no edit field
// of its own (which would be one more child window), a scroll bar stands upright.
DWORD ClassStyle(const std::wstring& name) {
  if (name == L"ComboBox") return CBS_DROPDOWNLIST | WS_VSCROLL;
  if (name == L"ScrollBar") return SBS_VERT;
  if (name == L"Edit") return ES_AUTOHSCROLL;
  return 0;
}

std::string RectText(const RECT& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
         std::to_string(rect.bottom);
}

RECT ToRect(const WindowRect& rect) { return RECT{rect.left, rect.top, rect.right, rect.bottom}; }

bool SameRect(const RECT& a, const RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

// A combo box with a drop-down list is as tall as its selection field: the height it is made with is that of the
// dropped list. The selection field's height is set until the window is as high as the recorded rectangle. (Wine
// reads the field's height back 2 pixels higher than it was set, so the height set is carried, not read back.)
void FitComboBoxHeight(HWND combo, int wanted, const std::string& place) {
  LRESULT field = SendMessageW(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  RECT actual{};
  for (int attempt = 0; attempt < 4 && field != CB_ERR && field > 0; ++attempt) {
    SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), field);
    GetWindowRect(combo, &actual);
    const int difference = wanted - (actual.bottom - actual.top);
    if (difference == 0) return;
    field += difference;
  }
  throw std::runtime_error(place + ": a combo box can't be made " + std::to_string(wanted) + " pixels high (it is " +
                           std::to_string(actual.bottom - actual.top) + ")");
}

void FillComboBox(HWND combo, const RecordedWindow& window, const std::string& place) {
  for (const std::wstring& item : window.items) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
  }
  SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(window.selected), 0);
  const std::wstring shown =
      window.selected >= 0 && static_cast<size_t>(window.selected) < window.items.size() ? window.items[window.selected]
                                                                                        : std::wstring();
  if (shown != window.title) {
    throw std::runtime_error(place + ": a combo box shows its selected item (\"" + ToUtf8(shown) +
                             "\"), not the title \"" + ToUtf8(window.title) + "\"");
  }
}

// Takes in what the display has sent the window thread.
void Settle() {
  for (int round = 0; round < 5; ++round) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    Sleep(10);
  }
}

}  // namespace

std::string PlaceOf(const std::string& path, const RecordedWindow& window) {
  return path + " (hwnd " + std::to_string(window.hwnd) + ", " + ToUtf8(window.className) + ")";
}

RealWindows::RealWindows(WindowThread& thread, const RecordedWindowTree& tree) : m_thread(thread), m_tree(tree) {
  try {
    m_thread.Run([&] { Build(tree); });
    Rearrange();
    Check(tree.windows, nullptr, "windows");
  } catch (...) {
    Destroy();
    throw;
  }
}

RealWindows::~RealWindows() { Destroy(); }

void RealWindows::Destroy() {
  if (m_topLevel.empty()) return;
  m_thread.Run([&] {
    // Owned windows go with their owners: a window already gone is passed over.
    for (auto it = m_topLevel.rbegin(); it != m_topLevel.rend(); ++it) {
      if (IsWindow(*it)) DestroyWindow(*it);
    }
  });
  m_topLevel.clear();
}

WindowHandle RealWindows::RealOf(WindowHandle recorded) const {
  const auto found = m_real.find(recorded);
  return found == m_real.end() ? 0 : found->second;
}

std::optional<WindowHandle> RealWindows::RecordedOf(WindowHandle real) const {
  if (real == 0) return WindowHandle{0};
  const auto found = m_recorded.find(real);
  if (found == m_recorded.end()) return std::nullopt;
  return found->second;
}

// Runs on the window thread: owners before the windows they own, every window hidden until the z-order is set.
void RealWindows::Build(const RecordedWindowTree& tree) {
  std::vector<int> state(tree.windows.size(), 0);  // 0 not made, 1 being made, 2 made
  for (size_t i = 0; i < tree.windows.size(); ++i) CreateTopLevel(tree, i, state);
  for (const RecordedWindow& window : tree.windows) {
    m_order.push_back(window.hwnd);
    // The enumeration order: each top-level window followed by its descendants.
    std::function<void(const RecordedWindow&)> add = [&](const RecordedWindow& parent) {
      for (const RecordedWindow& child : parent.children) {
        m_order.push_back(child.hwnd);
        add(child);
      }
    };
    add(window);
  }
  Arrange(tree.windows, true);
}

HWND RealWindows::CreateTopLevel(const RecordedWindowTree& tree, size_t index, std::vector<int>& state) {
  const RecordedWindow& window = tree.windows[index];
  const std::string place = PlaceOf("windows[" + std::to_string(index) + "]", window);
  if (state[index] == 2) return ToHwnd(m_real.at(window.hwnd));
  if (state[index] == 1) throw std::runtime_error(place + ": its owners own each other");
  state[index] = 1;
  HWND owner = nullptr;
  if (window.owner != 0) {
    const auto ownerIndex = std::find_if(tree.windows.begin(), tree.windows.end(),
                                         [&](const RecordedWindow& other) { return other.hwnd == window.owner; });
    if (ownerIndex == tree.windows.end()) throw std::runtime_error(place + ": its owner isn't a top-level window");
    owner = CreateTopLevel(tree, static_cast<size_t>(ownerIndex - tree.windows.begin()), state);
  }
  const HWND real = CreateOne(window, owner, false, place);
  m_topLevel.push_back(real);
  CreateChildren(window, real, place);
  state[index] = 2;
  return real;
}

void RealWindows::CreateChildren(const RecordedWindow& window, HWND real, const std::string& place) {
  const std::string path = place.substr(0, place.find(' '));
  for (size_t i = 0; i < window.children.size(); ++i) {
    const RecordedWindow& child = window.children[i];
    const std::string childPlace = PlaceOf(path + ".children[" + std::to_string(i) + "]", child);
    const HWND made = CreateOne(child, real, true, childPlace);
    CreateChildren(child, made, childPlace);
  }
  Arrange(window.children, false);
}

HWND RealWindows::CreateOne(const RecordedWindow& window, HWND parent, bool child, const std::string& place) {
  EnsureClass(window.className, place);
  RECT rect = ToRect(window.rect);
  // A child's rectangle is given in the client coordinates of its parent; the parents made here have no border,
  // so that their client area is their whole window.
  if (child) MapWindowPoints(HWND_DESKTOP, parent, reinterpret_cast<POINT*>(&rect), 2);
  DWORD style = (child ? WS_CHILD : WS_POPUP) | ClassStyle(window.className);
  if (child && window.visible) style |= WS_VISIBLE;  // a top-level window is shown once the z-order is set
  const bool combo = window.className == L"ComboBox";
  const HMENU id = child ? reinterpret_cast<HMENU>(static_cast<INT_PTR>(m_nextId++)) : nullptr;
  // Top-level windows are never activated (under Wine an activation restacks them).
  const DWORD extendedStyle = child ? 0 : WS_EX_NOACTIVATE;
  const HWND real = CreateWindowExW(extendedStyle, window.className.c_str(), combo ? L"" : window.title.c_str(), style,
                                    rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, parent, id,
                                    GetModuleHandleW(nullptr), nullptr);
  if (!real) {
    throw std::runtime_error(place + ": CreateWindowExW failed (error " + std::to_string(GetLastError()) + ")");
  }
  if (!m_real.emplace(window.hwnd, ToHandle(real)).second || !m_recorded.emplace(ToHandle(real), window.hwnd).second) {
    DestroyWindow(real);
    throw std::runtime_error(place + ": the handle is there twice");
  }
  if (combo) {
    FillComboBox(real, window, place);
    FitComboBoxHeight(real, window.rect.bottom - window.rect.top, place);
    SetWindowPos(real, nullptr, rect.left, rect.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
  return real;
}

// Brings the siblings to the top one after the other from the bottommost up, so that the first ends on top. A
// window that is brought up takes the windows it owns along above it; they come later in this order (an owned
// window lies above its owner) and are put back in their place.
void RealWindows::Arrange(const std::vector<RecordedWindow>& siblings, bool topLevel) {
  for (auto it = siblings.rbegin(); it != siblings.rend(); ++it) {
    const UINT show = topLevel && it->visible ? SWP_SHOWWINDOW : 0;
    SetWindowPos(ToHwnd(m_real.at(it->hwnd)), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | show);
  }
}

// Under Wine the display answers new and restacked windows afterwards, and taking those answers in can move an
// owned pop-up down to just above its owner: the answers are taken in and the windows put in order again until
// the order holds.
void RealWindows::Rearrange() {
  for (int attempt = 0; attempt < 5 && !TopLevelOrderHolds(); ++attempt) {
    m_thread.Run([&] {
      Settle();
      Arrange(m_tree.windows, true);
      Settle();
    });
  }
}

// The top-level windows built from the tree, in Windows' z-order (the windows of other programs passed over).
std::vector<WindowHandle> RealWindows::ZOrderBelow(HWND parent) const {
  std::vector<WindowHandle> order;
  for (HWND window = GetWindow(parent ? parent : GetDesktopWindow(), GW_CHILD); window;
       window = GetWindow(window, GW_HWNDNEXT)) {
    const auto recorded = RecordedOf(ToHandle(window));
    if (recorded) order.push_back(*recorded);
  }
  return order;
}

bool RealWindows::TopLevelOrderHolds() const {
  std::vector<WindowHandle> wanted;
  for (const RecordedWindow& window : m_tree.windows) wanted.push_back(window.hwnd);
  return ZOrderBelow(nullptr) == wanted;
}

// What Windows holds against what the tree says, for siblings under parent (null: the top-level windows, among
// which the windows of other programs are passed over) and all below them.
void RealWindows::Check(const std::vector<RecordedWindow>& siblings, HWND parent, const std::string& place) const {
  const std::vector<WindowHandle> order = ZOrderBelow(parent);
  std::vector<WindowHandle> wanted;
  for (const RecordedWindow& window : siblings) wanted.push_back(window.hwnd);
  if (order != wanted) {
    const auto text = [](const std::vector<WindowHandle>& handles) {
      std::string joined;
      for (WindowHandle handle : handles) joined += (joined.empty() ? "" : " ") + std::to_string(handle);
      return joined;
    };
    throw std::runtime_error(place + ": Windows holds the windows below it in the z-order " + text(order) +
                             ", not " + text(wanted));
  }
  const std::string path = place.substr(0, place.find(' '));
  for (size_t i = 0; i < siblings.size(); ++i) {
    const RecordedWindow& window = siblings[i];
    const std::string here = PlaceOf(parent ? path + ".children[" + std::to_string(i) + "]"
                                            : "windows[" + std::to_string(i) + "]",
                                     window);
    const HWND real = ToHwnd(RealOf(window.hwnd));
    RECT actual{};
    GetWindowRect(real, &actual);
    if (!SameRect(actual, ToRect(window.rect))) {
      throw std::runtime_error(here + ": Windows put it at " + RectText(actual) + ", not " +
                               RectText(ToRect(window.rect)));
    }
    const WindowHandle expectedParent = parent ? ToHandle(parent) : RealOf(window.owner);
    if (ToHandle(GetParent(real)) != expectedParent) throw std::runtime_error(here + ": GetParent answers another window");
    Check(window.children, real, here);
  }
}

}  // namespace ostrel::test
