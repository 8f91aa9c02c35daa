// The rows CANVAS, CANVAS_MENU and CANVAS_SUBMIT: gestures on the canvas, its context menu, and committing.
#include "script/canvas_rows.h"

#include "script/checked_parse.h"
#include "script/row_helpers.h"
#include "vocabulary/dialog_names.h"

namespace ostrel {
namespace {

constexpr CanvasOperation kCanvasOperations[] = {
#define OSTREL_CANVAS_OPERATION(code, text) {code, text},
#include "script/canvas_operations.def"
};

}  // namespace

std::span<const CanvasOperation> CanvasOperations() noexcept { return kCanvasOperations; }

std::wstring CanvasOperationText(int code) {
  for (const CanvasOperation& row : kCanvasOperations) {
    if (row.nCode == code) return row.strText;
  }
  return std::wstring();
}

// CANVAS,<code>. Unlike the other rows it leaves the record alone when the code is missing; the dispatcher has
// emptied it already, so only a direct caller sees the difference.
int ParseCanvasRow(const Items& items, tagVantoScript& script) {
  if (!HasItems(items, 2)) return 0;
  const std::wstring text = NamedByLookup(CanvasOperationText(ItemInt(items, 1)));
  return SetScript(script, L"画布操作", Format(L"画布操作【%s】", text));
}

// CANVAS_MENU,<EnCanvasMenu>. An unknown entry gives an empty name, and the row still succeeds.
int ParseCanvasMenuRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  std::wstring name = NamedByLookup(DialogName(DialogList::CanvasMenu, ItemInt(items, 1)));
  std::wstring detail = Format(L"画布菜单：%s", name);
  return SetScript(script, std::move(name), std::move(detail));
}

// CANVAS_SUBMIT looks at no item and can't fail.
int ParseCanvasSubmitRow(const Items&, tagVantoScript& script) { return SetScript(script, L"画布提交", L"画布提交"); }

}  // namespace ostrel
