// --registry FILE.json: a registry kept in a JSON file, so that the preference writers can be tried without
// touching a real registry. The file is an object by hive, of objects by key path, of values by name; a string is
// a string value (REG_SZ), a whole number from 0 to 4294967295 a 32-bit value (REG_DWORD):
//
//   {"HKEY_LOCAL_MACHINE": {"SOFTWARE\\Adobe\\Photoshop\\130.0": {"ApplicationPath": "C:\\PS\\"}},
//    "HKEY_CURRENT_USER": {"SOFTWARE\\Adobe\\Photoshop\\130.0": {"UIScale": 200, "uiLanguageKey CC 2019": "zh_CN"}}}
#pragma once

#include <filesystem>
#include <string>

#include "platform/portable/portable_backends.h"

namespace ostrel::cli {

// Fills registry from the file; a file that isn't there gives an empty registry. False, with error set, for a
// file that can't be read or isn't in the form above.
bool LoadRegistryFile(const std::filesystem::path& file, MemoryRegistry& registry, std::string& error);

// The registry in the file's form: hives, keys and names in the registry's order, indented by two.
std::string RegistryFileText(MemoryRegistry& registry);

// Writes RegistryFileText into the file. False, with error set, when it can't.
bool SaveRegistryFile(const std::filesystem::path& file, MemoryRegistry& registry, std::string& error);

}  // namespace ostrel::cli
