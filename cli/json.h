// The little JSON the command line tool needs: parsing its arguments and writing its one-line answers.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ostrel::cli {

// A parsed JSON value. Texts are UTF-8. A number keeps the text it was written with, so that a caller asking
// for a string gets exactly what was typed.
struct Json {
  enum class Kind { kNull, kBool, kNumber, kString, kArray, kObject };
  Kind kind = Kind::kNull;
  bool boolean = false;
  double number = 0;
  std::string text;  // the string, or the number as written
  std::vector<Json> items;
  std::vector<std::pair<std::string, Json>> members;

  bool IsInteger() const noexcept;
};

// Parses one whole JSON text (white space around it allowed). On failure gives nothing and sets error.
std::optional<Json> ParseJson(std::string_view text, std::string* error = nullptr);

// A JSON string literal for UTF-8 text: quotes, backslashes and control characters escaped, the rest as is.
std::string JsonQuote(std::string_view utf8);

// Builds a one-line object whose members keep the order they were added in: {"a": 1, "b": "x"}.
class JsonObject {
 public:
  JsonObject& Add(std::string_view key, std::string renderedValue);
  std::string Render() const;

 private:
  std::vector<std::pair<std::string, std::string>> m_members;
};

// A one-line array of already rendered values: [1, 2, 3].
std::string JsonArray(const std::vector<std::string>& renderedValues);

}  // namespace ostrel::cli
