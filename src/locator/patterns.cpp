// The recurring searches of the window locator.
#include "locator/patterns.h"

#include <utility>

#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel::locator {
namespace {

enum class SortKey { kTopLeft, kTop, kLeft };

bool Greater(const WindowRect& a, const WindowRect& b, SortKey key) {
  switch (key) {
    case SortKey::kTopLeft: return a.top > b.top || (a.top == b.top && a.left > b.left);
    case SortKey::kTop: return a.top > b.top;
    case SortKey::kLeft: return a.left > b.left;
  }
  return false;
}

// Both rectangles are read anew at every comparison, as the windows may move while the sort runs.
void ExchangeSort(std::vector<WindowHandle>& windows, SortKey key) {
  for (size_t i = 0; i < windows.size(); ++i) {
    for (size_t j = i + 1; j < windows.size(); ++j) {
      if (Greater(RectOf(windows[i]), RectOf(windows[j]), key)) std::swap(windows[i], windows[j]);
    }
  }
}

}  // namespace

IWindowTree& Windows() { return *CurrentPlatform().windows; }

WindowHandle MainFrame() { return Windows().FindTopLevel(kPhotoshopClass, nullptr); }

WindowHandle ToolOptionsBar() {
  IWindowTree& windows = Windows();
  return windows.FindDescendantByClass(windows.FindDescendantByClass(MainFrame(), kControlBarContainerClass),
                                       kViewClass);
}

WindowHandle MenuBar() {
  IWindowTree& windows = Windows();
  return windows.FindDescendantByClass(windows.FindDescendantByClass(MainFrame(), kApplicationBarClass),
                                       kMenuBarClass);
}

WindowRect RectOf(WindowHandle window) {
  WindowRect rect;
  if (window != 0) Windows().RectOf(window, rect);
  return rect;
}

std::vector<WindowHandle> Descendants(WindowHandle parent, bool visibleOnly) {
  std::vector<WindowHandle> list;
  if (!Windows().GetDescendants(parent, visibleOnly, list)) list.clear();
  return list;
}

void SortWindowsByTopLeft(std::vector<WindowHandle>& windows) { ExchangeSort(windows, SortKey::kTopLeft); }
void SortWindowsByTop(std::vector<WindowHandle>& windows) { ExchangeSort(windows, SortKey::kTop); }
void SortWindowsByLeft(std::vector<WindowHandle>& windows) { ExchangeSort(windows, SortKey::kLeft); }

size_t CountClass(const std::vector<WindowHandle>& windows, const wchar_t* className) {
  size_t count = 0;
  for (const WindowHandle window : windows) count += Windows().ClassOf(window) == className ? 1 : 0;
  return count;
}

WindowHandle FirstOfClass(const std::vector<WindowHandle>& windows, const wchar_t* className) {
  for (const WindowHandle window : windows) {
    if (Windows().ClassOf(window) == className) return window;
  }
  return 0;
}

bool HasTitle(const std::vector<WindowHandle>& windows, const wchar_t* title) {
  for (const WindowHandle window : windows) {
    if (Windows().TextOf(window) == title) return true;
  }
  return false;
}

WindowHandle At(const std::vector<WindowHandle>& windows, size_t index) {
  return index < windows.size() ? windows[index] : 0;
}

bool IsPopupChild(WindowHandle window) {
  IWindowTree& windows = Windows();
  const WindowHandle parent = windows.ParentOf(window);
  if (parent == 0 || windows.ClassOf(parent) != kFloatClass) return false;
  const WindowHandle frame = MainFrame();
  return frame != 0 && windows.ParentOf(parent) == frame;
}

bool IsPopupView(WindowHandle window) { return Windows().ClassOf(window) == kViewClass && IsPopupChild(window); }

bool IsDockedView(WindowHandle window) {
  IWindowTree& windows = Windows();
  if (windows.ClassOf(window) != kViewClass || !windows.IsVisible(window)) return false;
  static constexpr const wchar_t* kChain[] = {kPaletteClass, kTabGroupClass, kTabPaneClass, kDockClass,
                                              kPhotoshopClass};
  WindowHandle current = window;
  for (const wchar_t* className : kChain) {
    current = windows.ParentOf(current);
    if (current == 0 || windows.ClassOf(current) != className) return false;
  }
  return true;
}

WindowHandle ScanRow(int32_t startX, int32_t y, int32_t step, int32_t limit, const ProbeTest& test) {
  for (int64_t x = int64_t{startX} + step; x <= limit; x += step) {
    const std::optional<WindowHandle> verdict = test(Windows().WindowAt(static_cast<int32_t>(x), y));
    if (verdict) return *verdict;
  }
  return 0;
}

WindowHandle FloatingFrame(FrameTitle title, FrameShown shown) {
  static const std::wstring kEmpty;
  IWindowTree& windows = Windows();
  const WindowHandle frame = windows.FindTopLevel(kFrameDrawerClass, title == FrameTitle::kEmpty ? &kEmpty : nullptr);
  if (frame == 0) return 0;
  if (shown == FrameShown::kVisible && !windows.IsVisible(frame)) return 0;
  return frame;
}

WindowHandle FrameFingerprint(FrameTitle title, FrameShown shown, bool visibleDescendants,
                              const ListCondition& condition) {
  const WindowHandle frame = FloatingFrame(title, shown);
  if (frame == 0) return 0;
  return condition(Descendants(frame, visibleDescendants)) ? frame : 0;
}

std::wstring ReadWindowText(WindowHandle window, size_t capacity) {
  if (window == 0 || capacity == 0) return {};
  std::wstring text = Windows().TextOf(window);
  if (text.size() > capacity - 1) text.resize(capacity - 1);  // the buffer keeps room for its terminating zero
  return text;
}

int ReadWindowInt(WindowHandle window, size_t capacity) { return WToI(ReadWindowText(window, capacity)); }

double ReadWindowDouble(WindowHandle window) { return WToF(ReadWindowText(window)); }

std::wstring VersionName() { return CurrentPlatform().parameters->GetString(EnTallyKey::kPhotoshopVersionName); }

}  // namespace ostrel::locator
