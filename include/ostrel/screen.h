// The screen: which tab of the Camera Raw dialog is open, told by searching reference images on the screen, and
// Photoshop's screen mode, told by the geometry of the document area, the main frame and the screen.
#pragma once

#include "ostrel/export.h"
#include "ostrel/filters.h"
#include "ostrel/window_locator.h"

// Photoshop's screen mode: -1 not known, 0 standard, 1 full screen with menu bar, 2 full screen, 3 panels hidden,
// 4 full screen with panels hidden.
enum EnScreenMode : int {};

// The Camera Raw dialog (the top-level window of class "PSFilter_WindowClass" whose title holds "Camera Raw"),
// when it is shown; else null.
OSTREL_API HWND Ostrel_GetCameraRawWnd() noexcept;
// The open panel of the Camera Raw dialog (EnCameraRawPanel, 0 to 14), by the reference images "<name>.png" of
// the folders that host parameters 24 (main tabs) and 25 (sub-tabs) name, searched near the dialog's top right.
// -1 when the dialog isn't open (no search is made) or no image is found.
OSTREL_API EnCameraRawPanel Ostrel_GetCameraRawPanel() noexcept;

// Photoshop's screen mode (EnScreenMode). Reads the application's documentArea; -1 when not connected or when
// neither the known layouts nor the coarser second test fit. Writes the geometry to the log.
OSTREL_API EnScreenMode Ostrel_GetScreenMode() noexcept;
