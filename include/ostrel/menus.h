// The top menu table: commands of Photoshop's menu bar by number, with their path through the menus and the
// name each leaves in the history panel.
#pragma once

#include <string>

#include "ostrel/export.h"

// A menu bar command's number as lesson scripts store it, grouped by menu in hundreds (0-10 File, 100-106 Edit,
// 200-240 Image, 300-302 Layer, 400 Type, 500-506 Select, 600-765 Filter, 800-802 Window). The numbers are the
// identity; numbers without a table row, such as 2, are no command.
enum EnTopMenuIndex : int {};

// One command: its number and the titles of up to three menu levels.
struct tagTopMenuInfo {
  EnTopMenuIndex nIndex{};
  std::wstring strMenu1;  // the title in the menu bar
  std::wstring strMenu2;  // the entry in that menu
  std::wstring strMenu3;  // the entry in the entry's submenu; empty for a two-level command
};

// Copies the command's row into info and gives 1; gives 0 and leaves info untouched for a number without a
// row, and for every number before the first Ostrel_Init.
OSTREL_API int Ostrel_TopMenuIndexToName(EnTopMenuIndex nIndex, tagTopMenuInfo& info) noexcept;

// The name the command leaves in Photoshop's history panel, or the empty string. Needs no Ostrel_Init.
OSTREL_API std::wstring Ostrel_TopMenuToHistoryName(EnTopMenuIndex nIndex) noexcept;
