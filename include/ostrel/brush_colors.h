// Which sections of the current brush are on, whether the layers, channels and paths panels are shown (and
// showing them), and the foreground and background colours. Every operation gives 0 when not connected and
// when a call fails.
#pragma once

#include <cstdint>

#include "ostrel/export.h"
#include "ostrel/filters.h"
#include "ostrel/layers.h"  // EnLayerPanel

// 1 if that section of the current tool's brush is on, else 0 (also for a tool without brush settings).
OSTREL_API int Ostrel_IsBrushPresetUseTipDynamice() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseScatter() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseTexture() noexcept;
OSTREL_API int Ostrel_IsBurshPresetUseDualBrush() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseColorDynamice() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUsePaintDynamice() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseBrushPose() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseNoise() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseWetEdges() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseRepeat() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseSmoothing() noexcept;
OSTREL_API int Ostrel_IsBrushPresetUseProtrctTexture() noexcept;
// The section of a brush settings page; 0 without a read for a value that isn't one of the twelve (1 and 8192
// have no switch).
OSTREL_API int Ostrel_IsBrushPresetUse(EnBrushPreset nPreset) noexcept;

// 1 if the panel is shown, else 0.
OSTREL_API int Ostrel_IsLayerPanelVisible() noexcept;
OSTREL_API int Ostrel_IsChannelPanelVisible() noexcept;
OSTREL_API int Ostrel_IsPathPannelVisible() noexcept;
// Shows the panel, unless it is shown already. 1 if it is shown afterwards, 0 on failure.
OSTREL_API int Ostrel_SetLayerPanelVisible() noexcept;
OSTREL_API int Ostrel_SetChannelPanelVisible() noexcept;
OSTREL_API int Ostrel_SetPathPannelVisible() noexcept;
// Shows the panel of that value; 0 for another value.
OSTREL_API int Ostrel_SetLayerPanelVisible(EnLayerPanel nPanel) noexcept;

// The colour into nColor, 0x00BBGGRR. 1; 0 with nColor 0 when not connected and on failure.
OSTREL_API int Ostrel_GetForegroundColor(std::uint32_t& nColor) noexcept;
OSTREL_API int Ostrel_GetBackgroundColor(std::uint32_t& nColor) noexcept;
// Sets the colour, 0x00BBGGRR. 1, or 0.
OSTREL_API int Ostrel_SetForegroundColor(std::uint32_t nColor) noexcept;
OSTREL_API int Ostrel_SetBackgroundColor(std::uint32_t nColor) noexcept;
