// Capturing live windows gives back the tree they were built from: every example tree is built as real windows,
// captured around its main frame, its handles mapped back, and written out again to the same text.
#include "platform/window_capture.h"

#include <gtest/gtest.h>

#include "platform/win32/win32_windows.h"
#include "real_windows.h"
#include "window_trees.h"

namespace ostrel {
namespace {

// The captured window with the recorded handles in place of the live ones; false when a window of it wasn't
// built from the tree.
bool MapBack(RecordedWindow& window, const test::RealWindows& real) {
  const std::optional<WindowHandle> recorded = real.RecordedOf(window.hwnd);
  if (!recorded) return false;
  window.hwnd = *recorded;
  if (window.owner != 0) window.owner = real.RecordedOf(window.owner).value_or(0xFFFFFFFFu);
  for (RecordedWindow& child : window.children) {
    if (!MapBack(child, real)) return false;
  }
  return true;
}

// The main frame of a tree, or its first top-level window when it has none.
WindowHandle Anchor(const RecordedWindowTree& tree) {
  for (const RecordedWindow& window : tree.windows) {
    if (window.className == L"Photoshop") return window.hwnd;
  }
  return tree.windows.empty() ? 0 : tree.windows.front().hwnd;
}

TEST(WindowCaptureTest, CapturingTheWindowsBuiltFromATreeGivesBackThatTree) {
  ASSERT_TRUE(CanCaptureWindows());
  test::WindowThread thread;
  for (const test::NamedTree& named : test::TreesToBuild()) {
    SCOPED_TRACE(named.name);
    test::RealWindows real(thread, named.tree);
    // A capture is taken while the windows lie in the recorded z-order from its start to its end.
    RecordedWindowTree captured;
    for (int attempt = 0; attempt < 5; ++attempt) {
      real.Rearrange();
      captured = CaptureWindowsAround(real.RealOf(Anchor(named.tree)));
      if (real.TopLevelOrderHolds()) break;
    }
    EXPECT_EQ(captured.screenWidth, GetSystemMetrics(SM_CXSCREEN));
    RecordedWindowTree mapped;
    mapped.comment = named.tree.comment;
    mapped.screenshot = named.tree.screenshot;  // a picture of the screen, which no capture of windows takes
    mapped.screenWidth = named.tree.screenWidth;
    mapped.screenHeight = named.tree.screenHeight;
    for (RecordedWindow& window : captured.windows) {
      const WindowHandle live = window.hwnd;
      if (MapBack(window, real)) {
        mapped.windows.push_back(std::move(window));
      } else {
        // The process's own hidden helpers (Wine's input method windows) are captured too, but aren't the tree's.
        EXPECT_FALSE(IsWindowVisible(win32::ToHwnd(live))) << "a shown window that wasn't built: hwnd " << live;
      }
    }
    EXPECT_EQ(WriteWindowTree(mapped), WriteWindowTree(named.tree));
  }
}

TEST(WindowCaptureTest, PhotoshopNotRunningCapturesNothing) {
  EXPECT_FALSE(CapturePhotoshopWindows().has_value());
}

}  // namespace
}  // namespace ostrel
