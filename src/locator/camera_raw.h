// The Camera Raw dialog and its open panel, told by reference images searched on the screen.
#pragma once

#include <string>

#include "platform/window_tree.h"

namespace ostrel::locator {

// The filter dialogs' class, and the text that a Camera Raw dialog's title holds.
inline constexpr wchar_t kFilterDialogClass[] = L"PSFilter_WindowClass";
inline constexpr wchar_t kCameraRawTitlePart[] = L"Camera Raw";

// The first top-level filter dialog, when its title holds "Camera Raw" and it is shown; else null.
WindowHandle CameraRawDialog();
// The open panel (0 to 14), -1 when the dialog isn't open or no reference image is found.
int CameraRawPanel();

}  // namespace ostrel::locator
