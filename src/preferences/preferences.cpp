// Photoshop keeps its install folder under HKEY_LOCAL_MACHINE and the user's preferences under
// HKEY_CURRENT_USER, both in SOFTWARE\Adobe\Photoshop\<version>. The version string goes into a key as given;
// where a value's name carries the version's year, only the five versions served have one.
#include "preferences/preferences.h"

#include <array>

#include "platform/platform.h"

namespace ostrel {
namespace {

constexpr wchar_t kPhotoshopKey[] = L"SOFTWARE\\Adobe\\Photoshop\\";
constexpr wchar_t kWow6432PhotoshopKey[] = L"SOFTWARE\\Wow6432Node\\Adobe\\Photoshop\\";
constexpr wchar_t kSettingsFilePath[] = L"SettingsFilePath";
constexpr wchar_t kApplicationPath[] = L"ApplicationPath";
constexpr wchar_t kUiScale[] = L"UIScale";
constexpr wchar_t kExecutable[] = L"Photoshop.exe";

struct VersionNames {
  const wchar_t* version;
  const wchar_t* fontType;
  const wchar_t* language;
  bool languageWritable;  // the language writer serves the four CC versions only
};

constexpr std::array<VersionNames, 5> kVersions = {{
    {L"110.0", L"paletteEnhancedFontTypeKey CC 2017", L"uiLanguageKey CC 2017", true},
    {L"120.0", L"paletteEnhancedFontTypeKey CC 2018", L"uiLanguageKey CC 2018", true},
    {L"130.0", L"paletteEnhancedFontTypeKey CC 2019", L"uiLanguageKey CC 2019", true},
    {L"140.0", L"paletteEnhancedFontTypeKey 2020", L"uiLanguageKey 2020", true},
    {L"150.0", L"paletteEnhancedFontTypeKey 2021", L"uiLanguageKey 2021", false},
}};

const VersionNames* NamesOf(const std::wstring& version) {
  for (const VersionNames& names : kVersions) {
    if (version == names.version) return &names;
  }
  return nullptr;
}

IRegistry& Registry() {
  return *CurrentPlatform().registry;
}

}  // namespace

std::wstring VersionKey(const std::wstring& version) {
  return kPhotoshopKey + version;
}
std::wstring Wow6432VersionKey(const std::wstring& version) {
  return kWow6432PhotoshopKey + version;
}

std::optional<std::wstring> FontTypeValueName(const std::wstring& version) {
  if (const VersionNames* names = NamesOf(version)) return names->fontType;
  return std::nullopt;
}

std::optional<std::wstring> LanguageValueName(const std::wstring& version) {
  if (const VersionNames* names = NamesOf(version)) return names->language;
  return std::nullopt;
}

std::wstring SettingsFileDir(const std::wstring& version) {
  return Registry().GetString(RegistryHive::kCurrentUser, VersionKey(version), kSettingsFilePath).value_or(L"");
}

std::wstring ApplicationDir(const std::wstring& version) {
  IFileSystem& files = *CurrentPlatform().files;
  for (const std::wstring& key : {VersionKey(version), Wow6432VersionKey(version)}) {
    const std::wstring path = Registry().GetString(RegistryHive::kLocalMachine, key, kApplicationPath).value_or(L"");
    if (path.empty()) continue;
    if (files.FileExists(path + kExecutable)) return path;
    if (files.FileExists(path + L"\\" + kExecutable)) {
      // The installer's value lacks its closing separator: put it back for every reader of the value. A write
      // refused for lack of rights changes nothing in the answer.
      const std::wstring repaired = path + L"\\";
      Registry().SetString(RegistryHive::kLocalMachine, key, kApplicationPath, repaired);
      return repaired;
    }
  }
  return L"";
}

int SetUiScale(const std::wstring& version, uint32_t value) {
  return Registry().SetDword(RegistryHive::kCurrentUser, VersionKey(version), kUiScale, value) ? 1 : 0;
}

int SetUiFontType(const std::wstring& version, uint32_t value) {
  const VersionNames* names = NamesOf(version);
  if (names == nullptr) return 0;
  return Registry().SetDword(RegistryHive::kCurrentUser, VersionKey(version), names->fontType, value) ? 1 : 0;
}

std::wstring StoredUiLanguage(const std::wstring& version) {
  const VersionNames* names = NamesOf(version);
  if (names == nullptr) return L"";
  return Registry().GetString(RegistryHive::kCurrentUser, VersionKey(version), names->language).value_or(L"");
}

int SetUiLanguage(const std::wstring& version, const std::wstring& language) {
  const VersionNames* names = NamesOf(version);
  if (names == nullptr || !names->languageWritable) return 0;
  return Registry().SetString(RegistryHive::kCurrentUser, VersionKey(version), names->language, language) ? 1 : 0;
}

}  // namespace ostrel
