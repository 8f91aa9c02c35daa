// The docked layer panel, the canvas with its rulers and zoom field, and the page of the brush panel.
#include "locator/layer_panel.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "locator/handles.h"
#include "locator/patterns.h"
#include "ostrel/brush_colors.h"
#include "photoshop/action_manager.h"
#include "platform/text.h"

namespace ostrel::locator {
namespace {

// The layer panel shows exactly this many fields, labels, lists and scroll bars; its blend list and opacity
// field have fixed places among them once sorted.
constexpr size_t kLayerPanelControls = 9;
constexpr size_t kBlendControl = 1;
constexpr size_t kOpacityControl = 3;

// The zoom field's text is read into a buffer of this many characters when the zoom is wanted as a factor.
constexpr size_t kCanvasScaleTextCapacity = 128;
// At or below this factor the zoom counts as unknown and the canvas area is the whole canvas window.
constexpr double kSmallestScale = 0.0001;

bool IsLayerPanelControlClass(const std::wstring& className) {
  return className == kEditClass || className == kStaticClass || className == kComboBoxClass ||
         className == kScrollBarClass;
}

bool EqualsIgnoringCase(const std::wstring& text, const wchar_t* other) {
  const std::wstring_view wanted(other);
  if (text.size() != wanted.size()) return false;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto lower = [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c; };
    if (lower(text[i]) != lower(wanted[i])) return false;
  }
  return true;
}

// Whether the classes of the windows above window, from its parent outwards, are those of the chain.
template <size_t N>
bool HasAncestors(WindowHandle window, const wchar_t* const (&chain)[N]) {
  IWindowTree& windows = Windows();
  WindowHandle current = window;
  for (const wchar_t* className : chain) {
    current = windows.ParentOf(current);
    if (current == 0 || windows.ClassOf(current) != className) return false;
  }
  return true;
}

// A shown window of the class that stands directly in a document's view (PSViewC in OWL.Document).
bool IsInDocumentView(WindowHandle window, const wchar_t* className) {
  static constexpr const wchar_t* kChain[] = {kViewClass, kDocumentClass};
  IWindowTree& windows = Windows();
  return windows.IsVisible(window) && windows.ClassOf(window) == className && HasAncestors(window, kChain);
}

// The first of the main frame's descendants that passes test; null when there is none.
template <class Test>
WindowHandle FirstBelowMainFrame(Test test) {
  for (const WindowHandle window : Descendants(MainFrame(), false)) {
    if (test(window)) return window;
  }
  return 0;
}

// A rectangle side computed in wide numbers, kept within the range of a 32-bit long.
long ToLong(double value) {
  constexpr double kLowest = std::numeric_limits<int32_t>::min();
  constexpr double kHighest = std::numeric_limits<int32_t>::max();
  if (!(value >= kLowest)) return static_cast<long>(std::numeric_limits<int32_t>::min());
  if (value > kHighest) return static_cast<long>(std::numeric_limits<int32_t>::max());
  return static_cast<long>(value);
}

// The brush panel's pages that one label tells by itself.
struct PageLabel {
  const wchar_t* title;
  int page;
};
constexpr PageLabel kPageLabels[] = {
    {L"圆度抖动", 2}, {L"数量抖动", 4}, {L"深度抖动", 8}, {L"色相抖动", 32}, {L"湿度抖动", 64}, {L"压力", 128},
};
// Dual brush shows both of these; each alone is shown by other pages too.
constexpr wchar_t kDualBrushModeLabel[] = L"模式:   ";
constexpr wchar_t kDualBrushSpacingLabel[] = L"间距";
constexpr int kDualBrushPage = 16;
constexpr int kTipShapePage = 1;

}  // namespace

// ---- The layer panel ---------------------------------------------------------------------------------------------

WindowHandle FirstDockedView() { return FirstBelowMainFrame([](WindowHandle window) { return IsDockedView(window); }); }

WindowHandle LayerPanelGroup() {
  const WindowHandle view = FromHwnd(Ostrel_GetLayerPanelPSviewCWnd());
  return view == 0 ? 0 : Windows().ParentOf(Windows().ParentOf(view));
}

WindowHandle LayerPanelScrollBar() {
  const WindowHandle view = FromHwnd(Ostrel_GetLayerPanelPSviewCWnd());
  return view == 0 ? 0 : Windows().FindChild(view, kScrollBarClass);
}

bool LayerPanelControls(std::vector<WindowHandle>& controls) {
  if (Ostrel_IsLayerPanelVisible() == 0) return false;
  std::vector<WindowHandle> all;
  if (!Windows().GetDescendants(FromHwnd(Ostrel_GetLayerPanelWnd()), false, all)) return false;
  std::vector<WindowHandle> shown;
  for (const WindowHandle window : all) {
    if (IsLayerPanelControlClass(Windows().ClassOf(window)) && Windows().IsVisible(window)) shown.push_back(window);
  }
  if (shown.size() != kLayerPanelControls) return false;
  SortWindowsByTopLeft(shown);
  controls = std::move(shown);
  return true;
}

WindowHandle LayerPanelControl(LayerControl control) {
  std::vector<WindowHandle> controls;
  if (!LayerPanelControls(controls) || controls.size() != kLayerPanelControls) return 0;
  switch (control) {
    case LayerControl::kBlend: return controls[kBlendControl];
    case LayerControl::kOpacity: return controls[kOpacityControl];
    case LayerControl::kFillOpacity: break;
  }
  // The fill field has no fixed place: it is the last field of the panel.
  WindowHandle fill = 0;
  for (const WindowHandle window : controls) {
    if (EqualsIgnoringCase(Windows().ClassOf(window), kEditClass)) fill = window;
  }
  return fill;
}

// ---- The canvas --------------------------------------------------------------------------------------------------

WindowHandle CanvasRulers() {
  static constexpr const wchar_t* kChain[] = {kDocumentClass, kTabGroupClass, kTabPaneClass};
  return FirstBelowMainFrame([](WindowHandle window) {
    IWindowTree& windows = Windows();
    return windows.IsVisible(window) && windows.ClassOf(window) == kViewClass && HasAncestors(window, kChain);
  });
}

WindowHandle Canvas() {
  const WindowHandle label =
      FirstBelowMainFrame([](WindowHandle window) { return IsInDocumentView(window, kStaticClass); });
  return label != 0 ? label : FromHwnd(Ostrel_GetCanvasRulersWnd());
}

WindowHandle ScaleField() {
  return FirstBelowMainFrame([](WindowHandle window) { return IsInDocumentView(window, kEditClass); });
}

double Scale() {
  const WindowHandle field = FromHwnd(Ostrel_GetScaleWnd());
  if (!Windows().IsVisible(field)) return 100.0;
  return WToF(ReadWindowText(field, kScaleTextCapacity));
}

int SetScale(double percent) {
  const WindowHandle field = FromHwnd(Ostrel_GetScaleWnd());
  if (!Windows().IsVisible(field)) return 0;
  IWindowTree& windows = Windows();
  // What the messages answer isn't looked at: 1 says that they went out.
  windows.SetText(field, Format(L"%.02f", percent));
  windows.GiveFocus(field);
  windows.PressEnter(field);
  return 1;
}

int SetRulers() {
  const WindowHandle canvas = FromHwnd(Ostrel_GetCanvasWnd());
  const WindowHandle rulers = FromHwnd(Ostrel_GetCanvasRulersWnd());
  if (canvas == rulers) return 0;
  // With the rulers shown the canvas starts to the right of the vertical ruler, inside its view.
  if (RectOf(canvas).left != RectOf(rulers).left) return 0;
  am::MenuCommand(L"toggleRulers");
  return 1;
}

double CanvasScale() {
  std::vector<WindowHandle> all;
  if (!Windows().GetDescendants(Windows().FindTopLevel(L"photoshop", nullptr), false, all)) return 0.0;
  for (const WindowHandle window : all) {
    if (!IsInDocumentView(window, kEditClass)) continue;
    const std::wstring text = ReadWindowText(window, kCanvasScaleTextCapacity);
    if (text.empty()) continue;
    return WToF(text) / 100.0;
  }
  return 0.0;
}

tagRECT CanvasArea(const tagSIZE& size) {
  const tagRECT canvas = ToRect(RectOf(FromHwnd(Ostrel_GetCanvasWnd())));
  const double scale = Ostrel_GetCanvasScale();
  if (scale <= kSmallestScale) return canvas;
  const int64_t centreX = (int64_t{canvas.left} + canvas.right) / 2;
  const int64_t centreY = (int64_t{canvas.top} + canvas.bottom) / 2;
  // The half size is halved in whole pixels before it is scaled, so that for an odd size the picture isn't
  // quite symmetrical about the centre.
  const double left = static_cast<double>(centreX) - std::trunc(static_cast<double>(size.cx / 2) * scale);
  const double top = static_cast<double>(centreY) - std::trunc(static_cast<double>(size.cy / 2) * scale);
  const double width = std::trunc(static_cast<double>(size.cx) * scale);
  const double height = std::trunc(static_cast<double>(size.cy) * scale);
  if (width > static_cast<double>(int64_t{canvas.right} - canvas.left) ||
      height > static_cast<double>(int64_t{canvas.bottom} - canvas.top)) {
    return canvas;
  }
  return tagRECT{ToLong(left), ToLong(top), ToLong(left + width), ToLong(top + height)};
}

// ---- The brush panel ---------------------------------------------------------------------------------------------

int BrushPanelPage() {
  const WindowHandle panel = FromHwnd(Ostrel_GetBrushPanelWnd());
  if (!Windows().IsVisible(panel)) return -1;
  bool modeSeen = false, spacingSeen = false;
  for (const WindowHandle window : Descendants(panel, true)) {
    if (Windows().ClassOf(window) != kStaticClass) continue;
    const std::wstring title = Windows().TextOf(window);
    for (const PageLabel& label : kPageLabels) {
      if (title == label.title) return label.page;
    }
    modeSeen = modeSeen || title == kDualBrushModeLabel;
    spacingSeen = spacingSeen || title == kDualBrushSpacingLabel;
  }
  return modeSeen && spacingSeen ? kDualBrushPage : kTipShapePage;
}

}  // namespace ostrel::locator
