// The window tree backend over a recorded tree: each query answers from the plain data, as Windows answers for
// real windows of the same shape (see recorded_windows.h).
#include "platform/portable/recorded_windows.h"

#include <cwctype>
#include <utility>

namespace ostrel {
namespace {

bool Holds(const WindowRect& rect, int32_t x, int32_t y) {
  return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

// Appends the descendants of window in enumeration order: each child, then its own descendants.
void ListDescendants(const RecordedWindow& window, std::vector<const RecordedWindow*>& out) {
  for (const RecordedWindow& child : window.children) {
    out.push_back(&child);
    ListDescendants(child, out);
  }
}

const wchar_t kComboBox[] = L"ComboBox";

// Class names and titles as FindWindowW and FindWindowExW compare them: whole, without regard to case.
bool SameName(const std::wstring& a, const std::wstring& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (std::towupper(static_cast<wint_t>(a[i])) != std::towupper(static_cast<wint_t>(b[i]))) return false;
  }
  return true;
}

}  // namespace

RecordedWindows::RecordedWindows(RecordedWindowTree tree) : m_tree(std::move(tree)) {
  for (RecordedWindow& window : m_tree.windows) Index(window, nullptr);
}

void RecordedWindows::Index(RecordedWindow& window, RecordedWindow* container) {
  m_places.emplace(window.hwnd, Place{&window, container});
  for (RecordedWindow& child : window.children) Index(child, &window);
}

RecordedWindow* RecordedWindows::Lookup(WindowHandle window) {
  if (window == 0) return nullptr;
  const auto place = m_places.find(window);
  return place == m_places.end() ? nullptr : place->second.window;
}

const RecordedWindow* RecordedWindows::Find(WindowHandle window) const {
  return const_cast<RecordedWindows*>(this)->Lookup(window);
}

WindowHandle RecordedWindows::FindTopLevel(const std::wstring& className, const std::wstring* title) {
  for (const RecordedWindow& window : m_tree.windows) {
    if (SameName(window.className, className) && (title == nullptr || SameName(window.title, *title))) {
      return window.hwnd;
    }
  }
  return 0;
}

WindowHandle RecordedWindows::FindChild(WindowHandle parent, const std::wstring& className) {
  // A null parent stands for the desktop, whose children are the top-level windows.
  const std::vector<RecordedWindow>* children = &m_tree.windows;
  if (parent != 0) {
    const RecordedWindow* holder = Lookup(parent);
    if (holder == nullptr) return 0;
    children = &holder->children;
  }
  for (const RecordedWindow& child : *children) {
    if (SameName(child.className, className)) return child.hwnd;
  }
  return 0;
}

WindowHandle RecordedWindows::FindDescendantByClass(WindowHandle parent, const std::wstring& className) {
  const RecordedWindow* holder = Lookup(parent);
  if (holder == nullptr) return 0;
  std::vector<const RecordedWindow*> descendants;
  ListDescendants(*holder, descendants);
  for (const RecordedWindow* window : descendants) {
    if (window->className == className) return window->hwnd;
  }
  return 0;
}

bool RecordedWindows::GetDescendants(WindowHandle parent, bool visibleOnly, std::vector<WindowHandle>& out) {
  out.clear();
  const RecordedWindow* holder = Lookup(parent);
  if (holder == nullptr) return false;
  std::vector<const RecordedWindow*> descendants;
  ListDescendants(*holder, descendants);
  for (const RecordedWindow* window : descendants) {
    if (!visibleOnly || IsVisible(window->hwnd)) out.push_back(window->hwnd);
  }
  return true;
}

WindowHandle RecordedWindows::ParentOf(WindowHandle window) {
  if (Lookup(window) == nullptr) return 0;
  const Place& place = m_places.at(window);
  return place.container != nullptr ? place.container->hwnd : place.window->owner;
}

bool RecordedWindows::RectOf(WindowHandle window, WindowRect& rect) {
  const RecordedWindow* found = Lookup(window);
  if (found == nullptr) return false;
  rect = found->rect;
  return true;
}

bool RecordedWindows::IsVisible(WindowHandle window) {
  if (Lookup(window) == nullptr) return false;
  for (const Place* place = &m_places.at(window);;) {
    if (!place->window->visible) return false;
    if (place->container == nullptr) return true;  // the owner of a top-level window doesn't count
    place = &m_places.at(place->container->hwnd);
  }
}

WindowHandle RecordedWindows::DeepestAt(const std::vector<RecordedWindow>& windows, int32_t x, int32_t y) const {
  for (const RecordedWindow& window : windows) {
    if (!window.visible || !Holds(window.rect, x, y)) continue;
    const WindowHandle deeper = DeepestAt(window.children, x, y);
    return deeper != 0 ? deeper : window.hwnd;
  }
  return 0;
}

WindowHandle RecordedWindows::WindowAt(int32_t x, int32_t y) { return DeepestAt(m_tree.windows, x, y); }

std::wstring RecordedWindows::ClassOf(WindowHandle window) {
  const RecordedWindow* found = Lookup(window);
  return found != nullptr ? found->className : std::wstring();
}

std::wstring RecordedWindows::TextOf(WindowHandle window) {
  const RecordedWindow* found = Lookup(window);
  return found != nullptr ? found->title : std::wstring();
}

bool RecordedWindows::SetText(WindowHandle window, const std::wstring& text) {
  RecordedWindow* found = Lookup(window);
  if (found == nullptr) return false;
  found->title = text;
  m_received.push_back(ReceivedMessage{window, kSetTextMessage, 0, text});
  return true;
}

bool RecordedWindows::GiveFocus(WindowHandle window) {
  if (Lookup(window) == nullptr) return false;
  m_received.push_back(ReceivedMessage{window, kSetFocusMessage, 0, {}});
  return true;
}

bool RecordedWindows::PressEnter(WindowHandle window) {
  if (Lookup(window) == nullptr) return false;
  m_received.push_back(ReceivedMessage{window, kKeyDownMessage, kEnterKey, {}});
  m_received.push_back(ReceivedMessage{window, kKeyUpMessage, kEnterKey, {}});
  return true;
}

// Other classes leave the combo box messages to the default window procedure, which answers 0.
int32_t RecordedWindows::ComboBoxCount(WindowHandle window) {
  const RecordedWindow* found = Lookup(window);
  if (found == nullptr || found->className != kComboBox) return 0;
  return static_cast<int32_t>(found->items.size());
}

int32_t RecordedWindows::ComboBoxSelection(WindowHandle window) {
  const RecordedWindow* found = Lookup(window);
  if (found == nullptr || found->className != kComboBox) return 0;
  return found->selected;
}

void RecordedWindows::ScreenSize(int32_t& width, int32_t& height) {
  width = m_tree.screenWidth;
  height = m_tree.screenHeight;
}

// A recorded tree holds no pixels: no reference image is ever found on it.
const RgbImage* RecordedWindows::Screenshot() {
  std::lock_guard lock(m_screenshotMutex);
  if (!m_screenshotRead) {
    m_screenshotRead = true;
    if (!m_tree.screenshot.empty()) {
      const std::u8string written(m_tree.screenshot.begin(), m_tree.screenshot.end());
      m_screenshot = LoadPngFile(m_tree.folder / std::filesystem::path(written));
    }
  }
  return m_screenshot ? &*m_screenshot : nullptr;
}

int32_t RecordedWindows::FindImage(const std::wstring& imagePath, const WindowRect& area, WindowRect& found,
                                   double threshold) {
  return FindImageOnScreen(imagePath, area, found, threshold, m_tree.screenWidth, m_tree.screenHeight,
                           [this](const WindowRect& clipped) -> std::optional<ScreenPixels> {
                             const RgbImage* shot = Screenshot();
                             if (shot == nullptr) return std::nullopt;
                             return CropScreen(*shot, clipped);
                           });
}

}  // namespace ostrel
