// Photoshop's screen mode, told by geometry: the document area that Photoshop reports, the main frame's
// rectangle, the screen's size and three bar sizes from the host's configuration file.
#pragma once

#include <cstdint>

#include "platform/window_tree.h"

namespace ostrel::locator {

// The heights of the menu bar and the tool options bar and the width of the tool bar.
struct BarSizes {
  int32_t menuBar = 24;
  int32_t toolOptionsBar = 33;
  int32_t toolBar = 39;
};

// The sizes from the file of host parameter 53, section "Photoshop" ("MenuBarHeight", "ToolFeaturesBarHeight",
// "ToolBarWidth"); a value that is missing or not above 0 keeps its default.
BarSizes ReadBarSizes();

// What the test of the known layouts looks at.
struct ScreenGeometry {
  WindowRect area;   // the document area L, T, R, B
  WindowRect frame;  // the main frame ML, MT, MR, MB; zero when it isn't shown
  int32_t screenWidth = 0, screenHeight = 0;
  BarSizes bars;
};

// The place (from 0) of the first row of the layout table that the geometry fits, -1 when none does; and that
// row's mode, -1 when none fits.
int LayoutRowOf(const ScreenGeometry& geometry);
int ModeOfLayout(const ScreenGeometry& geometry);
// The coarser second test on the document area's left and top and the main frame's top-left corner; -1 when no
// condition holds.
int ModeOfCorner(int32_t left, int32_t top, const WindowRect& frame);

// The screen mode: the layout table on what is read now, logged first; the second test when no row fits or the
// document area can't be read. Runs connected, under the connection's lock; a failure of the second test's read
// passes to the caller.
int ScreenMode();

}  // namespace ostrel::locator
