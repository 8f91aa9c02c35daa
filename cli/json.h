// The JSON of the command line tool: nlohmann-json values, keeping the order of an object's members, and the
// one-line layout of every answer the tool prints.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace ostrel::cli {

using Json = nlohmann::ordered_json;

// Parses one whole JSON text (white space around it allowed). Nothing when it isn't JSON.
std::optional<Json> ParseJson(std::string_view text);

// A value on one line: {"result": 1, "title": "x"}, ["A", "", "B", ""]: ": " after a key, ", " between
// members and items. Strings and numbers are written by nlohmann's serializer: text as UTF-8 with quotes,
// backslashes and every control character escaped, and bytes that aren't valid UTF-8 replaced by U+FFFD.
std::string RenderJson(const Json& value);

}  // namespace ostrel::cli
