// Tool options: every control of the tool options bar by number, its owner tool, kind, descriptor key and unit,
// and the Chinese words for options, their values and Photoshop's default gradients and patterns.
#pragma once

#include <string>

#include "ostrel/export.h"
#include "ostrel/tools.h"

// A tool option's number as lesson scripts store it. The numbers are the identity, gaps included.
enum EnToolFeatures : int {};

// The kind of control an option is (0 check box, 1 drop-down list, 4 number field, ...); -1 is no option.
enum EnToolFearuesType : int {};

// The option's owner tool; -1 for a number that is no option or an option without owner.
OSTREL_API EnToolIndex Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures nID) noexcept;

// The option's kind; -1 for a number that is no option.
OSTREL_API EnToolFearuesType Ostrel_GetToolFeaturesType(EnToolFeatures nID) noexcept;

// The key under which the tool options descriptor holds the option's value; empty if none or no option.
OSTREL_API std::wstring Ostrel_ToolFeaturesToStringID(unsigned int nID) noexcept;

// The unit shown behind the option's value ("像素", "%", "点"); empty if none or no option.
OSTREL_API std::wstring Ostrel_GetToolFeaturesValueUnits(EnToolFeatures nID) noexcept;

// Writing options isn't offered: does nothing and returns 1.
OSTREL_API int Ostrel_SetToolFeatures(EnToolFeatures nID, int nValue) noexcept;

// The option's Chinese name; some options are named by their value. Empty if the option has no name.
OSTREL_API std::wstring Ostrel_ToolFeaturesToName(unsigned int nID, std::wstring strValue) noexcept;

// The Chinese name of the option's value, or the value itself where the option has no names for it.
OSTREL_API std::wstring Ostrel_ToolFeaturesValueToName(unsigned int nID, std::wstring strValue) noexcept;

// The Chinese name of one of Photoshop's default patterns (found by a part of its name), else the name itself.
OSTREL_API std::wstring Ostrel_TransfPatternName(std::wstring strName) noexcept;

// The Chinese name of one of Photoshop's default gradients (by its whole resource string), else the name itself.
OSTREL_API std::wstring Ostrel_TransfGradualName(std::wstring strName) noexcept;
