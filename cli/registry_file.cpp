// The registry file of --registry: read into an in-memory registry before the command, written back after it
// when the command changed a value.
#include "registry_file.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <utility>

#include "json.h"
#include "platform/text.h"

namespace ostrel::cli {
namespace {

constexpr std::array<std::pair<RegistryHive, const char*>, 2> kHives = {{
    {RegistryHive::kCurrentUser, "HKEY_CURRENT_USER"},
    {RegistryHive::kLocalMachine, "HKEY_LOCAL_MACHINE"},
}};

bool Fail(std::string& error, std::string text) {
  error = std::move(text);
  return false;
}

}  // namespace

bool LoadRegistryFile(const std::filesystem::path& file, MemoryRegistry& registry, std::string& error) {
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) return true;
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  if (!in) return Fail(error, "can't be read");
  std::optional<Json> root = ParseJson(text.str());
  if (!root) return Fail(error, "isn't JSON");
  if (!root->is_object()) return Fail(error, "wants an object of hives");
  for (const auto& [hiveName, keys] : root->items()) {
    const std::string& name = hiveName;  // a plain reference: clang 14 can't capture a structured binding
    const auto* hive = std::find_if(kHives.begin(), kHives.end(), [&](const auto& h) { return name == h.second; });
    if (hive == kHives.end())
      return Fail(error, "unknown hive \"" + hiveName + "\" (HKEY_CURRENT_USER or HKEY_LOCAL_MACHINE)");
    if (!keys.is_object()) return Fail(error, hiveName + ": wants an object of keys");
    for (const auto& [key, values] : keys.items()) {
      const std::string at = hiveName + "\\" + key;
      if (!values.is_object()) return Fail(error, at + ": wants an object of values by name");
      for (const auto& [name, value] : values.items()) {
        if (value.is_string()) {
          registry.SetString(hive->first, FromUtf8(key), FromUtf8(name), FromUtf8(value.get<std::string>()));
        } else if (value.is_number_unsigned() && value.get<uint64_t>() <= 0xFFFFFFFFu) {
          registry.SetDword(hive->first, FromUtf8(key), FromUtf8(name), static_cast<uint32_t>(value.get<uint64_t>()));
        } else {
          return Fail(error, at + " [" + name + "]: wants a string or a whole number from 0 to 4294967295");
        }
      }
    }
  }
  return true;
}

std::string RegistryFileText(MemoryRegistry& registry) {
  Json root = Json::object();
  for (const auto& [hive, hiveName] : kHives) {
    Json keys = Json::object();
    for (const RegistryValue& value : registry.ValuesUnder(hive, L"")) {
      Json& values = keys[ToUtf8(value.key)];
      if (values.is_null()) values = Json::object();
      if (value.kind == RegistryValue::Kind::kDword) {
        values[ToUtf8(value.name)] = value.dword;
      } else {
        values[ToUtf8(value.name)] = ToUtf8(value.text);
      }
    }
    if (!keys.empty()) root[hiveName] = std::move(keys);
  }
  return root.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

bool SaveRegistryFile(const std::filesystem::path& file, MemoryRegistry& registry, std::string& error) {
  const std::string text = RegistryFileText(registry);
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out << text;
  out.close();
  if (!out) return Fail(error, "can't be written");
  return true;
}

}  // namespace ostrel::cli
