// The docked layer panel and its blend, opacity and fill controls, the canvas of the current document with its
// rulers and zoom field, the zoom as a factor and the screen rectangle a picture takes on the canvas, and the page
// that the floating brush panel shows. All of them ask the window tree; the three layer controls also ask
// Photoshop whether the layer panel is shown, and Ostrel_SetRulers gives Photoshop a menu command.
#pragma once

#include "ostrel/documents.h"
#include "ostrel/export.h"
#include "ostrel/filters.h"
#include "ostrel/window_locator.h"

// ---- The layer panel ----

// The tab group that holds the first shown docked panel (the layer panel in Photoshop's layout), its view, and
// the view's scroll bar; null when there is none.
OSTREL_API HWND Ostrel_GetLayerPanelWnd() noexcept;
OSTREL_API HWND Ostrel_GetLayerPanelPSviewCWnd() noexcept;
OSTREL_API HWND Ostrel_GetLayerPanelScrollBarWnd() noexcept;
// The blend mode, opacity and fill opacity controls of the layer panel. Null when not connected, when Photoshop
// says the layer panel isn't shown, and when the panel doesn't show exactly 9 fields, labels, lists and scroll
// bars.
OSTREL_API HWND Ostrel_GetLayerBlendWnd() noexcept;
OSTREL_API HWND Ostrel_GetLayerOpacityWnd() noexcept;
OSTREL_API HWND Ostrel_GetLayerFillOpacityWnd() noexcept;

// ---- The canvas ----

// The canvas of the first shown document, the document's view that holds it with its rulers, and the zoom field
// below it; null when no document is shown.
OSTREL_API HWND Ostrel_GetCanvasWnd() noexcept;
OSTREL_API HWND Ostrel_GetCanvasRulersWnd() noexcept;
OSTREL_API HWND Ostrel_GetScaleWnd() noexcept;
// The zoom in percent as the zoom field reads ("66.67%" gives 66.67); 100.0 when the field isn't shown.
OSTREL_API double Ostrel_GetScale() noexcept;
// Types the zoom (with two decimals) into the zoom field and presses Enter. 1 when the messages went out, 0 when
// the field isn't shown.
OSTREL_API int Ostrel_SetScale(double dScale) noexcept;
// Shows the rulers when they are off (the canvas then starts where its view starts). 1 when this call switched
// them on, 0 when they were on already, when there is no canvas, when not connected and when the command failed.
OSTREL_API int Ostrel_SetRulers() noexcept;
// The zoom as a factor (1.0 is 100 %) from the first shown zoom field with a text; 0.0 when there is none.
OSTREL_API double Ostrel_GetCanvasScale() noexcept;
// Where a picture of size pixels stands on the screen, centred in the canvas at the present zoom; the canvas
// window's whole rectangle when it doesn't fit or the zoom can't be read (all zero without a canvas).
OSTREL_API tagRECT Ostrel_GetCanvasArea(tagSIZE size) noexcept;

// ---- The brush panel ----

// The page the floating brush panel shows, told by its labels: 2, 4, 8, 32, 64, 128 by a label of that page,
// 16 for dual brush, 1 when the labels tell none of these; -1 when the brush panel isn't shown.
OSTREL_API EnBrushPreset Ostrel_GetCurrentBrushPresetPanel() noexcept;
