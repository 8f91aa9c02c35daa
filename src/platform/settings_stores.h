// Where settings live: Photoshop's registry keys and the ini files of the event script and the bar sizes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ostrel {

enum class RegistryHive { kCurrentUser, kLocalMachine };

// The registry as the preference writers see it. Absent values are no error: they read as nothing.
class IRegistry {
 public:
  virtual ~IRegistry() = default;
  virtual std::optional<std::wstring> GetString(RegistryHive hive, const std::wstring& key,
                                                const std::wstring& name) = 0;
  virtual std::optional<uint32_t> GetDword(RegistryHive hive, const std::wstring& key,
                                           const std::wstring& name) = 0;
  virtual bool SetString(RegistryHive hive, const std::wstring& key, const std::wstring& name,
                         const std::wstring& value) = 0;
  virtual bool SetDword(RegistryHive hive, const std::wstring& key, const std::wstring& name, uint32_t value) = 0;
};

// Ini files: sections of key=value lines. A missing file, section or key reads as nothing.
class IIniStore {
 public:
  virtual ~IIniStore() = default;
  virtual std::optional<std::wstring> GetString(const std::wstring& file, const std::wstring& section,
                                                const std::wstring& key) = 0;
  virtual bool SetString(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                         const std::wstring& value) = 0;
};

}  // namespace ostrel
