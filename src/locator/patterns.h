// The recurring searches of the window locator, over the platform's window tree: the window classes it knows,
// the main frame and its bars, the sorts of a list of windows by their place on the screen, the scan of a row
// by hit tests, the upward tests of a pop-up and of a docked panel, the fingerprint of a floating panel, and the
// reading of a field's text. Nothing is kept between calls: every rectangle and list is asked for when used.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/window_tree.h"

namespace ostrel::locator {

// Window classes.
inline constexpr wchar_t kPhotoshopClass[] = L"Photoshop";
inline constexpr wchar_t kApplicationBarClass[] = L"OWL.ApplicationBar";
inline constexpr wchar_t kMenuBarClass[] = L"OWL.MenuBar";
inline constexpr wchar_t kControlBarContainerClass[] = L"OWL.ControlBarContainer";
inline constexpr wchar_t kToolbarContainerClass[] = L"OWL.ToolbarContainer";
inline constexpr wchar_t kDockClass[] = L"OWL.Dock";
inline constexpr wchar_t kTabPaneClass[] = L"OWL.TabPane";
inline constexpr wchar_t kTabGroupClass[] = L"OWL.TabGroup";
inline constexpr wchar_t kPaletteClass[] = L"OWL.Palette";
inline constexpr wchar_t kDocumentClass[] = L"OWL.Document";
inline constexpr wchar_t kFrameDrawerClass[] = L"OWL.FrameDrawer";
inline constexpr wchar_t kViewClass[] = L"PSViewC";
inline constexpr wchar_t kFloatClass[] = L"PSFloatC";
inline constexpr wchar_t kEditClass[] = L"Edit";
inline constexpr wchar_t kStaticClass[] = L"Static";
inline constexpr wchar_t kButtonClass[] = L"Button";
inline constexpr wchar_t kComboBoxClass[] = L"ComboBox";
inline constexpr wchar_t kScrollBarClass[] = L"ScrollBar";

// The usual step of a row scan, in screen pixels (offsets never scale with a UI scale).
inline constexpr int32_t kScanStep = 30;
// The buffer of a field's text, in characters, and the smaller one of the scale field.
inline constexpr size_t kTextCapacity = 1024;
inline constexpr size_t kScaleTextCapacity = 64;

IWindowTree& Windows();

// The main frame, asked anew at each use.
WindowHandle MainFrame();
// The view that holds the tool options bar's controls, and the menu bar.
WindowHandle ToolOptionsBar();
WindowHandle MenuBar();
// The rectangle of a window, all zero for a null or vanished one.
WindowRect RectOf(WindowHandle window);
// All descendants of parent (or only the visible ones) in enumeration order; empty when the enumeration fails.
std::vector<WindowHandle> Descendants(WindowHandle parent, bool visibleOnly);

// Exchange sorts in place: for every i, for every j after it, the two windows now at i and j change places when
// the one at i compares strictly greater. Not stable; the control numbers of the tool options bar are those that
// this very procedure gives.
void SortWindowsByTopLeft(std::vector<WindowHandle>& windows);  // the top, on equal tops the left
void SortWindowsByTop(std::vector<WindowHandle>& windows);
void SortWindowsByLeft(std::vector<WindowHandle>& windows);

// The number of windows of a class in a list, the first of them (null for none), and whether one of the windows
// has exactly the title.
size_t CountClass(const std::vector<WindowHandle>& windows, const wchar_t* className);
WindowHandle FirstOfClass(const std::vector<WindowHandle>& windows, const wchar_t* className);
bool HasTitle(const std::vector<WindowHandle>& windows, const wchar_t* title);
// The window at a position of a list, null when the list is too short.
WindowHandle At(const std::vector<WindowHandle>& windows, size_t index);

// A window in a pop-up of the main frame: its parent is a PSFloatC whose parent is the main frame.
bool IsPopupChild(WindowHandle window);
// The same, and the window itself is a PSViewC.
bool IsPopupView(WindowHandle window);
// The view of a docked panel: a visible PSViewC, and above it OWL.Palette, OWL.TabGroup, OWL.TabPane, OWL.Dock and
// the main frame class, in that order.
bool IsDockedView(WindowHandle window);

// What a probe of a row scan tells: nothing (go on to the next probe), or the end of the scan with its result
// (null to give up).
using ProbeTest = std::function<std::optional<WindowHandle>(WindowHandle hit)>;
// Hit tests along the row y: x goes from startX by step, the first probe one step behind the start, a probe
// exactly on the limit made, none beyond it. Null when the limit is passed.
WindowHandle ScanRow(int32_t startX, int32_t y, int32_t step, int32_t limit, const ProbeTest& test);

// The first top-level OWL.FrameDrawer (with any title, or with the empty title), when it is visible, or merely
// there, as asked; null when there is none or it is hidden. The other frames are never looked at.
enum class FrameTitle { kAny, kEmpty };
enum class FrameShown { kVisible, kPresent };
WindowHandle FloatingFrame(FrameTitle title, FrameShown shown);
// A floating panel by its fingerprint: the frame above, whose descendants (all or the visible ones) pass the
// condition. The frame, or null.
using ListCondition = std::function<bool(const std::vector<WindowHandle>& descendants)>;
WindowHandle FrameFingerprint(FrameTitle title, FrameShown shown, bool visibleDescendants,
                              const ListCondition& condition);

// A window's text as WM_GETTEXT gives it into a buffer of capacity characters, and as a number by the leading
// digits (0 when it doesn't start with one).
std::wstring ReadWindowText(WindowHandle window, size_t capacity = kTextCapacity);
int ReadWindowInt(WindowHandle window, size_t capacity = kTextCapacity);
double ReadWindowDouble(WindowHandle window);

// The Photoshop version name the host gives ("Adobe Photoshop CC 2017", ..., "Adobe Photoshop 2021").
std::wstring VersionName();

}  // namespace ostrel::locator
