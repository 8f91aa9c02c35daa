#include "photoshop/main_window.h"

#include <string>

#include "platform/platform.h"

namespace ostrel {

bool MainWindowTitleHolds(std::wstring_view text) {
  IWindowTree& windows = *CurrentPlatform().windows;
  const WindowHandle frame = windows.FindTopLevel(L"Photoshop", nullptr);
  return frame != 0 && windows.TextOf(frame).find(text) != std::wstring::npos;
}

}  // namespace ostrel
