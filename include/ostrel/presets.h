// Photoshop's default presets: the class (the group in Photoshop's preset lists) of a preset by its name.
// Each catalogue is searched by itself; a name that isn't a default preset gives the empty string.
#pragma once

#include <string>

#include "ostrel/export.h"

OSTREL_API std::wstring Ostrel_GetBrushPresetClass(std::wstring strName) noexcept;
OSTREL_API std::wstring Ostrel_GetColorPresetClass(std::wstring strName) noexcept;

// Most gradient classes hold whole names; ten hold every name with their text (such as "蓝色_") in it.
OSTREL_API std::wstring Ostrel_GetGradientPresetClass(std::wstring strName) noexcept;

OSTREL_API std::wstring Ostrel_GetPatternPresetClass(std::wstring strName) noexcept;
OSTREL_API std::wstring Ostrel_GetShapePresetClass(std::wstring strName) noexcept;
