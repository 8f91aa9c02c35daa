// The one-line layout of the tool's JSON.
#include "json.h"

namespace ostrel::cli {

std::optional<Json> ParseJson(std::string_view text) {
  Json value = Json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (value.is_discarded()) return std::nullopt;
  return value;
}

namespace {

// A leaf value (string, number, boolean, null) as nlohmann writes it on one line.
std::string DumpLeaf(const Json& value) {
  return value.dump(-1, ' ', /*ensure_ascii=*/false, Json::error_handler_t::replace);
}

void Render(const Json& value, std::string& out) {
  if (value.is_object()) {
    out += '{';
    bool first = true;
    for (const auto& [key, member] : value.items()) {
      if (!first) out += ", ";
      first = false;
      out += DumpLeaf(Json(key));
      out += ": ";
      Render(member, out);
    }
    out += '}';
  } else if (value.is_array()) {
    out += '[';
    for (size_t i = 0; i < value.size(); ++i) {
      if (i) out += ", ";
      Render(value[i], out);
    }
    out += ']';
  } else {
    out += DumpLeaf(value);
  }
}

}  // namespace

std::string RenderJson(const Json& value) {
  std::string out;
  Render(value, out);
  return out;
}

}  // namespace ostrel::cli
