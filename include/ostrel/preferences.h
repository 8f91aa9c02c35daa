// Where a Photoshop version is installed and keeps its settings, and three of its interface preferences, in the
// registry; and the interface language of the running Photoshop. The version is the registry's form: "110.0"
// (CC 2017), "120.0", "130.0", "140.0", "150.0" (2021). A value that isn't there reads as the empty string; a
// write gives 1 when it was made, else 0.
#pragma once

#include <string>

#include "ostrel/export.h"

// The interface language of the running Photoshop ("zh_CN", "en_US", ...); "" when not connected and on failure.
OSTREL_API std::wstring Ostrel_GetUiLanguage() noexcept;
// The folder of the version's settings (HKEY_CURRENT_USER, "SettingsFilePath").
OSTREL_API std::wstring Ostrel_GetSettingFileDir(std::wstring strVersion) noexcept;
// The install folder with a closing separator: "ApplicationPath" of the version's key, then of its Wow6432Node
// twin (HKEY_LOCAL_MACHINE), the first beside which Photoshop.exe exists. A stored path without its closing
// separator is written back with it. "" when neither has one.
OSTREL_API std::wstring Ostrel_GetApplicationDir(std::wstring strVersion) noexcept;
// Writes Photoshop's UI scale ("UIScale") for the version; the version isn't checked.
OSTREL_API int Ostrel_SetUIScale(std::wstring strVersion, unsigned int nValue) noexcept;
// Writes the UI font type of one of the five versions; 0 and nothing written for another version.
OSTREL_API int Ostrel_SetUiFontType(std::wstring strVersion, unsigned int nValue) noexcept;
// The UI language stored for one of the five versions; "" for another version, without a registry read.
OSTREL_API std::wstring Ostrel_GetUiLanguage(std::wstring strVersion) noexcept;
// Writes the UI language for "110.0" to "140.0"; 0 and nothing written for any other version (2021 included).
OSTREL_API int Ostrel_SetUiLanguage(std::wstring strVersion, std::wstring strLanguage) noexcept;
