// The menu tree of the running Photoshop, read through the Action Manager.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ostrel/menus.h"

namespace ostrel {

// A live menu title as the lesson player gets it: cut before the first ASCII '(' (an access key such as "(&S)"),
// then every "..." deleted. Full-width brackets stay.
std::wstring CleanMenuTitle(std::wstring_view title);

// Reads the menu bar of the connected Photoshop into menus (emptied first): each visible title with its visible
// entries and their visible submenu entries. 1 when done; a failed call throws, leaving in menus the titles that
// were complete.
int ReadLiveMenus(std::vector<tagTopMenuItemName>& menus);

// What the read gives unconnected: -1, with menus emptied.
int LiveMenusUnconnected(std::vector<tagTopMenuItemName>& menus) noexcept;

}  // namespace ostrel
