// The row VERBOSE: detailed guidance through a colour, a gradient, the refine edge dialog, a layer style, an
// adjustment, Camera Raw or the filter gallery.
#include <vector>

#include "script/checked_parse.h"
#include "script/row_helpers.h"
#include "vocabulary/dialog_names.h"
#include "vocabulary/layer_vocabulary.h"

namespace ostrel {
namespace {

// What fills a %s of a guidance sentence.
enum class Fill {
  None,
  Item2,              // item 2 as recorded
  Item3,              // item 3 as recorded
  RefineEdgeOf2,      // the refine edge section of item 2, else the control of that number
  LayerStyleOf2,      // the layer style page of item 2
  AdjustLayerOf2,     // the adjustment layer of item 2
  CameraRawOf2,       // the Camera Raw panel of item 2
  FilterGalleryOf3,   // the filter gallery entry of item 3
};

struct VerboseRow {
  int code;
  size_t items;           // items the code needs, the keyword included
  const wchar_t* title;
  const wchar_t* pattern;  // nullptr: the sentence comes from the filter gallery steps
  Fill fill1;
  Fill fill2;
};

constexpr VerboseRow kVerboseRows[] = {
#define OSTREL_VERBOSE_ROW(code, items, title, pattern, fill1, fill2) \
  {code, items, title, pattern, Fill::fill1, Fill::fill2},
#include "script/verbose_rows.def"
};

struct FilterGalleryStep {
  int step;
  size_t items;
  const wchar_t* pattern;
  Fill fill;
};

constexpr FilterGalleryStep kFilterGallerySteps[] = {
#define OSTREL_FILTER_GALLERY_STEP(step, items, pattern, fill) {step, items, pattern, Fill::fill},
#include "script/verbose_rows.def"
};

// One item can name a folding section of the refine edge dialog or a single control: the sections are tried
// first, and any other number names the control.
std::wstring RefineEdgeSectionOrControl(int number) {
  std::wstring name = DialogName(DialogList::RefineEdgeSub, number);
  return name.empty() ? RefineEdgeName(number) : name;
}

std::wstring FillText(Fill fill, const Items& items) {
  switch (fill) {
    case Fill::None:
      return {};
    case Fill::Item2:
      return ItemText(items, 2);
    case Fill::Item3:
      return ItemText(items, 3);
    case Fill::RefineEdgeOf2:
      return NamedByLookup(RefineEdgeSectionOrControl(ItemInt(items, 2)));
    case Fill::LayerStyleOf2:
      return NamedByLookup(LayerStyleName(ItemInt(items, 2)));
    case Fill::AdjustLayerOf2:
      return NamedByLookup(AdjustLayerName(ItemInt(items, 2)));
    case Fill::CameraRawOf2:
      return NamedByLookup(DialogName(DialogList::CameraRawPanel, ItemInt(items, 2)));
    case Fill::FilterGalleryOf3:
      return NamedByLookup(DialogName(DialogList::FilterGallery, ItemInt(items, 3)));
  }
  return {};
}

// The pattern with the texts of the fills that it has, in order.
std::wstring Sentence(const wchar_t* pattern, std::initializer_list<Fill> fills, const Items& items) {
  std::vector<std::wstring> texts;
  for (const Fill fill : fills) {
    if (fill != Fill::None) texts.push_back(FillText(fill, items));
  }
  const std::vector<FormatArg> args(texts.begin(), texts.end());
  return FormatArgs(pattern, args.data(), args.size());
}

// The filter gallery: the title is set before the step is looked at, so a step that is unknown, or step 0
// without the filter in item 3, fails with the title left set.
int ParseFilterGallery(const VerboseRow& row, const Items& items, tagVantoScript& script) {
  script.strTitle = row.title;
  const int step = ItemInt(items, 2);
  for (const FilterGalleryStep& s : kFilterGallerySteps) {
    if (s.step != step) continue;
    if (!HasItems(items, s.items)) return 0;
    script.strDetail = Sentence(s.pattern, {s.fill}, items);
    return 1;
  }
  return 0;
}

}  // namespace

// VERBOSE,<code>[,<i2>[,<i3>]].
int ParseVerboseRow(const Items& items, tagVantoScript& script) {
  ClearScript(script);
  if (!HasItems(items, 2)) return 0;
  const int code = ItemInt(items, 1);
  for (const VerboseRow& row : kVerboseRows) {
    if (row.code != code) continue;
    if (!HasItems(items, row.items)) return 0;
    if (row.pattern == nullptr) return ParseFilterGallery(row, items, script);
    return SetScript(script, row.title, Sentence(row.pattern, {row.fill1, row.fill2}, items));
  }
  return 0;
}

}  // namespace ostrel
