// The screen mode: the known layouts as a table of rows, walked from the top, and the coarser second test.
#include "locator/screen_mode.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>

#include "frame/log.h"
#include "locator/main_frame.h"
#include "photoshop/action_manager.h"
#include "platform/automation.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel::locator {
namespace {

// ---- The layout table's cells ----------------------------------------------------------------------------------

// What a bound is measured from: nothing, a side of the main frame, or the screen's width or height.
enum class Base : uint8_t { kZero, kFrameLeft, kFrameTop, kFrameRight, kFrameBottom, kScreenWidth, kScreenHeight };

// A bound: its base, a fixed offset in pixels and any of the three bar sizes added.
struct Bound {
  Base base = Base::kZero;
  int32_t offset = 0;
  bool toolBar = false, toolOptionsBar = false, menuBar = false;
};
enum class Bar : uint8_t { kToolBar, kToolOptionsBar, kMenuBar };

constexpr Bound operator+(Bound bound, int32_t pixels) {
  bound.offset += pixels;
  return bound;
}
constexpr Bound operator-(Bound bound, int32_t pixels) {
  bound.offset -= pixels;
  return bound;
}
constexpr Bound operator+(Bound bound, Bar bar) {
  (bar == Bar::kToolBar ? bound.toolBar : bar == Bar::kToolOptionsBar ? bound.toolOptionsBar : bound.menuBar) = true;
  return bound;
}

// The names the rows are written in: the main frame's sides, the screen's size and the bar sizes.
constexpr Bound Zero{Base::kZero};
constexpr Bound ML{Base::kFrameLeft}, MT{Base::kFrameTop}, MR{Base::kFrameRight}, MB{Base::kFrameBottom};
constexpr Bound W{Base::kScreenWidth}, H{Base::kScreenHeight};
constexpr Bar tb = Bar::kToolBar, ob = Bar::kToolOptionsBar, mb = Bar::kMenuBar;

// What one side of the document area must be.
enum class Test : uint8_t { kAny, kIs, kAtLeast, kMoreThan, kWithinOne, kBetween };
struct Cell {
  Test test = Test::kAny;
  Bound low, high;
};
constexpr Cell Any{};
constexpr Cell Is(Bound value) { return {Test::kIs, value, value}; }
constexpr Cell AtLeast(Bound value) { return {Test::kAtLeast, value, value}; }
constexpr Cell MoreThan(Bound value) { return {Test::kMoreThan, value, value}; }
// value - 1, value or value + 1.
constexpr Cell WithinOne(Bound value) { return {Test::kWithinOne, value, value}; }
// More than low and less than high.
constexpr Cell Between(Bound low, Bound high) { return {Test::kBetween, low, high}; }

// What the area's width (R - L) and height (B - T) must be beside the four sides.
enum class Span : uint8_t { kAny, kWidthIsScreen, kWidthIsNotScreen, kNeitherIsScreen, kBothAreScreen };

struct Layout {
  int mode;
  Cell left, top, right, bottom;
  Span span;
};

// The known layouts, in the order they are tried: the first row that the area fits gives the mode. The general
// rows of modes 0, 1 and 2 stand ahead of the exact rows of modes 3 and 4.
constexpr Layout kLayouts[] = {
    // mode  L                          T                                R              B            R - L, B - T
    {0, Is(ML + 44),                  Is(MT + 66),                     Is(MR - 291),  Is(MB - 4),  Span::kAny},
    {0, Is(ML + 44),                  Is(MT + 64),                     Is(MR - 290),  Is(MB - 4),  Span::kAny},
    {0, Is(ML + 48),                  Is(MT + 70),                     Is(MR - 295),  Is(MB - 8),  Span::kAny},
    {0, Is(ML + 49),                  Is(MT + 71),                     Is(MR - 296),  Is(MB - 9),  Span::kAny},
    {0, Is(ML + 48),                  Is(MT + 68),                     Is(MR - 294),  Is(MB - 8),  Span::kAny},
    {0, AtLeast(ML + tb),             AtLeast(MT + ob + mb),           Any,           Any,         Span::kNeitherIsScreen},
    {1, Is(Zero),                     Is(Zero + 59),                   Is(W),         Is(H),       Span::kAny},
    {1, Is(Zero),                     Is(Zero + 57),                   Is(W),         Is(H),       Span::kAny},
    {1, WithinOne(Zero),              MoreThan(MT + ob + mb),          Any,           Any,         Span::kWidthIsScreen},
    {2, Is(Zero),                     Is(Zero),                        Is(W),         Is(H),       Span::kAny},
    {2, Any,                          Any,                             Any,           Any,         Span::kBothAreScreen},
    {3, Is(ML + 18),                  Is(MT + 36),                     Is(MR - 18),   Is(MB - 8),  Span::kAny},
    {3, Is(ML + 19),                  Is(MT + 37),                     Is(MR - 19),   Is(MB - 9),  Span::kAny},
    {3, Is(ML + 18),                  Is(MT + 32),                     Is(MR - 18),   Is(MB - 8),  Span::kAny},
    {3, Is(ML + 8),                   Is(MT + 36),                     Is(MR - 8),    Is(MB - 8),  Span::kAny},
    {3, Is(ML + 14),                  Is(MT + 32),                     Is(MR - 14),   Is(MB - 4),  Span::kAny},
    {3, Is(ML + 4),                   Is(MT + 32),                     Is(MR - 4),    Is(MB - 4),  Span::kAny},
    {3, Between(Zero + 2, ML + tb),   MoreThan(MT + mb),               Any,           Any,         Span::kWidthIsNotScreen},
    {4, Is(Zero),                     Is(Zero + 25),                   Is(W),         Is(H),       Span::kAny},
    {4, Is(Zero),                     Is(Zero + 21),                   Is(W),         Is(H),       Span::kAny},
    {4, WithinOne(Zero),              Between(MT + mb, MT + mb + ob),  Any,           Any,         Span::kWidthIsScreen},
};
static_assert(std::size(kLayouts) == 21);

// ---- Evaluating a row ------------------------------------------------------------------------------------------

// Sums in 64 bits: the sides are any 32-bit numbers, and a frame at the edge of the range must not overflow.
int64_t ValueOf(const Bound& bound, const ScreenGeometry& g) {
  int64_t value = bound.offset;
  switch (bound.base) {
    case Base::kZero: break;
    case Base::kFrameLeft: value += g.frame.left; break;
    case Base::kFrameTop: value += g.frame.top; break;
    case Base::kFrameRight: value += g.frame.right; break;
    case Base::kFrameBottom: value += g.frame.bottom; break;
    case Base::kScreenWidth: value += g.screenWidth; break;
    case Base::kScreenHeight: value += g.screenHeight; break;
  }
  if (bound.toolBar) value += g.bars.toolBar;
  if (bound.toolOptionsBar) value += g.bars.toolOptionsBar;
  if (bound.menuBar) value += g.bars.menuBar;
  return value;
}

bool Holds(const Cell& cell, int64_t side, const ScreenGeometry& g) {
  const int64_t low = ValueOf(cell.low, g);
  switch (cell.test) {
    case Test::kAny: return true;
    case Test::kIs: return side == low;
    case Test::kAtLeast: return side >= low;
    case Test::kMoreThan: return side > low;
    case Test::kWithinOne: return side >= low - 1 && side <= low + 1;
    case Test::kBetween: return side > low && side < ValueOf(cell.high, g);
  }
  return false;
}

bool Holds(Span span, const ScreenGeometry& g) {
  const bool width = int64_t{g.area.right} - g.area.left == g.screenWidth;
  const bool height = int64_t{g.area.bottom} - g.area.top == g.screenHeight;
  switch (span) {
    case Span::kAny: return true;
    case Span::kWidthIsScreen: return width;
    case Span::kWidthIsNotScreen: return !width;
    case Span::kNeitherIsScreen: return !width && !height;
    case Span::kBothAreScreen: return width && height;
  }
  return false;
}

bool Fits(const Layout& row, const ScreenGeometry& g) {
  return Holds(row.left, g.area.left, g) && Holds(row.top, g.area.top, g) && Holds(row.right, g.area.right, g) &&
         Holds(row.bottom, g.area.bottom, g) && Holds(row.span, g);
}

// ---- Reading -----------------------------------------------------------------------------------------------------

// A side of the document area: the double cut toward zero, held inside 32 bits (NaN reads as 0).
int32_t Side(double value) {
  if (std::isnan(value)) return 0;
  const double cut = std::trunc(value);
  if (cut <= static_cast<double>(std::numeric_limits<int32_t>::min())) return std::numeric_limits<int32_t>::min();
  if (cut >= static_cast<double>(std::numeric_limits<int32_t>::max())) return std::numeric_limits<int32_t>::max();
  return static_cast<int32_t>(cut);
}

// The application's documentArea: an object of the doubles left, top, right and bottom.
WindowRect ReadDocumentArea() {
  const COleDispatchDriver application = am::ReadApplicationKey(L"documentArea");
  const COleDispatchDriver area = am::GetObjectValue(application, am::StringId(L"documentArea"));
  WindowRect sides;
  sides.left = Side(am::GetDouble(area, am::StringId(L"left")));
  sides.top = Side(am::GetDouble(area, am::StringId(L"top")));
  sides.right = Side(am::GetDouble(area, am::StringId(L"right")));
  sides.bottom = Side(am::GetDouble(area, am::StringId(L"bottom")));
  return sides;
}

constexpr wchar_t kLogPattern[] =
    L"\n 屏幕模式：_sizeScreen:%d,%d,\n _rcPhotoshop:%d,%d,%d,%d,\n _rcDocumentArea:%d,%d,%d,%d\n";

}  // namespace

BarSizes ReadBarSizes() {
  BarSizes sizes;
  const std::wstring file = CurrentPlatform().parameters->GetString(EnTallyKey::kBarSizesFile);
  if (file.empty()) return sizes;
  IIniStore& ini = *CurrentPlatform().ini;
  const auto read = [&](const wchar_t* key, int32_t& size) {
    const std::optional<std::wstring> text = ini.GetString(file, L"Photoshop", key);
    const int value = text ? WToI(*text) : 0;
    if (value > 0) size = value;
  };
  read(L"MenuBarHeight", sizes.menuBar);
  read(L"ToolFeaturesBarHeight", sizes.toolOptionsBar);
  read(L"ToolBarWidth", sizes.toolBar);
  return sizes;
}

int LayoutRowOf(const ScreenGeometry& geometry) {
  for (size_t row = 0; row < std::size(kLayouts); ++row) {
    if (Fits(kLayouts[row], geometry)) return static_cast<int>(row);
  }
  return -1;
}

int ModeOfLayout(const ScreenGeometry& geometry) {
  const int row = LayoutRowOf(geometry);
  return row < 0 ? -1 : kLayouts[row].mode;
}

int ModeOfCorner(int32_t left, int32_t top, const WindowRect& frame) {
  const int64_t m = frame.left < 1 ? 0 : frame.left;
  const int64_t t = frame.left < 1 ? 0 : frame.top;
  const int64_t l = left, y = top;
  if (l >= m + 40 && y >= t + 59) return 0;
  if (l == m && y >= t + 56) return 1;
  if ((l == m || l == m + 1) && (y == t || y == t - 1)) return 2;
  if (l >= m + 10 && l < m + 40 && y >= t + 23 && y < t + 59) return 3;
  if (l == m && y > t + 19 && y < t + 56) return 4;
  return -1;
}

int ScreenMode() {
  std::optional<WindowRect> area;
  try {
    area = ReadDocumentArea();
  } catch (const AutomationError&) {
    area.reset();  // Photoshop refused: the second test decides
  }
  if (area) {
    ScreenGeometry geometry;
    geometry.area = *area;
    CurrentPlatform().screen->ScreenSize(geometry.screenWidth, geometry.screenHeight);
    geometry.frame = PhotoshopRect();
    const WindowRect& a = geometry.area;
    const WindowRect& f = geometry.frame;
    TheLog().Write(kLogPattern, geometry.screenWidth, geometry.screenHeight, f.left, f.top, f.right, f.bottom, a.left,
                   a.top, a.right, a.bottom);
    geometry.bars = ReadBarSizes();
    const int mode = ModeOfLayout(geometry);
    if (mode != -1) return mode;
  }
  const WindowRect again = ReadDocumentArea();
  return ModeOfCorner(again.left, again.top, PhotoshopRect());
}

}  // namespace ostrel::locator
