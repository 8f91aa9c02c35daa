// What Photoshop's automation can't tell but its main window shows in its title: quick mask mode, and whether a
// layer mask or a filter mask is being edited.
#pragma once

#include <string_view>

namespace ostrel {

// Whether the title of the top-level window of class "Photoshop" holds text; false when there is no such window.
bool MainWindowTitleHolds(std::wstring_view text);

}  // namespace ostrel
