// The main frame and its bars.
#pragma once

#include <vector>

#include "platform/window_tree.h"

namespace ostrel::locator {

// The main frame's rectangle, all zero when it is missing or hidden.
WindowRect PhotoshopRect();
// The first visible OWL.ToolbarContainer among the main frame's descendants.
WindowHandle ToolBar();
// The tab group that holds the first visible document.
WindowHandle DocumentHolder();
// The descendants of the tool options bar, sorted from left to right, into controls (replaced). 1 if there are
// any, else 0 (and controls empty).
int ToolOptionsBarControls(std::vector<WindowHandle>& controls);
// The view of the pop-up that hangs below the tool options bar.
WindowHandle ToolBarPanel();

}  // namespace ostrel::locator
