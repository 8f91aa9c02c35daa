// A small recursive descent JSON parser and the writer of the tool's answers.
#include "json.h"

#include "platform/text.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace ostrel::cli {

bool Json::IsInteger() const noexcept {
  return kind == Kind::kNumber && std::isfinite(number) && std::floor(number) == number &&
         std::fabs(number) <= 9007199254740992.0;
}

namespace {

class Parser {
 public:
  explicit Parser(std::string_view text) : m_text(text) {}

  std::optional<Json> ParseDocument(std::string* error) {
    std::optional<Json> value = ParseValue(0);
    SkipSpace();
    if (value && m_pos != m_text.size()) Fail("unexpected text after the value");
    if (m_failed) {
      if (error) *error = m_error + " at offset " + std::to_string(m_errorPos);
      return std::nullopt;
    }
    return value;
  }

 private:
  static constexpr int kMaxDepth = 64;

  void Fail(const char* what) {
    if (m_failed) return;
    m_failed = true;
    m_error = what;
    m_errorPos = m_pos;
  }

  void SkipSpace() {
    while (m_pos < m_text.size() &&
           (m_text[m_pos] == ' ' || m_text[m_pos] == '\t' || m_text[m_pos] == '\n' || m_text[m_pos] == '\r'))
      ++m_pos;
  }

  bool Consume(std::string_view word) {
    if (m_text.substr(m_pos, word.size()) != word) return false;
    m_pos += word.size();
    return true;
  }

  std::optional<Json> ParseValue(int depth) {
    if (depth > kMaxDepth) {
      Fail("nesting too deep");
      return std::nullopt;
    }
    SkipSpace();
    if (m_pos >= m_text.size()) {
      Fail("missing value");
      return std::nullopt;
    }
    Json value;
    const char c = m_text[m_pos];
    if (c == '{') return ParseObject(depth);
    if (c == '[') return ParseArray(depth);
    if (c == '"') {
      value.kind = Json::Kind::kString;
      if (!ParseString(value.text)) return std::nullopt;
      return value;
    }
    if (Consume("true") || Consume("false")) {
      value.kind = Json::Kind::kBool;
      value.boolean = m_text[m_pos - 2] == 'u';  // "true" ends in "ue", "false" in "se"
      return value;
    }
    if (Consume("null")) return value;
    if (c == '-' || (c >= '0' && c <= '9')) return ParseNumber();
    Fail("unexpected character");
    return std::nullopt;
  }

  std::optional<Json> ParseNumber() {
    const size_t start = m_pos;
    auto digits = [&] {
      const size_t from = m_pos;
      while (m_pos < m_text.size() && m_text[m_pos] >= '0' && m_text[m_pos] <= '9') ++m_pos;
      return m_pos > from;
    };
    if (m_text[m_pos] == '-') ++m_pos;
    if (m_pos < m_text.size() && m_text[m_pos] == '0') {
      ++m_pos;
    } else if (!digits()) {
      Fail("malformed number");
      return std::nullopt;
    }
    if (m_pos < m_text.size() && m_text[m_pos] == '.') {
      ++m_pos;
      if (!digits()) {
        Fail("malformed number");
        return std::nullopt;
      }
    }
    if (m_pos < m_text.size() && (m_text[m_pos] == 'e' || m_text[m_pos] == 'E')) {
      ++m_pos;
      if (m_pos < m_text.size() && (m_text[m_pos] == '+' || m_text[m_pos] == '-')) ++m_pos;
      if (!digits()) {
        Fail("malformed number");
        return std::nullopt;
      }
    }
    Json value;
    value.kind = Json::Kind::kNumber;
    value.text = std::string(m_text.substr(start, m_pos - start));
    std::from_chars(value.text.data(), value.text.data() + value.text.size(), value.number);
    return value;
  }

  bool ReadHex4(unsigned& out) {
    if (m_text.size() - m_pos < 4) return false;
    out = 0;
    for (int i = 0; i < 4; ++i) {
      const char h = m_text[m_pos++];
      out <<= 4;
      if (h >= '0' && h <= '9') out |= static_cast<unsigned>(h - '0');
      else if (h >= 'a' && h <= 'f') out |= static_cast<unsigned>(h - 'a' + 10);
      else if (h >= 'A' && h <= 'F') out |= static_cast<unsigned>(h - 'A' + 10);
      else return false;
    }
    return true;
  }

  bool ParseEscape(std::string& out) {
    if (m_pos >= m_text.size()) return false;
    const char e = m_text[m_pos++];
    switch (e) {
      case '"': out += '"'; return true;
      case '\\': out += '\\'; return true;
      case '/': out += '/'; return true;
      case 'b': out += '\b'; return true;
      case 'f': out += '\f'; return true;
      case 'n': out += '\n'; return true;
      case 'r': out += '\r'; return true;
      case 't': out += '\t'; return true;
      case 'u': break;
      default: return false;
    }
    unsigned cp;
    if (!ReadHex4(cp)) return false;
    if (cp >= 0xD800 && cp <= 0xDBFF && m_text.substr(m_pos, 2) == "\\u") {
      const size_t save = m_pos;
      m_pos += 2;
      unsigned low;
      if (ReadHex4(low) && low >= 0xDC00 && low <= 0xDFFF) {
        cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
      } else {
        m_pos = save;
      }
    }
    AppendUtf8(out, cp);  // a lone surrogate becomes U+FFFD
    return true;
  }

  bool ParseString(std::string& out) {
    ++m_pos;  // the opening quote
    while (m_pos < m_text.size()) {
      const char c = m_text[m_pos];
      if (c == '"') {
        ++m_pos;
        return true;
      }
      if (static_cast<unsigned char>(c) < 0x20) {
        Fail("control character in string");
        return false;
      }
      ++m_pos;
      if (c != '\\') {
        out += c;
        continue;
      }
      if (!ParseEscape(out)) {
        Fail("bad escape in string");
        return false;
      }
    }
    Fail("unterminated string");
    return false;
  }

  std::optional<Json> ParseArray(int depth) {
    ++m_pos;
    Json value;
    value.kind = Json::Kind::kArray;
    SkipSpace();
    if (Consume("]")) return value;
    for (;;) {
      std::optional<Json> item = ParseValue(depth + 1);
      if (!item) return std::nullopt;
      value.items.push_back(std::move(*item));
      SkipSpace();
      if (Consume("]")) return value;
      if (!Consume(",")) {
        Fail("expected , or ]");
        return std::nullopt;
      }
    }
  }

  std::optional<Json> ParseObject(int depth) {
    ++m_pos;
    Json value;
    value.kind = Json::Kind::kObject;
    SkipSpace();
    if (Consume("}")) return value;
    for (;;) {
      SkipSpace();
      std::string key;
      if (m_pos >= m_text.size() || m_text[m_pos] != '"') {
        Fail("expected a member name");
        return std::nullopt;
      }
      if (!ParseString(key)) return std::nullopt;
      SkipSpace();
      if (!Consume(":")) {
        Fail("expected :");
        return std::nullopt;
      }
      std::optional<Json> member = ParseValue(depth + 1);
      if (!member) return std::nullopt;
      value.members.emplace_back(std::move(key), std::move(*member));
      SkipSpace();
      if (Consume("}")) return value;
      if (!Consume(",")) {
        Fail("expected , or }");
        return std::nullopt;
      }
    }
  }

  std::string_view m_text;
  size_t m_pos = 0;
  bool m_failed = false;
  std::string m_error;
  size_t m_errorPos = 0;
};

}  // namespace

std::optional<Json> ParseJson(std::string_view text, std::string* error) {
  return Parser(text).ParseDocument(error);
}

std::string JsonQuote(std::string_view utf8) {
  std::string out;
  out.reserve(utf8.size() + 2);
  out += '"';
  for (const char c : utf8) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buffer[8];
          std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(static_cast<unsigned char>(c)));
          out += buffer;
        } else {
          out += c;
        }
    }
  }
  out += '"';
  return out;
}

JsonObject& JsonObject::Add(std::string_view key, std::string renderedValue) {
  m_members.emplace_back(std::string(key), std::move(renderedValue));
  return *this;
}

std::string JsonObject::Render() const {
  std::string out = "{";
  for (size_t i = 0; i < m_members.size(); ++i) {
    if (i) out += ", ";
    out += JsonQuote(m_members[i].first);
    out += ": ";
    out += m_members[i].second;
  }
  out += '}';
  return out;
}

std::string JsonArray(const std::vector<std::string>& renderedValues) {
  std::string out = "[";
  for (size_t i = 0; i < renderedValues.size(); ++i) {
    if (i) out += ", ";
    out += renderedValues[i];
  }
  out += ']';
  return out;
}

}  // namespace ostrel::cli
