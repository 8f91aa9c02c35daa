// The tool state of the running Photoshop: the active tool, the value of one of its options in the numbering of
// the script's TF rows, the stroke style of the shape tools, and three small commands.
#pragma once

#include <string>
#include <vector>

#include "ostrel/export.h"
#include "ostrel/tool_options.h"
#include "ostrel/tools.h"

// A stroke style preset of the shape tools: -1 none of the three, 0 solid, 1 dashed (4, 2), 2 dotted (0, 2).
enum EnStrokeStylePreset : int {};

// The active tool; -1 when not connected, on failure, or for a tool the tool table doesn't know.
OSTREL_API EnToolIndex Ostrel_GetCurrentToolIndex() noexcept;
// Makes a tool the active one. 1; -1 when not connected; 0 when Photoshop refuses (a number without a tool id).
OSTREL_API int Ostrel_SetCurrentTool(EnToolIndex nIndex) noexcept;
// The value of one option of the active tool into strValue, as text in the numbering of the TF rows. 1 if the
// option was found; 0 if not (strValue then stays as it was, but for the options 1010 and 1409), when not
// connected and on failure.
OSTREL_API int Ostrel_GetToolFeatures(EnToolFeatures nID, std::wstring& strValue) noexcept;
// Does nothing and returns 1: the string stays as it was. (The font of the tool options bar is read from its
// window.)
OSTREL_API int Ostrel_GetFontName(std::wstring& strFont) noexcept;
// The dash list of the active shape tool's stroke into vecValues (emptied first). 1; 0 when the tool has none,
// when not connected and on failure.
OSTREL_API int Ostrel_GetStrokeStylePresetValue(std::vector<double>& vecValues) noexcept;
// Which of the three stroke style presets the active shape tool's stroke is, into nPreset (-1 for none). 1 if
// every read went through, else 0 with nPreset -1.
OSTREL_API int Ostrel_GetStrokeStylePreset(EnStrokeStylePreset& nPreset) noexcept;
// Sets the custom shape tool's shape by its name. 1, or 0.
OSTREL_API int Ostrel_SetCustomShapeName(std::wstring strName) noexcept;
// Gives a zoom command of the View menu by its menu item's string id ("zoomIn", "zoomOut", ...). 1, or 0.
OSTREL_API int Ostrel_ZoomScreen(std::wstring strMenuItem) noexcept;
// Loads a preset file into the preset list of a kind (a string id such as "brush"), appending or replacing. 1,
// or 0.
OSTREL_API int Ostrel_ImportPresetFile(std::wstring strKind, std::wstring strPath, int bAppend) noexcept;
