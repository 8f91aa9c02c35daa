// The live menu reader: the menu bar of the running Photoshop, three levels deep, from the application's
// "menuBarInfo". Every type id is asked of Photoshop where it is used.
#include "vocabulary/live_menu.h"

#include <algorithm>
#include <iterator>

#include "photoshop/action_manager.h"

namespace ostrel {
namespace {

// Entries of the Chinese filter menu that the lesson player never shows: filter gallery groups, and filter
// gallery members listed under two other groups.
constexpr std::wstring_view kFilterMenu = L"滤镜";
constexpr std::wstring_view kSkippedFilterGroups[] = {L"艺术效果", L"纹理", L"素描", L"画笔描边"};
constexpr std::wstring_view kGroupsWithSkippedFilters[] = {L"风格化", L"扭曲"};
constexpr std::wstring_view kSkippedFilters[] = {L"照亮边缘", L"玻璃", L"海洋波纹", L"扩散亮光"};

template <size_t N>
bool IsOneOf(std::wstring_view word, const std::wstring_view (&words)[N]) {
  return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

bool IsSkippedEntry(std::wstring_view menu, std::wstring_view entry) {
  return menu == kFilterMenu && IsOneOf(entry, kSkippedFilterGroups);
}

bool IsSkippedSubEntry(std::wstring_view menu, std::wstring_view entry, std::wstring_view subEntry) {
  return menu == kFilterMenu && IsOneOf(entry, kGroupsWithSkippedFilters) && IsOneOf(subEntry, kSkippedFilters);
}

std::wstring TitleOf(const COleDispatchDriver& node) {
  return CleanMenuTitle(am::GetString(node, am::StringId(L"title")));
}

// A node counts as shown only when it has the key "visible" and it holds true.
bool IsShown(const COleDispatchDriver& node) {
  return am::HasKey(node, am::StringId(L"visible")) && am::GetBoolean(node, am::StringId(L"visible"));
}

bool HasSubmenu(const COleDispatchDriver& node) { return am::HasKey(node, am::StringId(L"submenu")); }

COleDispatchDriver SubmenuOf(const COleDispatchDriver& node) { return am::GetList(node, am::StringId(L"submenu")); }

// Level 3: the shown entries of an entry's submenu; their own submenus aren't read.
std::vector<std::wstring> ReadSubEntries(const COleDispatchDriver& list, std::wstring_view menu,
                                         std::wstring_view entry) {
  std::vector<std::wstring> titles;
  am::ForEachPosition(list, [&](int32_t position) {
    const COleDispatchDriver node = am::ListGetObjectValue(list, position);
    std::wstring title = TitleOf(node);
    if (IsSkippedSubEntry(menu, entry, title)) return;
    if (IsShown(node)) titles.push_back(std::move(title));
  });
  return titles;
}

// Level 2: the shown entries of a menu, each with its submenu, which is read before the entry's own "visible".
std::vector<tagTopMenuSubItemName> ReadEntries(const COleDispatchDriver& list, std::wstring_view menu) {
  std::vector<tagTopMenuSubItemName> entries;
  am::ForEachPosition(list, [&](int32_t position) {
    const COleDispatchDriver node = am::ListGetObjectValue(list, position);
    tagTopMenuSubItemName entry{TitleOf(node), {}};
    if (IsSkippedEntry(menu, entry.strName)) return;
    if (HasSubmenu(node)) entry.vecSubItem = ReadSubEntries(SubmenuOf(node), menu, entry.strName);
    if (IsShown(node)) entries.push_back(std::move(entry));
  });
  return entries;
}

}  // namespace

std::wstring CleanMenuTitle(std::wstring_view title) {
  std::wstring clean(title.substr(0, title.find(L'(')));
  for (size_t dots = clean.find(L"..."); dots != std::wstring::npos; dots = clean.find(L"...", dots)) {
    clean.erase(dots, 3);
  }
  return clean;
}

int ReadLiveMenus(std::vector<tagTopMenuItemName>& menus) {
  menus.clear();
  const COleDispatchDriver application = am::ReadApplicationKey(L"menuBarInfo");
  const COleDispatchDriver menuBar = am::GetObjectValue(application, am::StringId(L"menuBarInfo"));
  const COleDispatchDriver titles = am::GetList(menuBar, am::StringId(L"submenu"));
  am::ForEachPosition(titles, [&](int32_t position) {
    const COleDispatchDriver node = am::ListGetObjectValue(titles, position);
    tagTopMenuItemName menu{TitleOf(node), {}};
    if (HasSubmenu(node)) menu.vecSubItem = ReadEntries(SubmenuOf(node), menu.strName);
    if (IsShown(node)) menus.push_back(std::move(menu));  // whole, so a later failure leaves it complete
  });
  return 1;
}

int LiveMenusUnconnected(std::vector<tagTopMenuItemName>& menus) noexcept {
  menus.clear();
  return -1;
}

}  // namespace ostrel
