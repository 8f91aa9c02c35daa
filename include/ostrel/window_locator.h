// The window locator: Photoshop's main frame and its bars, the pop-up pickers of the tool options bar, the
// floating panels, the gradient editor and the controls of the tool options bar, found from the outside in the
// live window tree (class, title, walks up and down, counts of children, positions, hit tests). Nothing is kept:
// each call looks again, and a handle is good only until Photoshop rearranges its windows. None of these needs
// a connection to Photoshop, and none writes to the log. A window that isn't there gives the null handle.
#pragma once

#include <string>
#include <vector>

#include "ostrel/export.h"
#include "ostrel/filters.h"
#include "ostrel/tool_options.h"

// Window handles and rectangles as Windows has them. A Windows host that links the DLL gets the system's own
// definitions from <windows.h>, and so does code that included <windows.h> before; everywhere else these stand,
// with the same names and layout (the library itself is built without <windows.h>).
#if defined(_WIN32) && !defined(OSTREL_BUILDING) && !defined(OSTREL_STATIC)
#include <windows.h>
#elif !defined(_WINDEF_)
struct HWND__ {
  int unused;
};
typedef HWND__* HWND;
struct tagRECT {
  long left;
  long top;
  long right;
  long bottom;
};
#endif

// ---- The main frame ----

// The main frame (the top-level window of class "Photoshop").
OSTREL_API HWND Ostrel_GetPhotoshopWnd() noexcept;
// The main frame's rectangle in screen pixels; all zero when the main frame is missing or hidden.
OSTREL_API tagRECT Ostrel_GetPhotoshopRect() noexcept;
OSTREL_API HWND Ostrel_GetPhotoshopMenuBarWnd() noexcept;
// The view that holds the tool options bar's controls.
OSTREL_API HWND Ostrel_GetToolFeaturesBarWnd() noexcept;
OSTREL_API HWND Ostrel_GetToolBarWnd() noexcept;
// The view of the pop-up that hangs below the tool options bar.
OSTREL_API HWND Ostrel_GetToolBarPanel() noexcept;
// The tab group that holds the documents (not a document itself).
OSTREL_API HWND Ostrel_GetDocumentWnd() noexcept;
// The controls of the tool options bar, from left to right, into vecWnd (emptied first). 1 if there are any,
// else 0.
OSTREL_API int Ostrel_GetToolFeaturesBarChildWnd(std::vector<HWND>& vecWnd) noexcept;

// ---- Pop-up pickers of the tool options bar ----

OSTREL_API HWND Ostrel_GetBrushPickerWnd() noexcept;
OSTREL_API HWND Ostrel_GetBrushPickerScrollBarWnd() noexcept;
// The list pop-up of shapes, gradients or patterns: one window under three names, and its scroll bar.
OSTREL_API HWND Ostrel_GetShapePickerWnd() noexcept;
OSTREL_API HWND Ostrel_GetGradualPickerWnd() noexcept;
OSTREL_API HWND Ostrel_GetPatternPickerWnd() noexcept;
OSTREL_API HWND Ostrel_GetShapePickerScrollBarWnd() noexcept;
OSTREL_API HWND Ostrel_GetGradualPickerScrollBarWnd() noexcept;
OSTREL_API HWND Ostrel_GetPatternPickerScrollBarWnd() noexcept;
OSTREL_API HWND Ostrel_GetColorPickerWnd() noexcept;
// The pop-up of a tool's further options (the gear of the shape and pen tools).
OSTREL_API HWND Ostrel_GetToolOptionWnd() noexcept;
OSTREL_API HWND Ostrel_GetStrokeStyleWnd() noexcept;
// The font list: its container (PSFloatC), not its view.
OSTREL_API HWND Ostrel_GetFontNameListWnd() noexcept;
// The solid colour, gradient and pattern pop-ups of a shape's fill or stroke.
OSTREL_API HWND Ostrel_GetShapeColorWnd() noexcept;
OSTREL_API HWND Ostrel_GetShapeGradualWnd() noexcept;
OSTREL_API HWND Ostrel_GetShapeGraduaScrollBarWnd() noexcept;
OSTREL_API HWND Ostrel_GetShapePatternWnd() noexcept;
// The scale field of the shape's pattern pop-up.
OSTREL_API HWND OSTREL_GetShapePatternScaleWnd() noexcept;
// Whichever of the three shape pop-ups is open (solid colour first), and which one it is: 1 solid colour,
// 2 gradient, 3 pattern, -1 none.
OSTREL_API HWND Ostrel_GetShapeColorPanelWnd() noexcept;
OSTREL_API EnShapeColorPanel OSTREL_GetShapeColorPanel() noexcept;
// 1 if the pop-up hWnd lies under the fill's colour control of the tool options bar, else 0.
OSTREL_API int Ostrel_IsShapeColorFillPanelWnd(HWND hWnd) noexcept;
// The scale in the shape's pattern pop-up; -1 when there is none.
OSTREL_API int Ostrel_GetShapePatternScale() noexcept;

// ---- Floating panels and the gradient editor ----

OSTREL_API HWND Ostrel_GetSourcePanelWnd() noexcept;
OSTREL_API HWND Ostrel_GetBrushPanelWnd() noexcept;
OSTREL_API HWND Ostrel_GetBrushPresetPanelWnd() noexcept;
OSTREL_API HWND Ostrel_GetCharacterPanelWnd() noexcept;
OSTREL_API HWND Ostrel_GetParagraphPanelWnd() noexcept;
OSTREL_API HWND Ostrel_GetCloneSourceWnd() noexcept;
OSTREL_API HWND Ostrel_GetHistoryWnd() noexcept;
OSTREL_API HWND Ostrel_GetGradualEditWnd() noexcept;
OSTREL_API HWND Ostrel_GetGradualEditScrollBarWnd() noexcept;
// The gradient editor's colour stop position, opacity stop position and opacity: the number in the field, -1
// when the field is empty; 0 when the editor is hidden or (for the opacity stop) isn't laid out as expected.
OSTREL_API int Ostrel_GetStopColorPos() noexcept;
OSTREL_API int Ostrel_GetOpacityStopColorPos() noexcept;
OSTREL_API int Ostrel_GetOpacityStopColorValue() noexcept;

// ---- Controls of the tool options bar ----

// The control of an option of the current tool in the tool options bar; strValue picks one of several
// controls that share an option (read as a whole number).
OSTREL_API HWND Ostrel_GetToolFeaturesControlWnd(unsigned int nID, std::wstring strValue) noexcept;
// A field of the brush picker, of the stroke style pop-up, and of a tool's further options pop-up.
OSTREL_API HWND Ostrel_GetBrushPicketControlWnd(EnToolFeatures nID) noexcept;
OSTREL_API HWND Ostrel_GetStrokeStyleControlWnd(EnToolFeatures nID) noexcept;
OSTREL_API HWND Ostrel_GetOptionControlWnd(EnToolFeatures nID, std::wstring strValue) noexcept;
// What the type tools' options bar shows: font name (trailing blanks cut), style, size, anti-aliasing; "", 0.0
// or -1 when the bar isn't the type tools' bar.
OSTREL_API std::wstring Ostrel_GetFontName() noexcept;
OSTREL_API std::wstring Ostrel_GetFontStyle() noexcept;
OSTREL_API double Ostrel_GetFontSize() noexcept;
OSTREL_API EnFontAntiAlias Ostrel_GetFontAntiAlias() noexcept;
// 1 if the tool options bar shows the free transform fields, else 0.
OSTREL_API int Ostrel_IsFreeTransf() noexcept;
// The seven free transform fields, and the numbers in them (0.0 when the field isn't there).
OSTREL_API HWND Ostrel_GetFreeTransfHorizontalPosWnd() noexcept;
OSTREL_API HWND Ostrel_GetFreeTransfVerticalPosWnd() noexcept;
OSTREL_API HWND Ostrel_GetFreeTransfHorizontalScaleWnd() noexcept;
OSTREL_API HWND Ostrel_GetFreeTransfVerticalScaleWnd() noexcept;
OSTREL_API HWND Ostrel_GetFreeTransfRotateWnd() noexcept;
OSTREL_API HWND Ostrel_GetFreeTransfHorizontalAngleCuttingWnd() noexcept;
OSTREL_API HWND Ostrel_GetFreeTransfVerticalAngleCuttingWnd() noexcept;
OSTREL_API double Ostrel_GetFreeTransfHorizontalPos() noexcept;
OSTREL_API double Ostrel_GetFreeTransfVerticalPos() noexcept;
OSTREL_API double Ostrel_GetFreeTransfHorizontalScale() noexcept;
OSTREL_API double Ostrel_GetFreeTransfVerticalScale() noexcept;
OSTREL_API double Ostrel_GetFreeTransfRotate() noexcept;
OSTREL_API double Ostrel_GetFreeTransfHorizontalAngleCutting() noexcept;
OSTREL_API double Ostrel_GetFreeTransfVerticalAngleCutting() noexcept;
