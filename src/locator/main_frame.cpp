// The main frame and its bars.
#include "locator/main_frame.h"

#include "locator/handles.h"
#include "locator/patterns.h"

namespace ostrel::locator {

WindowRect PhotoshopRect() {
  const WindowHandle frame = MainFrame();
  if (!Windows().IsVisible(frame)) return WindowRect{};
  return RectOf(frame);
}

WindowHandle ToolBar() {
  const WindowHandle frame = MainFrame();
  if (frame == 0) return 0;
  for (const WindowHandle window : Descendants(frame, false)) {
    if (Windows().IsVisible(window) && Windows().ClassOf(window) == kToolbarContainerClass) return window;
  }
  return 0;
}

WindowHandle DocumentHolder() {
  for (const WindowHandle window : Descendants(MainFrame(), false)) {
    if (Windows().IsVisible(window) && Windows().ClassOf(window) == kDocumentClass) {
      return Windows().ParentOf(window);
    }
  }
  return 0;
}

int ToolOptionsBarControls(std::vector<WindowHandle>& controls) {
  const bool listed = Windows().GetDescendants(ToolOptionsBar(), false, controls);
  if (!listed) controls.clear();
  if (!listed || controls.empty()) return 0;
  SortWindowsByLeft(controls);
  return 1;
}

int ToolOptionsBarControlsInto(std::vector<HWND>& list) {
  std::vector<WindowHandle> controls;
  const int filled = ToolOptionsBarControls(controls);
  CopyHandles(controls, list);
  return filled;
}

WindowHandle ToolBarPanel() {
  const WindowRect bar = RectOf(ToolOptionsBar());
  return ScanRow(bar.left, bar.bottom, kScanStep, bar.right,
                 [](WindowHandle hit) -> std::optional<WindowHandle> {
                   if (IsPopupView(hit)) return hit;
                   return std::nullopt;
                 });
}

}  // namespace ostrel::locator
