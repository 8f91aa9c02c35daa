// Real windows made from a recorded window tree, on a window thread of their own: each window with its class,
// title, rectangle, owner, shown flag and combo box list, in the recorded z-order, and the handles of both sides
// mapped onto each other. What the tree asks and Windows can't give (a combo box whose shown text isn't its
// selected item, an owned window below its owner) is refused with the place in the tree.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/portable/recorded_windows.h"
#include "window_thread.h"

namespace ostrel::test {

class RealWindows {
 public:
  // Builds the windows on thread and checks that Windows holds them as the tree says (z-order, rectangles,
  // parents). Throws std::runtime_error naming the window ("windows[1].children[0] (hwnd 1201, Edit): ...").
  RealWindows(WindowThread& thread, const RecordedWindowTree& tree);
  ~RealWindows();
  RealWindows(const RealWindows&) = delete;
  RealWindows& operator=(const RealWindows&) = delete;

  // The real handle of a recorded one; 0 for 0 and for a handle the tree doesn't have.
  WindowHandle RealOf(WindowHandle recorded) const;
  // The recorded handle of a real one; 0 for 0, nothing for a window that wasn't built from the tree.
  std::optional<WindowHandle> RecordedOf(WindowHandle real) const;
  // Whether the top-level windows still lie in the recorded z-order, and putting them back in it (Wine can move
  // an owned pop-up down to its owner some time after it was placed).
  bool TopLevelOrderHolds() const;
  void Rearrange();
  // Checks again that Windows holds the windows as the tree says; throws as the constructor does.
  void Verify() const { Check(m_tree.windows, nullptr, "windows"); }
  // Every recorded handle, in enumeration order (top-level windows topmost first, each followed by its
  // descendants).
  const std::vector<WindowHandle>& RecordedHandles() const { return m_order; }

 private:
  struct Pending;
  void Build(const RecordedWindowTree& tree);
  HWND CreateTopLevel(const RecordedWindowTree& tree, size_t index, std::vector<int>& state);
  void CreateChildren(const RecordedWindow& window, HWND real, const std::string& place);
  HWND CreateOne(const RecordedWindow& window, HWND parent, bool child, const std::string& place);
  void Arrange(const std::vector<RecordedWindow>& siblings, bool topLevel);
  std::vector<WindowHandle> ZOrderBelow(HWND parent) const;
  void Check(const std::vector<RecordedWindow>& siblings, HWND parent, const std::string& place) const;
  void Destroy();

  WindowThread& m_thread;
  RecordedWindowTree m_tree;
  std::unordered_map<WindowHandle, WindowHandle> m_real;      // recorded -> real
  std::unordered_map<WindowHandle, WindowHandle> m_recorded;  // real -> recorded
  std::vector<WindowHandle> m_order;
  std::vector<HWND> m_topLevel;
  int m_nextId = 1000;
};

// "windows[2].children[0] (hwnd 1201, Edit)": the place of a window in its tree, as errors name it.
std::string PlaceOf(const std::string& path, const RecordedWindow& window);

}  // namespace ostrel::test
