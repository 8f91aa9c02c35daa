// Capturing the live windows of a running Photoshop as a recorded window tree, so that a tree recorded on a real
// machine can be served back by the recorded-tree backend. Only Windows has live windows to capture; elsewhere
// CanCaptureWindows() says no and nothing is captured. (Built into the tools and tests, not into the library.)
#pragma once

#include <optional>

#include "platform/portable/recorded_windows.h"

namespace ostrel {

bool CanCaptureWindows();

// The windows around mainFrame: mainFrame itself, the windows it owns and the other top-level windows of its
// process, in z-order (topmost first), each with all its child windows. Each window is recorded as the window
// tree backend sees it: its class, its text (WM_GETTEXT), its rectangle, its own WS_VISIBLE flag, for a top-level
// window the owner that GetParent answers (when that owner is captured too), and for a ComboBox its list and
// selection. The handles are the live ones. The screen is the primary display's size.
RecordedWindowTree CaptureWindowsAround(WindowHandle mainFrame);

// The windows around Photoshop's main frame (the first top-level window of the class "Photoshop"); nothing when
// Photoshop isn't running.
std::optional<RecordedWindowTree> CapturePhotoshopWindows();

}  // namespace ostrel
