// The window tree as the window locator sees it: the live windows of Windows, or a recorded tree.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace ostrel {

// An opaque window handle; 0 is the null handle.
using WindowHandle = uint32_t;

struct WindowRect {
  int32_t left = 0, top = 0, right = 0, bottom = 0;
};

// The queries the locator makes of the window manager and of the window helpers of the utility libraries.
class IWindowTree {
 public:
  virtual ~IWindowTree() = default;
  // First top-level window of the class in z-order; a null title matches any title, "" only an empty one.
  virtual WindowHandle FindTopLevel(const std::wstring& className, const std::wstring* title) = 0;
  // First direct child of parent with the class.
  virtual WindowHandle FindChild(WindowHandle parent, const std::wstring& className) = 0;
  // First window of the class anywhere below parent; null for a null parent.
  virtual WindowHandle FindDescendantByClass(WindowHandle parent, const std::wstring& className) = 0;
  // All descendants of parent at every depth, in enumeration order; visibleOnly keeps the visible ones.
  virtual bool GetDescendants(WindowHandle parent, bool visibleOnly, std::vector<WindowHandle>& out) = 0;
  virtual WindowHandle ParentOf(WindowHandle window) = 0;
  // Leaves rect as it was and gives false for a null or unknown handle.
  virtual bool RectOf(WindowHandle window, WindowRect& rect) = 0;
  virtual bool IsVisible(WindowHandle window) = 0;
  virtual WindowHandle WindowAt(int32_t x, int32_t y) = 0;
  virtual std::wstring ClassOf(WindowHandle window) = 0;
  virtual std::wstring TextOf(WindowHandle window) = 0;
  // The messages the locator sends: set a window's text, give it the focus, press and release Enter, and the
  // count and current selection of a combo box.
  virtual bool SetText(WindowHandle window, const std::wstring& text) = 0;
  virtual bool GiveFocus(WindowHandle window) = 0;
  virtual bool PressEnter(WindowHandle window) = 0;
  virtual int32_t ComboBoxCount(WindowHandle window) = 0;
  virtual int32_t ComboBoxSelection(WindowHandle window) = 0;
};

// The screen: its size and the search of a reference image within a rectangle of it.
class IScreen {
 public:
  virtual ~IScreen() = default;
  virtual void ScreenSize(int32_t& width, int32_t& height) = 0;
  // Nonzero when the image file was found within area; found holds where.
  virtual int32_t FindImage(const std::wstring& imagePath, const WindowRect& area, WindowRect& found,
                            double threshold) = 0;
};

}  // namespace ostrel
