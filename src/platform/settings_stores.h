// Where settings live: Photoshop's registry keys and the ini files of the event script and the bar sizes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ostrel {

enum class RegistryHive { kCurrentUser, kLocalMachine };

// One value of the registry, as a listing gives it. A value of another type than a string or a 32-bit number
// lists with kind kOther and its type number in dword.
struct RegistryValue {
  enum class Kind { kString, kDword, kOther };
  RegistryHive hive = RegistryHive::kCurrentUser;
  std::wstring key;
  std::wstring name;
  Kind kind = Kind::kString;
  std::wstring text;
  uint32_t dword = 0;
  bool operator==(const RegistryValue&) const = default;
};

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
  // Every value in key and in the keys below it, ordered by key and name without regard to ASCII case; nothing
  // for a key that isn't there.
  virtual std::vector<RegistryValue> ValuesUnder(RegistryHive hive, const std::wstring& key) = 0;
  // Deletes key with its values and every key below it: true when it is gone afterwards (or wasn't there).
  virtual bool DeleteTree(RegistryHive hive, const std::wstring& key) = 0;
};

// The order of ValuesUnder: by key, then by name, without regard to ASCII case.
bool RegistryOrder(const RegistryValue& a, const RegistryValue& b);

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
