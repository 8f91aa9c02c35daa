// The pop-up pickers, found by scanning a row below the tool options bar and told apart by how many descendants
// the container of the hit holds; the floating panels, found by their fingerprint; and the gradient editor.
#include "locator/pickers.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

#include "locator/main_frame.h"
#include "locator/patterns.h"

namespace ostrel::locator {
namespace {

// Rows of the pop-up scans, below the top of the main frame or the bottom of the tool options bar.
constexpr int32_t kBelowBar = 100;
constexpr int32_t kFontListRow = 300;
constexpr int32_t kShapeColorRow = 200;
// The brush picker's scan: a wider step, and the limit half the main frame's right.
constexpr int32_t kBrushPickerStep = 65;
// The tool option pop-up's scan: its first row below the main frame's top, the distance between rows, and the
// screen row after which it gives up and asks the pop-up below the bar.
constexpr int32_t kToolOptionFirstRow = 50;
constexpr int32_t kToolOptionRowStep = 20;
constexpr int32_t kToolOptionLastRow = 130;
constexpr int kToolOptionMaxEdits = 4;

// The descendants of the container of a hit: all of them, or only the visible ones.
std::vector<WindowHandle> ContainerList(WindowHandle hit, bool visibleOnly) {
  return Descendants(Windows().ParentOf(hit), visibleOnly);
}

int32_t BelowBar() { return RectOf(ToolOptionsBar()).bottom + kBelowBar; }

// A scan from the main frame's left to its right along row y: the hit passes when the container of the hit has
// count descendants and the hit passes the test; the result is the hit, or its container.
WindowHandle ScanForPopup(int32_t y, size_t count, bool countVisible, bool (*test)(WindowHandle),
                          bool giveContainer = false) {
  const WindowRect frame = RectOf(MainFrame());
  return ScanRow(frame.left, y, kScanStep, frame.right, [&](WindowHandle hit) -> std::optional<WindowHandle> {
    if (ContainerList(hit, countVisible).size() != count || !test(hit)) return std::nullopt;
    return giveContainer ? Windows().ParentOf(hit) : hit;
  });
}

WindowHandle FirstVisibleScrollBar(WindowHandle window) {
  if (window == 0) return 0;
  return FirstOfClass(Descendants(window, true), kScrollBarClass);
}

WindowHandle DirectScrollBar(WindowHandle window) {
  if (window == 0) return 0;
  return Windows().FindChild(window, kScrollBarClass);
}

bool OneOf(size_t value, std::initializer_list<size_t> allowed) {
  return std::find(allowed.begin(), allowed.end(), value) != allowed.end();
}

// The number in a field of the gradient editor: -1 for an empty field.
int FieldNumber(WindowHandle field) {
  const std::wstring text = ReadWindowText(field);
  return text.empty() ? -1 : ReadWindowInt(field);
}

// The gradient editor's opacity stop fields: control `index` of its 37 descendants, from the top left.
int OpacityStopField(size_t index) {
  constexpr size_t kEditorWindows = 37;
  const WindowHandle editor = GradientEditor();
  if (!Windows().IsVisible(editor)) return 0;
  std::vector<WindowHandle> list = Descendants(editor, false);
  if (list.size() != kEditorWindows) return 0;
  SortWindowsByTopLeft(list);
  return FieldNumber(list[index]);
}

}  // namespace

WindowHandle BrushPicker() {
  const WindowRect frame = RectOf(MainFrame());
  const int32_t y = BelowBar();
  const int32_t limit = frame.right / 2;
  // The limit is tested before the step: the last probe may lie up to one step beyond it.
  for (int64_t x = frame.left; x <= limit;) {
    x += kBrushPickerStep;
    const WindowHandle hit = Windows().WindowAt(static_cast<int32_t>(x), y);
    if (IsPopupView(hit)) return hit;
  }
  return 0;
}

WindowHandle BrushPickerScrollBar() { return DirectScrollBar(BrushPicker()); }

WindowHandle ListPicker() { return ScanForPopup(BelowBar(), 2, false, IsPopupChild); }

WindowHandle ListPickerScrollBar() { return DirectScrollBar(ListPicker()); }

WindowHandle ColorPicker() { return ScanForPopup(BelowBar(), 19, false, IsPopupChild); }

WindowHandle StrokeStylePopup() {
  constexpr size_t kWindows = 10, kComboBoxes = 3;
  const WindowRect frame = RectOf(MainFrame());
  return ScanRow(frame.left, BelowBar(), kScanStep, frame.right, [&](WindowHandle hit) -> std::optional<WindowHandle> {
    const std::vector<WindowHandle> list = ContainerList(hit, false);
    if (list.size() != kWindows) return std::nullopt;
    if (CountClass(list, kComboBoxClass) != kComboBoxes) return WindowHandle{0};  // ends the search
    if (IsPopupChild(hit)) return hit;
    return std::nullopt;
  });
}

WindowHandle FontNameList() {
  return ScanForPopup(RectOf(MainFrame()).top + kFontListRow, 5, false, IsPopupView, true);
}

WindowHandle ShapeColorPopup() { return ScanForPopup(RectOf(MainFrame()).top + kShapeColorRow, 3, true, IsPopupView); }

WindowHandle ShapeGradientPopup() { return ScanForPopup(BelowBar(), 12, true, IsPopupView); }

WindowHandle ShapeGradientScrollBar() { return FirstVisibleScrollBar(ShapeGradientPopup()); }

WindowHandle ShapePatternPopup() { return ScanForPopup(BelowBar(), 6, true, IsPopupView); }

WindowHandle ToolOptionPopup() {
  const WindowRect frame = RectOf(MainFrame());
  int64_t x = frame.left;
  int64_t y = int64_t{frame.top} + kToolOptionFirstRow;
  for (;;) {
    x += kScanStep;
    if (x > frame.right) {
      if (y > kToolOptionLastRow) return ToolBarPanel();
      x = frame.left;  // the next row starts at the left itself
      y += kToolOptionRowStep;
    }
    const WindowHandle hit = Windows().WindowAt(static_cast<int32_t>(x), static_cast<int32_t>(y));
    const std::vector<WindowHandle> list = ContainerList(hit, false);
    if (!OneOf(list.size(), {1, 8, 9, 10})) continue;
    if (CountClass(list, kEditClass) > kToolOptionMaxEdits) return 0;
    if (IsPopupView(hit)) return hit;
  }
}

WindowHandle ShapePatternScaleField() {
  const WindowHandle popup = ShapePatternPopup();
  if (popup == 0) return 0;
  return FirstOfClass(Descendants(popup, true), kEditClass);
}

int ShapePatternScale() {
  const WindowHandle field = ShapePatternScaleField();
  return field == 0 ? -1 : ReadWindowInt(field);
}

WindowHandle ShapeColorPanel() {
  for (WindowHandle (*find)() : {ShapeColorPopup, ShapeGradientPopup, ShapePatternPopup}) {
    if (const WindowHandle popup = find()) return popup;
  }
  return 0;
}

int ShapeColorPanelKind() {
  if (ShapeColorPopup() != 0) return 1;
  if (ShapeGradientPopup() != 0) return 2;
  if (ShapePatternPopup() != 0) return 3;
  return -1;
}

int IsShapeColorFillPanel(WindowHandle popup) {
  if (!Windows().IsVisible(popup)) return 0;
  std::vector<WindowHandle> controls;
  if (ToolOptionsBarControls(controls) == 0) return 0;
  const WindowHandle comboBox = FirstOfClass(controls, kComboBoxClass);
  if (comboBox == 0) return 0;
  const WindowRect c = RectOf(comboBox);
  const WindowRect p = RectOf(popup);
  const bool fill = c.right > 5 && p.left <= c.right && p.left <= c.left + (c.right - c.left) / 2;
  return fill ? 1 : 0;
}

WindowHandle SourcePanel() {
  return FrameFingerprint(FrameTitle::kAny, FrameShown::kVisible, false,
                          [](const std::vector<WindowHandle>& list) { return list.size() == 23; });
}

WindowHandle BrushPanel() {
  return FrameFingerprint(FrameTitle::kAny, FrameShown::kVisible, false, [](const std::vector<WindowHandle>& list) {
    if (list.size() < 157 || list.size() > 160) return false;
    const auto visible = std::count_if(list.begin(), list.end(), [](WindowHandle w) { return Windows().IsVisible(w); });
    return visible >= 10;
  });
}

WindowHandle BrushPresetPanel() {
  return FrameFingerprint(FrameTitle::kAny, FrameShown::kVisible, true, [](const std::vector<WindowHandle>& list) {
    return std::any_of(list.begin(), list.end(), [](WindowHandle w) {
      return Windows().ClassOf(w) == kButtonClass && Windows().TextOf(w) == L"画笔预设";
    });
  });
}

WindowHandle CharacterPanel() {
  return FrameFingerprint(FrameTitle::kAny, FrameShown::kVisible, true, [](const std::vector<WindowHandle>& list) {
    return OneOf(list.size(), {16, 17}) && CountClass(list, kEditClass) == 10 && HasTitle(list, L"颜色:");
  });
}

WindowHandle ParagraphPanel() {
  return FrameFingerprint(FrameTitle::kAny, FrameShown::kVisible, true, [](const std::vector<WindowHandle>& list) {
    return list.size() == 23 && CountClass(list, kEditClass) == 15 && HasTitle(list, L"避头尾法则设置:") &&
           HasTitle(list, L"间距组合设置:");
  });
}

WindowHandle CloneSourcePanel() {
  return FrameFingerprint(FrameTitle::kEmpty, FrameShown::kPresent, true, [](const std::vector<WindowHandle>& list) {
    return list.size() == 22 && CountClass(list, kStaticClass) == 11 && CountClass(list, kEditClass) == 7;
  });
}

WindowHandle HistoryPanel() {
  return FrameFingerprint(FrameTitle::kEmpty, FrameShown::kPresent, true,
                          [](const std::vector<WindowHandle>& list) { return list.size() == 5; });
}

WindowHandle GradientEditor() {
  static const std::wstring kTitle = L"渐变编辑器";
  return Windows().FindTopLevel(kFloatClass, &kTitle);
}

WindowHandle GradientEditorScrollBar() { return FirstVisibleScrollBar(GradientEditor()); }

int StopColorPosition() {
  constexpr size_t kFieldEdit = 5;  // the fifth Edit from the top left
  const WindowHandle editor = GradientEditor();
  if (!Windows().IsVisible(editor)) return 0;
  std::vector<WindowHandle> list = Descendants(editor, false);
  SortWindowsByTopLeft(list);
  size_t edits = 0;
  for (const WindowHandle window : list) {
    if (Windows().ClassOf(window) == kEditClass && ++edits == kFieldEdit) return FieldNumber(window);
  }
  return -1;
}

int OpacityStopPosition() { return OpacityStopField(19); }

int OpacityStopValue() { return OpacityStopField(16); }

}  // namespace ostrel::locator
