// The rows FILE, DOC and TOP_MENU: what the learner does with a file, with the open document and in the menu
// bar.
#include <string_view>

#include "script/checked_parse.h"
#include "script/row_helpers.h"
#include "vocabulary/dialog_names.h"
#include "vocabulary/top_menu_table.h"

namespace ostrel {
namespace {

// Every FILE line needs at least this many items, whatever its sub-command.
constexpr size_t kFileFewestItems = 3;

// What the sentence of a FILE sub-command is made of.
enum class FileSentence {
  Size,         // items 2 and 3 read as numbers and printed again
  Name,         // item 2 as recorded
  NameAndType,  // item 2 as recorded and the name of the file type in item 3
};

struct FileRow {
  int nCode;
  size_t nItems;  // items the sub-command needs, the keyword included
  std::wstring_view strTitle;
  std::wstring_view strPattern;
  FileSentence sentence;
};

// The sub-commands of FILE. A line of two items would be a save for web step; it is refused by the count of
// items before the sub-command is looked at, like every FILE line shorter than three items.
constexpr FileRow kFileRows[] = {
    {0, 4, L"新建文档", L"大小：%d像素x%d像素", FileSentence::Size},
    {1, 3, L"打开文件", L"文件名：%s", FileSentence::Name},
    {2, 4, L"文件另存为", L"文件名：%s.%s", FileSentence::NameAndType},
    {3, 3, L"置入文件", L"文件名：%s", FileSentence::Name},
};

const FileRow* FindFileRow(int code) noexcept {
  for (const FileRow& row : kFileRows) {
    if (row.nCode == code) return &row;
  }
  return nullptr;
}

std::wstring FileDetail(const FileRow& row, const Items& items) {
  switch (row.sentence) {
    case FileSentence::Size:
      return Format(row.strPattern, ItemInt(items, 2), ItemInt(items, 3));
    case FileSentence::Name:
      return Format(row.strPattern, ItemText(items, 2));
    case FileSentence::NameAndType:
      return Format(row.strPattern, ItemText(items, 2), NamedByLookup(DialogName(DialogList::FileType, ItemInt(items, 3))));
  }
  return {};
}

// The sub-commands of DOC.
struct DocRow {
  int nCode;
  std::wstring_view strTitle;
  std::wstring_view strDetail;
};

constexpr DocRow kDocRows[] = {
    {0, L"关闭文档", L"关闭当前文档"},
};

}  // namespace

// FILE,<code>,<item 2>[,<item 3>]: a new document, opening, saving as or placing a file.
int ParseFileRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, kFileFewestItems)) return 0;
  const FileRow* row = FindFileRow(ItemInt(items, 1));
  if (row == nullptr || !HasItems(items, row->nItems)) return 0;
  return SetScript(script, std::wstring(row->strTitle), FileDetail(*row, items));
}

// DOC,<code>: closing the document.
int ParseDocRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  const int code = ItemInt(items, 1);
  for (const DocRow& row : kDocRows) {
    if (row.nCode == code) return SetScript(script, std::wstring(row.strTitle), std::wstring(row.strDetail));
  }
  return 0;
}

// TOP_MENU,<EnTopMenuIndex>: a command of the menu bar. The title is the deepest level, the sentence the path
// to it. The one row whose lookup failing fails the row: an unknown number (or any number before Ostrel_Init
// has built the table) gives 0.
int ParseTopMenuRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  const tagTopMenuInfo* menu = FindTopMenu(ItemInt(items, 1));
  if (menu == nullptr) return 0;
  if (menu->strMenu3.empty()) {
    return SetScript(script, menu->strMenu2, Format(L"顶部菜单： %s - %s", menu->strMenu1, menu->strMenu2));
  }
  return SetScript(script, menu->strMenu3,
                   Format(L"顶部菜单： %s - %s - %s", menu->strMenu1, menu->strMenu2, menu->strMenu3));
}

}  // namespace ostrel
