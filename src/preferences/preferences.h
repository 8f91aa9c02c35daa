// Install discovery and the preference writers, over the platform's registry and files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ostrel {

// The registry keys of a version: the version's own key, and the 32-bit view's twin under Wow6432Node.
std::wstring VersionKey(const std::wstring& version);
std::wstring Wow6432VersionKey(const std::wstring& version);
// The value names that carry the version's year, for the five versions served; nothing for another version.
std::optional<std::wstring> FontTypeValueName(const std::wstring& version);
std::optional<std::wstring> LanguageValueName(const std::wstring& version);

std::wstring SettingsFileDir(const std::wstring& version);
std::wstring ApplicationDir(const std::wstring& version);
int SetUiScale(const std::wstring& version, uint32_t value);
int SetUiFontType(const std::wstring& version, uint32_t value);
std::wstring StoredUiLanguage(const std::wstring& version);
int SetUiLanguage(const std::wstring& version, const std::wstring& language);

}  // namespace ostrel
