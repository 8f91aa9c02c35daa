// No live windows to capture where the system isn't Windows.
#include "platform/window_capture.h"

namespace ostrel {

bool CanCaptureWindows() { return false; }

RecordedWindowTree CaptureWindowsAround(WindowHandle) { return {}; }

std::optional<RecordedWindowTree> CapturePhotoshopWindows() { return std::nullopt; }

}  // namespace ostrel
