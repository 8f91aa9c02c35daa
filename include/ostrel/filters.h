// The filter and dialog vocabulary: smart filters, the filter gallery, Camera Raw, refine edge, and the small
// lists of the crop overlay, file types, type anti-aliasing, shape colours, brush panel pages and the canvas
// menu, by the numbers that lesson scripts store. Every name lookup gives the empty string for a number its
// list doesn't have, and every reverse lookup -1 for a name it doesn't know.
#pragma once

#include <string>

#include "ostrel/export.h"
#include "ostrel/menus.h"

// A filter of the filter menu, in blocks of 20, one block a menu group (0 Stylize ... 140 Other).
enum EnLayerFilter : int {};
// The filter gallery in blocks of 50: the first number of a block is the group; 0 is the gallery itself.
enum EnFilterGallery : int {};
// A panel of the Camera Raw dialog, 0 to 14.
enum EnCameraRawPanel : int {};
// A control of the refine edge dialog, 0 to 19.
enum EnRefineEdge : int {};
// A folding section of the refine edge dialog, one bit each (1, 2, 4); 0 is no section.
enum EnRefineEdgeSub : int {};
// A view mode of the refine edge dialog, 0 to 6.
enum EnRefineEdgeView : int {};
// What the refine edge dialog indicates, 0 or 1.
enum EnRefineEdgeIndicate : int {};
// An output target of the refine edge dialog, 0 to 5.
enum EnRefineEdgeOutput : int {};
// An overlay of the crop tool, 0 to 5.
enum EnCropOverlayOption : int {};
// A file type of Save As, 0 to 3.
enum EnFileType : int {};
// An anti-aliasing method of type, 0 to 6.
enum EnFontAntiAlias : int {};
// A page of the shape fill and stroke colour panel, 0 to 3.
enum EnShapeColorPanel : int {};
// A page of the brush panel, one bit each, 1 to 8192.
enum EnBrushPreset : int {};
// An entry of the canvas context menu: 0 to 14 and 50 to 58.
enum EnCanvasMenu : int {};
// Values of the path operation, align/distribute and arrangement option lists of the tool options bar.
enum EnPathOpertion : int {};
enum EnAlignDistribute : int {};
enum EnArrangementType : int {};

// The filter table, built by Ostrel_Init: before it, names are empty and numbers -1.
OSTREL_API std::wstring Ostrel_LayerFilterIndexToName(EnLayerFilter nFilter) noexcept;
OSTREL_API EnLayerFilter Ostrel_LayerFilterNameToIndex(std::wstring strName) noexcept;
// The filter's top menu number as the table holds it: -1 for every filter.
OSTREL_API EnTopMenuIndex Ostrel_LayerFilterIndexToTopMenuIndex(EnLayerFilter nFilter) noexcept;

OSTREL_API std::wstring Ostrel_FilterGalleryToName(EnFilterGallery nFilter) noexcept;
// Group names count as names: "纹理" gives 200.
OSTREL_API EnFilterGallery Ostrel_FilterGalleryNameToEnum(std::wstring strName) noexcept;

OSTREL_API std::wstring Ostrel_CameraRawToName(EnCameraRawPanel nPanel) noexcept;

OSTREL_API std::wstring Ostrel_RefineEdgeToName(EnRefineEdge nControl) noexcept;
OSTREL_API std::wstring Ostrel_RefineEdgeSubclassToName(EnRefineEdgeSub nSub) noexcept;
// The section a control lies in; 0 for a control in none and for any number outside the list.
OSTREL_API EnRefineEdgeSub Ostrel_IsRefineEdgeSub(EnRefineEdge nControl) noexcept;
OSTREL_API std::wstring Ostrel_RefineEdgeViewToName(EnRefineEdgeView nView) noexcept;
OSTREL_API std::wstring Ostrel_RefineEdgeIndicateToName(EnRefineEdgeIndicate nIndicate) noexcept;
OSTREL_API std::wstring Ostrel_RefineEdgeOutputToName(EnRefineEdgeOutput nOutput) noexcept;

OSTREL_API std::wstring Ostrel_CropOverlayToName(EnCropOverlayOption nOption) noexcept;
OSTREL_API std::wstring Ostrel_FileTypeToName(EnFileType nType) noexcept;
OSTREL_API std::wstring Ostrel_FontAntiAliasToName(EnFontAntiAlias nAntiAlias) noexcept;
OSTREL_API std::wstring Ostrel_ShapeColorToName(EnShapeColorPanel nPanel) noexcept;
// One bit only: a combination of bits gives the empty string.
OSTREL_API std::wstring Ostrel_BrushPresetIndexToName(EnBrushPreset nPreset) noexcept;
OSTREL_API std::wstring Ostrel_CanvasMenuIndexToName(EnCanvasMenu nMenu) noexcept;

// Positions of entries in four option menus of the tool options bar; -1 for a value that isn't listed.
OSTREL_API int Ostrel_CropOverlayOptionToMenuIndex(EnCropOverlayOption nOption) noexcept;
OSTREL_API int Ostrel_PathOperationToMenuIndex(EnPathOpertion nOperation) noexcept;
OSTREL_API int Ostrel_AlignDistributeToMenuIndex(EnAlignDistribute nAlign) noexcept;
OSTREL_API int Ostrel_ArrangementTypeToMenuIndex(EnArrangementType nType) noexcept;
