// Type ids: the generated char id / string id table and the run-time ids of string-only ids.
#include "simulator/type_ids.h"

#include <stdexcept>
#include <string>
#include <unordered_map>
#include <vector>

namespace ostrel::sim {
namespace {

struct TypeIdRow {
  const char* charId;
  const char* stringId;
  bool answer;
};

constexpr TypeIdRow kTypeIdRows[] = {
#define OSTREL_SIM_TYPE_ID(charId, stringId, answer) {charId, stringId, answer != 0},
#include "simulator/type_ids.def"
#undef OSTREL_SIM_TYPE_ID
};

std::wstring Widen(const char* text) { return std::wstring(text, text + std::char_traits<char>::length(text)); }

int32_t RowId(const TypeIdRow& row) {
  return CharId({row.charId[0], row.charId[1], row.charId[2], row.charId[3], '\0'});
}

// Both directions of the table, built once from the rows.
struct TableIndex {
  std::unordered_map<std::wstring, int32_t> byString;
  std::unordered_map<int32_t, std::wstring> answerById;
};

const TableIndex& Index() {
  static const TableIndex index = [] {
    TableIndex built;
    for (const TypeIdRow& row : kTypeIdRows) {
      if (*row.stringId == '\0') continue;
      built.byString.emplace(Widen(row.stringId), RowId(row));
      if (row.answer) built.answerById.emplace(RowId(row), Widen(row.stringId));
    }
    return built;
  }();
  return index;
}

}  // namespace

TypeIds::TypeIds(int32_t firstRuntimeId) : m_nextRuntimeId(firstRuntimeId) {}

std::optional<int32_t> TypeIds::CharIdToTypeId(std::wstring_view charId) {
  if (charId.size() != 4) return std::nullopt;
  uint32_t id = 0;
  for (wchar_t c : charId) {
    if (static_cast<uint32_t>(c) > 0xFF) return std::nullopt;
    id = (id << 8) | static_cast<uint32_t>(c);
  }
  return static_cast<int32_t>(id);
}

int32_t TypeIds::StringIdToTypeId(std::wstring_view stringId) {
  std::wstring key(stringId);
  if (auto it = Index().byString.find(key); it != Index().byString.end()) return it->second;
  if (auto it = m_runtimeIds.find(key); it != m_runtimeIds.end()) return it->second;
  const int32_t id = m_nextRuntimeId++;
  m_runtimeIds.emplace(key, id);
  m_runtimeNames.emplace(id, std::move(key));
  return id;
}

std::wstring TypeIds::TypeIdToStringId(int32_t id) const {
  if (auto it = Index().answerById.find(id); it != Index().answerById.end()) return it->second;
  if (auto it = m_runtimeNames.find(id); it != m_runtimeNames.end()) return it->second;
  return {};
}

std::wstring TypeIds::TypeIdToCharId(int32_t id) {
  const auto bits = static_cast<uint32_t>(id);
  if (bits < static_cast<uint32_t>(kFirstCharId)) return {};
  std::wstring text;
  for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<wchar_t>((bits >> shift) & 0xFF);
  return text;
}

int32_t TypeIds::NameToId(std::wstring_view name) {
  if (name.empty() || name.front() != L'$') return StringIdToTypeId(name);
  if (auto id = CharIdToTypeId(name.substr(1))) return *id;
  throw std::invalid_argument("a name that starts with $ must be $ and a four-character char id");
}

std::wstring TypeIds::IdToName(int32_t id) const {
  if (std::wstring text = TypeIdToStringId(id); !text.empty()) return text;
  if (std::wstring chars = TypeIdToCharId(id); !chars.empty()) return L"$" + chars;
  return L"$" + std::to_wstring(id);  // neither form: an id that no one assigned
}

}  // namespace ostrel::sim
