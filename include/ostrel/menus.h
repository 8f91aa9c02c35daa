// The top menu table: commands of Photoshop's menu bar by number, with their path through the menus and the
// name each leaves in the history panel.
#pragma once

#include <string>
#include <vector>

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

// One entry of a menu of the running Photoshop: its cleaned title and the cleaned titles of the visible entries of
// its submenu, in Photoshop's order (empty without a submenu).
struct tagTopMenuSubItemName {
  std::wstring strName;
  std::vector<std::wstring> vecSubItem;
};

// One title of the menu bar of the running Photoshop, with the visible entries of its menu in Photoshop's order.
struct tagTopMenuItemName {
  std::wstring strName;
  std::vector<tagTopMenuSubItemName> vecSubItem;
};

// The menu tree of the running Photoshop, in the language it runs in: the visible titles and entries, three levels
// deep. A title is cut before its first ASCII '(' and loses every "..."; a few filter gallery entries of the
// Chinese filter menu are left out. The vector is emptied first. 1 on success; -1 when not connected (the vector
// empty); 0 when a call into Photoshop failed, with the vector holding the menus complete up to then.
OSTREL_API int Ostrel_GetTopMenuName(std::vector<tagTopMenuItemName>& vecItems) noexcept;
