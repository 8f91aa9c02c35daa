// The dialog and filter windows. Titles are those of Photoshop's Chinese interface and are compared as a whole
// (FindWindowW's rule), except where a title is only said to begin with or contain a word.
#include "locator/dialogs.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <vector>

#include "locator/patterns.h"
#include "locator/pickers.h"
#include "vocabulary/dialog_names.h"

namespace ostrel::locator {
namespace {

constexpr wchar_t kDialogClass[] = L"#32770";
constexpr wchar_t kFilterClass[] = L"PSFilter_WindowClass";
constexpr wchar_t kToolbarClass[] = L"ToolbarWindow32";
constexpr wchar_t kBreadcrumbClass[] = L"Breadcrumb Parent";

WindowHandle TopLevel(const wchar_t* className, const wchar_t* title) {
  const std::wstring text = title;
  return Windows().FindTopLevel(className, &text);
}

WindowHandle ShownTopLevel(const wchar_t* className, const wchar_t* title) {
  const WindowHandle window = TopLevel(className, title);
  return Windows().IsVisible(window) ? window : 0;
}

bool BeginsWith(std::wstring_view text, std::wstring_view start) { return text.substr(0, start.size()) == start; }

bool Contains(std::wstring_view text, std::wstring_view part) { return text.find(part) != std::wstring_view::npos; }

// The windows of the list that have the class (and are visible, when asked), in list order.
std::vector<WindowHandle> OfClass(const std::vector<WindowHandle>& windows, const wchar_t* className,
                                  bool visibleOnly) {
  std::vector<WindowHandle> kept;
  for (const WindowHandle window : windows) {
    if (visibleOnly && !Windows().IsVisible(window)) continue;
    if (Windows().ClassOf(window) == className) kept.push_back(window);
  }
  return kept;
}

constexpr LayerStyleChildTitle kLayerStyleChildren[] = {
    {L"等高线编辑器", L"等高线"},
    {L"渐变编辑器", L"渐变"},
    {L"拾色器（斜面和浮雕高光颜色）", L"高光颜色"},
    {L"拾色器（斜面和浮雕阴影颜色）", L"阴影颜色"},
    {L"拾色器（描边颜色）", L"描边颜色"},
    {L"拾色器（内阴影颜色）", L"内阴影颜色"},
    {L"拾色器（内发光颜色）", L"内发光颜色"},
    {L"拾色器（光泽颜色）", L"光泽颜色"},
    {L"拾色器（叠加颜色）", L"叠加颜色"},
    {L"拾色器（外发光颜色）", L"外发光颜色"},
    {L"拾色器（投影颜色）", L"投影颜色"},
};

// The pages of the layer style dialog by the number of windows each shows.
struct PageCount {
  size_t windows;
  int page;
};
constexpr PageCount kLayerStylePages[] = {
    {9, 2},        // 样式
    {13, 16},      // 等高线
    {15, 1024},    // 颜色叠加
    {18, 32},      // 纹理
    {21, 65536},   // 图案叠加
    {24, 65536},   // 图案叠加
    {27, 512},     // 光泽
    {28, 32768},   // 渐变叠加
    {29, 64},      // 描边
    {42, 64},      // 描边
    {43, 64},      // 描边
    {33, 128},     // 内阴影
    {34, 262144},  // 投影
    {35, 4},       // 混合选项
    {37, 4},       // 混合选项
    {36, 131072},  // 外发光
    {39, 256},     // 内发光
    {45, 8},       // 斜面和浮雕
};
constexpr int kStrokePage = 64;

struct AdjustmentTitle {
  std::wstring_view title;
  int kind;
};
constexpr AdjustmentTitle kAdjustmentTitles[] = {
    {L"亮度/对比度", 3},
    {L"色阶", 4},
    {L"曲线", 5},
    {L"曝光度", 6},
    {L"自然饱和度", 7},
    {L"色相/饱和度", 8},
    {L"色彩平衡", 9},
    {L"黑白", 10},
    {L"照片滤镜", 11},
    {L"通道混和器", 12},
    {L"颜色查找", 13},
    {L"反相", 14},
    {L"色调分离", 15},
    {L"阈值", 16},
    {L"渐变映射", 17},
    {L"可选颜色", 18},
};
// The adjustments whose panel has a preset combo box: levels, curves, hue/saturation, colour balance, channel
// mixer and selective colour.
constexpr int kAdjustmentsWithComboBox[] = {4, 5, 8, 9, 12, 18};

// The fill pop-ups of an adjustment layer, by the number each gives.
constexpr const wchar_t* kAdjustmentPopups[] = {L"拾色器（纯色）", L"渐变填充", L"图案填充"};

// The gradient editor as the layer style dialog and the gradient tool open it: its shown windows, and the name
// field's place among them from the top.
constexpr size_t kGradientEditorShown = 26;
constexpr size_t kGradientNameControl = 7;

// The filter gallery's numbers, and the group names that the kind's walk passes over.
constexpr int kGalleryNumbers = 1000;
constexpr int kGalleryGroups[] = {1, 50, 100, 150, 200, 250};
constexpr int32_t kGalleryFilterCount = 47;

constexpr wchar_t kRefineEdgeButton[] = L"显示边缘 (J)";

// The sub-sections of the Refine Edge panel and their titles, with and without the colon.
struct SectionTitle {
  uint32_t bit;
  std::wstring_view withColon, without;
};
constexpr SectionTitle kSectionTitles[] = {
    {1, L"半径:", L"半径"},
    {2, L"平滑:", L"平滑"},
    {4, L"输出到:", L"输出到"},
};

enum class ControlSearch { kNone, kButton, kField };
ControlSearch SearchOf(int control) {
  switch (control) {
    case 1: case 2: case 3: case 14: case 15: case 19: return ControlSearch::kButton;
    case 4: case 5: case 7: case 8: case 10: case 11: case 12: case 13: case 17: return ControlSearch::kField;
    default: return ControlSearch::kNone;  // 0, 6, 9, 16, 18 and any other number
  }
}

// The preview's walk down the panel's left edge, in screen pixels.
constexpr int32_t kPreviewStep = 10;

// A window's vertical middle: the fraction dropped.
int64_t Middle(const WindowRect& rect) { return (int64_t{rect.top} + rect.bottom) / 2; }

}  // namespace

// ---- The layer style dialog ----

int LayerStylePageOfCount(size_t shownWindows) {
  for (const PageCount& row : kLayerStylePages) {
    if (row.windows == shownWindows) return row.page;
  }
  return -1;
}

int CurrentLayerStylePage() {
  const std::vector<WindowHandle> shown = Descendants(TopLevel(kFloatClass, L"图层样式"), true);
  if (HasTitle(shown, L"Overprint") || HasTitle(shown, L"叠印")) return kStrokePage;
  return LayerStylePageOfCount(shown.size());
}

WindowHandle LayerStyleDialog() {
  const WindowHandle dialog = TopLevel(kFloatClass, L"图层样式");
  if (dialog == 0 || CurrentLayerStylePage() == -1) return 0;
  return dialog;
}

std::span<const LayerStyleChildTitle> LayerStyleChildren() { return kLayerStyleChildren; }

int LayerStyleChild(WindowHandle& window, std::wstring& name) {
  window = 0;
  for (const LayerStyleChildTitle& child : kLayerStyleChildren) {
    const WindowHandle found = TopLevel(kFloatClass, std::wstring(child.title).c_str());
    if (found == 0) continue;
    if (!Windows().IsVisible(found)) {
      name.clear();
      return 0;
    }
    window = found;
    name = child.name;
    return 1;
  }
  return 0;
}

int LayerStyleChildInto(HWND& window, std::wstring& name) {
  WindowHandle found = 0;
  const int shown = LayerStyleChild(found, name);
  window = ToHwnd(found);
  return shown;
}

// ---- Adjustment layers ----

int AdjustmentOfTitle(std::wstring_view title) {
  for (const AdjustmentTitle& row : kAdjustmentTitles) {
    if (row.title == title) return row.kind;
  }
  return -1;
}

WindowHandle AdjustmentPanel(int& kind) {
  kind = -1;
  const WindowHandle frame = FloatingFrame(FrameTitle::kEmpty, FrameShown::kVisible);
  if (frame == 0) return 0;
  std::vector<WindowHandle> labels = OfClass(Descendants(frame, false), kStaticClass, true);
  if (labels.empty()) return 0;
  SortWindowsByTopLeft(labels);
  const int found = AdjustmentOfTitle(Windows().TextOf(labels.front()));
  if (found == -1) return 0;
  kind = found;
  return frame;
}

WindowHandle AdjustmentPopup(int& kind) {
  kind = -1;
  for (int number = 0; number < static_cast<int>(std::size(kAdjustmentPopups)); ++number) {
    const WindowHandle popup = ShownTopLevel(kFloatClass, kAdjustmentPopups[number]);
    if (popup == 0) continue;
    kind = number;
    return popup;
  }
  return 0;
}

WindowHandle AdjustmentComboBox(int& selection) {
  selection = -1;
  int kind = -1;
  const WindowHandle frame = AdjustmentPanel(kind);
  if (frame == 0 || std::find(std::begin(kAdjustmentsWithComboBox), std::end(kAdjustmentsWithComboBox), kind) ==
                        std::end(kAdjustmentsWithComboBox)) {
    return 0;
  }
  std::vector<WindowHandle> boxes = OfClass(Descendants(frame, false), kComboBoxClass, true);
  if (boxes.empty()) return 0;
  SortWindowsByTopLeft(boxes);
  selection = Windows().ComboBoxSelection(boxes.back());
  return boxes.back();
}

HWND AdjustmentPanelInto(EnAdjustLayer& kind) {
  int found = -1;
  const WindowHandle frame = AdjustmentPanel(found);
  kind = static_cast<EnAdjustLayer>(found);
  return ToHwnd(frame);
}

HWND AdjustmentPanelWithoutKind() {
  int dropped = -1;
  return ToHwnd(AdjustmentPanel(dropped));
}

HWND AdjustmentPopupInto(EnAdjustLayer& kind) {
  int found = -1;
  const WindowHandle popup = AdjustmentPopup(found);
  kind = static_cast<EnAdjustLayer>(found);
  return ToHwnd(popup);
}

HWND AdjustmentPopupWithoutKind() {
  int dropped = -1;
  return ToHwnd(AdjustmentPopup(dropped));
}

HWND AdjustmentComboBoxInto(int& selection) { return ToHwnd(AdjustmentComboBox(selection)); }

HWND NoAdjustment(EnAdjustLayer& kind) {
  kind = static_cast<EnAdjustLayer>(-1);
  return nullptr;
}

HWND NoSelection(int& selection) {
  selection = -1;
  return nullptr;
}

// ---- The New dialog and the file dialogs ----

WindowHandle NewDocumentTypeComboBox() {
  const WindowHandle dialog = ShownTopLevel(kFloatClass, L"新建");
  if (dialog == 0) return 0;
  std::vector<WindowHandle> boxes = OfClass(Descendants(dialog, false), kComboBoxClass, true);
  if (boxes.empty()) return 0;
  SortWindowsByTopLeft(boxes);
  return boxes.front();
}

WindowHandle FileDialogWindow(FileDialog dialog) {
  WindowHandle window = 0;
  switch (dialog) {
    case FileDialog::kSaveAs: window = TopLevel(kDialogClass, L"另存为"); break;
    case FileDialog::kOpen: window = TopLevel(kDialogClass, L"打开"); break;
    case FileDialog::kPlace:
      // The second title only when no dialog has the first; a hidden one under the first title ends the search.
      window = TopLevel(kDialogClass, L"置入嵌入对象");
      if (window == 0) window = TopLevel(kDialogClass, L"置入嵌入的对象");
      break;
    case FileDialog::kReplace: window = TopLevel(kDialogClass, L"替换文件"); break;
  }
  return Windows().IsVisible(window) ? window : 0;
}

WindowHandle FileNameField(FileDialog dialog) {
  const WindowHandle window = FileDialogWindow(dialog);
  if (window == 0) return 0;
  return FirstOfClass(Descendants(window, true), kEditClass);
}

WindowHandle SaveAsFileNameComboBox() {
  const WindowHandle window = FileDialogWindow(FileDialog::kSaveAs);
  if (window == 0) return 0;
  std::vector<WindowHandle> shown = Descendants(window, true);
  SortWindowsByTop(shown);
  return FirstOfClass(shown, kComboBoxClass);
}

WindowHandle FileTypeComboBox(FileDialog dialog) {
  const WindowHandle window = FileDialogWindow(dialog);
  if (window == 0) return 0;
  const std::vector<WindowHandle> boxes = OfClass(Descendants(window, true), kComboBoxClass, false);
  if (boxes.size() != 2) return 0;
  // The lower one; at equal tops the second.
  return RectOf(boxes[0]).top > RectOf(boxes[1]).top ? boxes[0] : boxes[1];
}

WindowHandle SaveAsAddressBar() {
  const WindowHandle window = FileDialogWindow(FileDialog::kSaveAs);
  if (window == 0) return 0;
  for (const WindowHandle bar : Descendants(window, true)) {
    if (Windows().ClassOf(bar) != kToolbarClass) continue;
    if (Windows().ClassOf(Windows().ParentOf(bar)) != kBreadcrumbClass) continue;
    if (Contains(Windows().TextOf(bar), L"地址")) return bar;
  }
  return 0;
}

// ---- The gradient editor ----

std::wstring GradientName() {
  const WindowHandle editor = GradientEditor();
  if (!Windows().IsVisible(editor)) return {};
  std::vector<WindowHandle> shown = Descendants(editor, true);
  if (shown.size() != kGradientEditorShown) return {};
  SortWindowsByTop(shown);
  std::wstring name = ReadWindowText(shown[kGradientNameControl]);
  static constexpr std::wstring_view kJoint = L", ";
  for (size_t at = name.find(kJoint); at != std::wstring::npos; at = name.find(kJoint, at)) name.erase(at, kJoint.size());
  return name;
}

// ---- Filter dialogs ----

WindowHandle FilterDialog() { return Windows().FindTopLevel(kFilterClass, nullptr); }

namespace {

// The first gallery number from 0 whose name the title begins with, passing over the group names when asked;
// -1 for none.
int GalleryNumberOfTitle(const std::wstring& title, bool passOverGroups) {
  for (int number = 0; number < kGalleryNumbers; ++number) {
    if (passOverGroups &&
        std::find(std::begin(kGalleryGroups), std::end(kGalleryGroups), number) != std::end(kGalleryGroups)) {
      continue;
    }
    const std::wstring name = DialogName(DialogList::FilterGallery, number);
    if (!name.empty() && BeginsWith(title, name)) return number;
  }
  return -1;
}

}  // namespace

WindowHandle FilterGalleryDialog() {
  const WindowHandle dialog = FilterDialog();
  if (!Windows().IsVisible(dialog)) return 0;
  return GalleryNumberOfTitle(Windows().TextOf(dialog), false) == -1 ? 0 : dialog;
}

int FilterGalleryKind() {
  const WindowHandle dialog = FilterDialog();
  if (!Windows().IsVisible(dialog)) return -1;
  return GalleryNumberOfTitle(Windows().TextOf(dialog), true);
}

WindowHandle FilterGalleryComboBox() {
  const WindowHandle dialog = FilterGalleryDialog();
  if (dialog == 0) return 0;
  for (const WindowHandle box : OfClass(Descendants(dialog, true), kComboBoxClass, false)) {
    if (Windows().ComboBoxCount(box) == kGalleryFilterCount) return box;
  }
  return 0;
}

WindowHandle LiquifyDialog() {
  const WindowHandle dialog = FilterDialog();
  return dialog != 0 && Contains(Windows().TextOf(dialog), L"液化") ? dialog : 0;
}

// ---- Refine Edge ----

WindowHandle RefineEdgePanel() {
  IWindowTree& windows = Windows();
  std::vector<WindowHandle> all;
  if (!windows.GetDescendants(MainFrame(), false, all)) return 0;
  for (const WindowHandle button : all) {
    if (windows.ClassOf(button) != kButtonClass || windows.TextOf(button) != kRefineEdgeButton) continue;
    const WindowHandle view = windows.ParentOf(button);
    if (!windows.IsVisible(view) || windows.ClassOf(view) != kViewClass) continue;
    if (windows.ClassOf(windows.ParentOf(view)) != kPaletteClass) continue;
    return view;
  }
  return 0;
}

uint32_t RefineEdgeSections() {
  const WindowHandle panel = RefineEdgePanel();
  if (panel == 0) return 0;
  std::vector<WindowHandle> shown;
  if (!Windows().GetDescendants(panel, true, shown)) return 0;
  uint32_t bits = 0;
  for (const WindowHandle window : shown) {
    const std::wstring title = Windows().TextOf(window);
    for (const SectionTitle& section : kSectionTitles) {
      if (title == section.withColon || title == section.without) bits |= section.bit;
    }
  }
  return bits;
}

bool IsPreviewSize(int32_t width, int32_t height) {
  const auto oneOf = [](int32_t value, std::initializer_list<int32_t> allowed) {
    return std::find(allowed.begin(), allowed.end(), value) != allowed.end();
  };
  if (oneOf(width, {218, 240, 241}) && oneOf(height, {331, 335, 339})) return true;
  return width == 214 && height >= 330 && height <= 350;
}

WindowHandle RefineEdgePreview() {
  const WindowHandle panel = RefineEdgePanel();
  if (!Windows().IsVisible(panel)) return 0;
  const WindowRect area = RectOf(panel);
  const int64_t panelWidth = int64_t{area.right} - area.left;
  const int64_t panelHeight = int64_t{area.bottom} - area.top;
  for (int64_t y = area.top; y <= area.bottom; y += kPreviewStep) {
    const WindowHandle hit = Windows().WindowAt(area.left, static_cast<int32_t>(y));
    const WindowRect rect = RectOf(hit);
    const int64_t width = int64_t{rect.right} - rect.left;
    const int64_t height = int64_t{rect.bottom} - rect.top;
    if (IsPreviewSize(static_cast<int32_t>(width), static_cast<int32_t>(height))) return hit;
    // A window reaching further left than the panel and smaller than it (what lies under a point is taken as it
    // is, also the null handle, whose rectangle is all zero).
    if (std::llabs(area.left) > std::llabs(rect.left) && width < panelWidth && height < panelHeight) return hit;
  }
  return 0;
}

WindowHandle RefineEdgeControl(int control) {
  const WindowHandle panel = RefineEdgePanel();
  if (!Windows().IsVisible(panel)) return 0;
  const std::wstring name = RefineEdgeName(control);
  if (name.empty()) return 0;
  const std::vector<WindowHandle> all = Descendants(panel, false);
  switch (SearchOf(control)) {
    case ControlSearch::kNone: return 0;
    case ControlSearch::kButton:
      for (const WindowHandle button : OfClass(all, kButtonClass, false)) {
        if (BeginsWith(Windows().TextOf(button), name)) return button;
      }
      return 0;
    case ControlSearch::kField: {
      WindowHandle label = 0;
      for (const WindowHandle window : OfClass(all, kStaticClass, false)) {
        if (BeginsWith(Windows().TextOf(window), name)) label = window;  // the last one counts
      }
      if (!Windows().IsVisible(label)) return 0;
      const WindowRect labelRect = RectOf(label);
      for (const WindowHandle window : all) {
        const std::wstring className = Windows().ClassOf(window);
        if (className != kEditClass && className != kComboBoxClass) continue;
        const int64_t middle = Middle(RectOf(window));
        if (middle > labelRect.top && middle < labelRect.bottom) return window;
      }
      return 0;
    }
  }
  return 0;
}

// ---- Cloud documents ----

WindowHandle CloudDocuments() {
  const WindowHandle dialog = Windows().FindTopLevel(kFloatClass, nullptr);
  if (dialog == 0) return 0;
  const std::vector<WindowHandle> shown = Descendants(dialog, true);
  const auto classAt = [&](size_t index) { return Windows().ClassOf(shown[index]); };
  if (shown.size() == 1 && classAt(0) == kViewClass) return dialog;
  if (shown.size() == 2 && classAt(0) == kViewClass && classAt(1) == kEditClass) return dialog;
  return 0;
}

}  // namespace ostrel::locator
