// The layer vocabulary: blend modes, masks, selection modes, context menu entries, layer style pages and
// adjustment layers, by the numbers that lesson scripts store. Every lookup gives the empty string for a
// number its table doesn't have.
#pragma once

#include <string>

#include "ostrel/export.h"

// A layer's blend mode, 0 (pass through) to 27; not the numbering of the tools' mode lists.
enum EnLayerBlend : int {};
// A kind of mask, one bit each: 1, 2, 4, 8, 16.
enum EnLayerMask : int {};
// How a new selection combines with the old one, 0 to 3.
enum EnSelectMode : int {};
// A panel of the layer group: 0 layers, 1 channels, 2 paths.
enum EnLayerPanel : int {};
// An entry of the context menus of the layer, channel and path panels: 0 to 25 and 100 to 102.
enum EnLayerMenuIndex : int {};
// A page of the layer style dialog, one bit each; 2048 to 16384 are unused.
enum EnLayerStyle : int {};
// An adjustment layer, 0 to 18.
enum EnAdjustLayer : int {};

OSTREL_API std::wstring Ostrel_LayerBlendToName(EnLayerBlend nBlend) noexcept;

// One bit only: a combination of bits gives the empty string.
OSTREL_API std::wstring LayerMaskToName(EnLayerMask nMask) noexcept;

OSTREL_API std::wstring Ostrel_LayerMenuIndexToName(EnLayerMenuIndex nIndex) noexcept;

// Ostrel_LayerStyleMenuIndexToName is the same mapping under a second name.
OSTREL_API std::wstring Ostrel_LayerStyleIndexToName(EnLayerStyle nStyle) noexcept;
OSTREL_API std::wstring Ostrel_LayerStyleMenuIndexToName(EnLayerStyle nStyle) noexcept;

// Ostrel_LayerAdjustMenuIndexToName is the same mapping under a second name.
OSTREL_API std::wstring Ostrel_AdjustLayerIndexToName(EnAdjustLayer nAdjust) noexcept;
OSTREL_API std::wstring Ostrel_LayerAdjustMenuIndexToName(EnAdjustLayer nAdjust) noexcept;

// The entry nValue (from 0) of the channel or colour list of the adjustment's properties panel; the empty
// string for an adjustment without a list or a number beyond its list.
OSTREL_API std::wstring Ostrel_AdjustLayerCmbValueName(EnAdjustLayer nAdjust, int nValue) noexcept;
