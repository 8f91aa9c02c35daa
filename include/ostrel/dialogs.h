// The dialog and filter windows: the layer style dialog and its sub-windows, the adjustment panel and the fill
// pop-ups of an adjustment layer, the New dialog, the file dialogs of Windows (Save As, Open, Place, Replace), the
// gradient editor's name, the filter gallery, Liquify, Refine Edge and the cloud documents dialog. They are found
// from the outside by a title compared as a whole (Photoshop's Chinese interface), then the control is taken from
// their descendants by class, by order or by place on the screen. None of these needs a connection to Photoshop;
// a window that isn't there gives the null handle, and a value its stated default.
#pragma once

#include <cstdint>
#include <string>

#include "ostrel/export.h"
#include "ostrel/filters.h"
#include "ostrel/layers.h"
#include "ostrel/window_locator.h"

// ---- The layer style dialog ----

// The page of the layer style dialog that is open, told by how many windows it shows (a page with "叠印" is the
// stroke page, 64); -1 when the dialog isn't open or the count is unknown.
OSTREL_API EnLayerStyle Ostrel_GetCurrentLayerStylePanel() noexcept;
// The layer style dialog; null also when its page isn't known.
OSTREL_API HWND Ostrel_GetLayerStyleWnd() noexcept;
// The sub-window of the layer style dialog that is open (contour editor, gradient editor, one of nine colour
// pickers, asked in that order): 1 with hWnd and strName ("等高线", "渐变", "投影颜色", ...) set. 0 when none is
// there (hWnd null, strName left as it was) or the first one there is hidden (hWnd null, strName emptied).
OSTREL_API int Ostrel_PopLayerStyleChildWnd(HWND& hWnd, std::wstring& strName) noexcept;

// ---- Adjustment layers ----

// The adjustment panel (the floating frame whose first label, from the top left, names an adjustment); nType is
// its adjustment (3 to 18), -1 when there is none.
OSTREL_API HWND Ostrel_GetAdjustLayerWnd(EnAdjustLayer& nType) noexcept;
OSTREL_API HWND Ostrel_GetAdjustLayerWnd() noexcept;
// The shown fill pop-up of an adjustment layer: 0 solid colour, 1 gradient, 2 pattern in nType, -1 for none.
OSTREL_API HWND Ostrel_GetAdjustLayerPopWnd(EnAdjustLayer& nType) noexcept;
OSTREL_API HWND Ostrel_GetAdjustLayerPopWnd() noexcept;
// The preset combo box of the adjustment panel (levels, curves, hue/saturation, colour balance, channel mixer,
// selective colour only), with its selected entry in nSelect; -1 when there is none.
OSTREL_API HWND Ostrel_GetAdjustLayerCmbWnd(int& nSelect) noexcept;

// ---- The New dialog and the file dialogs ----

OSTREL_API HWND Ostrel_GetNewDocumentTypeCmbWnd() noexcept;
// The address bar of Save As.
OSTREL_API HWND Ostrel_GetSaveAsPathWnd() noexcept;
// The file name field of Save As, Open, Place and Replace.
OSTREL_API HWND Ostrel_GetSaveAsFileNameEdtWnd() noexcept;
OSTREL_API HWND Ostrel_GetOpenFileNameEdtWnd() noexcept;
OSTREL_API HWND Ostrel_GetPlaceFileFileNameEdtWnd() noexcept;
OSTREL_API HWND Ostrel_GetReplaceFileFileNameEdtWnd() noexcept;
OSTREL_API HWND Ostrel_GetSaveAsFileNameCmbWnd() noexcept;
// The file type combo box of Save As and of Open: the lower of exactly two combo boxes.
OSTREL_API HWND Ostrel_GetSaveAsFileTypeCmbWnd() noexcept;
OSTREL_API HWND Ostrel_GetOpenFileTypeCmbWnd() noexcept;

// ---- The gradient editor ----

// The gradient's name in the gradient editor without any ", " ("橙, 黄, 橙" gives "橙黄橙"); "" when the editor
// isn't shown as expected.
OSTREL_API std::wstring Ostrel_GetGradualWndName() noexcept;

// ---- Filter dialogs ----

// The filter gallery: the filter dialog whose title begins with a name of the gallery.
OSTREL_API HWND Ostrel_GetFilterGalleryWnd() noexcept;
// The gallery filter that the title begins with (group names passed over); -1 for none.
OSTREL_API EnFilterGallery Ostrel_GetFilterGallery() noexcept;
// The gallery's filter combo box (47 entries).
OSTREL_API HWND Ostrel_GetFilterGalleryCmb() noexcept;
// The Liquify dialog, shown or not.
OSTREL_API HWND Ostrel_GetLiquifyWnd() noexcept;

// ---- Refine Edge ----

// The view of the docked Refine Edge panel.
OSTREL_API HWND Ostrel_GetRefineEdgeWnd() noexcept;
// The sub-sections whose titles the panel shows: 1 radius, 2 smooth, 4 output.
OSTREL_API uint32_t Ostrel_IsRefineEdgeSubFold() noexcept;
// The preview area of Refine Edge.
OSTREL_API HWND Ostrel_GetRefineEdgeViewWnd() noexcept;
// One control of the panel: a button by its title, or the field beside a label.
OSTREL_API HWND Ostrel_GetRefineEdgeControl(EnRefineEdge nControl) noexcept;

// ---- Cloud documents ----

OSTREL_API HWND Ostrel_GetCloudDocuments() noexcept;
