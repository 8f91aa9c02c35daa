// Photoshop's type ids as the simulated Photoshop hands them out: a four-character char id is its four bytes read
// big-endian; a string id with a char twin names the same number; any other string id gets a small number of its
// own, assigned on first use and kept for the life of the table (one Photoshop session).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace ostrel::sim {

// Ids at or above this number are char ids; below it, ids that Photoshop assigns at run time.
inline constexpr int32_t kFirstCharId = 0x20202020;

// The number of a four-character char id, for the ids the simulator itself needs to recognise.
constexpr int32_t CharId(const char (&text)[5]) {
  return static_cast<int32_t>((static_cast<uint32_t>(static_cast<unsigned char>(text[0])) << 24) |
                              (static_cast<uint32_t>(static_cast<unsigned char>(text[1])) << 16) |
                              (static_cast<uint32_t>(static_cast<unsigned char>(text[2])) << 8) |
                              static_cast<uint32_t>(static_cast<unsigned char>(text[3])));
}

class TypeIds {
 public:
  explicit TypeIds(int32_t firstRuntimeId = 1000);

  // charIDToTypeID: the big-endian number of exactly four characters, each below U+0100; nothing otherwise.
  static std::optional<int32_t> CharIdToTypeId(std::wstring_view charId);
  // stringIDToTypeID: the char twin's number, or the string's run-time id (assigned now if it has none yet).
  int32_t StringIdToTypeId(std::wstring_view stringId);
  // typeIDToStringID: the string form, "" where the id has none.
  std::wstring TypeIdToStringId(int32_t id) const;
  // typeIDToCharID: the four characters of a char id, "" for a run-time id.
  static std::wstring TypeIdToCharId(int32_t id);

  // A name in the JSON notation of descriptors: a string id, or "$" and a char id that has no string id.
  int32_t NameToId(std::wstring_view name);  // throws std::invalid_argument for "$" with other than four characters
  std::wstring IdToName(int32_t id) const;

 private:
  std::unordered_map<std::wstring, int32_t> m_runtimeIds;
  std::unordered_map<int32_t, std::wstring> m_runtimeNames;
  int32_t m_nextRuntimeId;
};

}  // namespace ostrel::sim
