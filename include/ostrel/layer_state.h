// The layers of the current document as Photoshop holds them now: the list of layers, the selected and the
// active one, one layer by its index or its id, its masks, layer effects and smart filters.
//
// A layer has two numbers that never mix: its id (Photoshop's layerID; below 1 is no id) and its index
// (Photoshop's itemIndex: its place in the stack, the lowest place being 1). A layer group takes two places: the
// group itself above its layers and a hidden end entry below them, so the indexes of the layers need not be
// consecutive; step from layer to layer with Ostrel_LayerIndexOffset. Every function reads Photoshop afresh and
// gives its "none" value (stated with it) when the library isn't connected, when no document is open, for an
// index or id that is no layer, and when a call into Photoshop fails. A list goes into the caller's vector, which
// is emptied first; after a failure it holds what was read before it.
#pragma once

#include <string>
#include <vector>

#include "ostrel/export.h"
#include "ostrel/filters.h"
#include "ostrel/layers.h"

// Photoshop's own layerKind numbers, unchanged: 1 pixels, 2 adjustment, 3 text, 4 shape, 5 smart object, 7 group,
// 13 the hidden end of a group, and others.
enum EnSheetKind : int {};

// One layer of the list. A fresh record holds the values given here; Ostrel_ResetLayerInfo sets the same values
// except nTail (0 after a reset) and leaves strName alone.
struct tagLayerInfo {
  int nID = -1;                   // layer id
  int nIndex = -1;                // layer index
  int bVisible = 1;               // the eye of the layer
  int bSelect = 0;                // 1 if the layer is among the selected ones
  std::wstring strName;           // the layer's name
  int nOpacity = 100;             // "opacity" as Photoshop gives it in the layer's descriptor (0 to 255)
  int nFillOpacity = 100;         // "fillOpacity", likewise
  int bProtectAll = 0;
  int bGroup = 0;                 // 1 for a layer group
  int nHierarchy = 0;             // how many groups enclose the layer; 0 at the top of the document
  int bBackground = 0;
  int nReserved1 = 0;
  int bHasUserMask = 0;
  int nReserved2 = 0;
  int bHasVectorMask = 0;
  int bUserMaskLinked = 0;
  int nReserved3 = 0;
  int bUserMaskEnabled = 0;
  int bVectorMaskEnabled = 0;
  int nBlend = -1;                // EnLayerBlend
  int nLayerKind = -1;            // EnSheetKind
  int bProtectComposite = 0;
  int bProtectPosition = 0;
  int bProtectTransparency = 0;
  int nTail = 1;                  // 1 in a group's record of the list, 0 in a layer's; nothing reads it
};

struct tagLayerVisibleInfo {
  int nID = -1;
  int bVisible = 0;
};

// One layer effect. nStyle 1 stands for the effects of the layer as a whole (their common eye), 16 and 32 for the
// contour and the texture of a bevel, which are listed only when they are on.
struct tagLayerStyleInfo {
  int bVisible = 0;
  EnLayerStyle nStyle{};
};

// One smart filter; nFilter is -1 for a filter whose name the filter table doesn't hold.
struct tagSmartFilterInfo {
  EnLayerFilter nFilter{};
  int bVisible = 0;
};

// ---- The list of layers ----
// In the list each level gives its layers first, then its groups, each group's record followed by its content:
// not the order of the stack, which nIndex gives. The document itself has no record.

OSTREL_API void Ostrel_ResetLayerInfo(tagLayerInfo& info) noexcept;
// The records with nID, bGroup and nHierarchy; the other fields keep their fresh values. 1, or 0.
OSTREL_API int Ostrel_GetLayerID(std::vector<tagLayerInfo>& vecLayers) noexcept;
// The records complete, bSelect included. 1, or 0.
OSTREL_API int Ostrel_GetLayerInfo(std::vector<tagLayerInfo>& vecLayers) noexcept;
// The number of records of Ostrel_GetLayerID; -1 for none.
OSTREL_API int Ostrel_GetLayerCount() noexcept;
// The id and eye of every layer of the list. 1, or 0.
OSTREL_API int Ostrel_GetLayerVisible(std::vector<tagLayerVisibleInfo>& vecLayers) noexcept;

// ---- Selection ----

// The indexes of the selected layers. 1, or 0 (also when the document has no selected layers to tell).
OSTREL_API int Ostrel_GetSelectLayerIndex(std::vector<int>& vecIndex) noexcept;
// The ids of the selected layers. 1, or 0.
OSTREL_API int Ostrel_GetSelectLayerID(std::vector<int>& vecID) noexcept;
// How many layers are selected; -1 when that can't be read.
OSTREL_API int Ostrel_GetSelectLayerCount() noexcept;
OSTREL_API int Ostrel_IsLayerSelect(int nIndex) noexcept;
// The index of the active layer; -1 for none.
OSTREL_API int Ostrel_GetLastSelectLayerIndex() noexcept;
// The name of the active layer; "索引" for the background of an indexed-colour document. Empty for none.
OSTREL_API std::wstring Ostrel_GetLastSelectLayerName() noexcept;

// ---- One layer ----

OSTREL_API int Ostrel_LayerIndexToID(int nIndex) noexcept;               // -1 for none
OSTREL_API int Ostrel_LayerIDToIndex(int nID) noexcept;                  // -1 for none
OSTREL_API std::wstring Ostrel_LayerIndexToName(int nIndex) noexcept;    // empty for none
OSTREL_API std::wstring Ostrel_LayerIDToName(int nID) noexcept;          // empty for none
// The index of the first layer of the list with exactly that name (case counts); -1 for none.
OSTREL_API int Ostrel_LayerNameToIndex(std::wstring strName) noexcept;
OSTREL_API int Ostrel_IsLayerVisible(int nIndex) noexcept;               // 0 for none
// 1 for a layer group, else 0; -1 when not connected.
OSTREL_API int Ostrel_IsLayerGroup(int nIndex) noexcept;
OSTREL_API EnSheetKind Ostrel_GetLayerSheetKind(int nIndex) noexcept;    // -1 for none
// 1 for a smart object, else 0.
OSTREL_API int Ostrel_IsLayerSmart(int nIndex) noexcept;
// How many groups enclose the layer; -1 for none.
OSTREL_API int Ostrel_GetLayerGroupHierarchy(int nIndex) noexcept;
// The index of the group that encloses the layer; -1 for a layer at the top of the document or none.
OSTREL_API int Ostrel_GetLayerGroup(int nIndex) noexcept;
// 1 if the ACTIVE layer has no pixels (its bounds are all zero), else 0; the argument isn't read.
OSTREL_API int Ostrel_IsLayerEmpty(int nIndex) noexcept;

// ---- The stack ----

// 1 if the document has a background layer, else 0.
OSTREL_API int Ostrel_IsBackgroundLayer() noexcept;
// The highest index of the list; -1 for none.
OSTREL_API int Ostrel_GetTopLayerIndex() noexcept;
// The index nOffset layers of the list away from nIndex in the order of the stack (a positive offset goes up);
// -1 for an offset of 0, an index that is no layer, or a step past either end.
OSTREL_API int Ostrel_LayerIndexOffset(int nIndex, int nOffset) noexcept;

// ---- The active layer ----

OSTREL_API EnLayerBlend Ostrel_GetCurrentLayerBlend() noexcept;          // -1 for none
OSTREL_API int Ostrel_GetCurrentLayerOpacity() noexcept;                 // percent, cut towards zero; -1 for none
OSTREL_API int Ostrel_GetCurrentLayerFillOpacity() noexcept;             // percent, cut towards zero; -1 for none
OSTREL_API int Ostrel_IsCurrentLayerLockAll() noexcept;
OSTREL_API int Ostrel_IsCurrentLayerLockPixels() noexcept;
OSTREL_API int Ostrel_IsCurrentLayerLockPosition() noexcept;
OSTREL_API int Ostrel_IsCurrentLayerLockTransparentPixels() noexcept;

// ---- Masks, effects and smart filters of one layer ----
// An index of -1 names the active layer in a document without a background layer (with one, that is index 0).
// Every function gives 0 for none.

// 1 if the layer has a layer mask, enabled or not.
OSTREL_API int Ostrel_IsLayerMask(int nIndex) noexcept;
// 1 if the layer has a vector mask; always 0 for a shape layer.
OSTREL_API int Ostrel_IsVectorMask(int nIndex) noexcept;
// 1 if the layer's smart filters have a filter mask.
OSTREL_API int Ostrel_IsFilterMask(int nIndex) noexcept;
// 1 if the layer is clipped to the one below.
OSTREL_API int Ostrel_IsClipMask(int nIndex) noexcept;
// 1 if the active layer has a layer mask and Photoshop's main window says the mask is being edited (its title
// holds "图层蒙版": a Chinese Photoshop only).
OSTREL_API int Ostrel_IsCurrentSelectLayerMask() noexcept;
// 1 if the current path is the active layer's vector mask.
OSTREL_API int Ostrel_IsCurrentSelectVectorMask() noexcept;
// 1 if the active layer has a filter mask and the main window's title holds "滤镜蒙版".
OSTREL_API int Ostrel_IsCurrentSelectFilterMask() noexcept;
// The layer's effects: first (the effects' common eye, 1), then each effect present in Photoshop's order with its
// own eye, and for a bevel its contour (16) and texture (32) when they are on. 1; 0 for a layer without effects.
OSTREL_API int Ostrel_GetLayerStyle(int nIndex, std::vector<tagLayerStyleInfo>& vecStyle) noexcept;
// 1 if the layer has the effect (1: any effect at all).
OSTREL_API int Ostrel_IsLayerStyle(int nIndex, EnLayerStyle nStyle) noexcept;
// The eye of the effect (1: of all the layer's effects together); 0 without it.
OSTREL_API int Ostrel_GetLayerStyleVisible(int nIndex, EnLayerStyle nStyle) noexcept;
// The layer's smart filters in the order of Photoshop's list, with their eyes. 1 (with none for a layer whose filter
// mask Photoshop reports absent); 0 when a layer doesn't have the keys at all.
OSTREL_API int Ostrel_GetLayerFilter(int nIndex, std::vector<tagSmartFilterInfo>& vecFilter) noexcept;
OSTREL_API int Ostrel_IsLayerFilter(int nIndex, EnLayerFilter nFilter) noexcept;
OSTREL_API int Ostrel_IsLayerFilterVisible(int nIndex, EnLayerFilter nFilter) noexcept;
