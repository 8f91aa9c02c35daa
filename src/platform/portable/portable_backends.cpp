// The portable backends.
#include "platform/portable/portable_backends.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
#include <system_error>
#include <vector>

#if !defined(_WIN32)
#include <iconv.h>
#endif

#include "platform/text.h"

namespace ostrel {

// ---- Automation ----------------------------------------------------------------------------------------------

std::wstring StandardErrorMessage(int32_t code) {
  switch (code) {
    case kSOk: return L"The operation completed successfully.";
    case kCoEClassString: return L"Invalid class string";
    case kCoEServerExecFailure: return L"Server execution failed";
    case kDispENotFound: return L"Member not found.";
    case kDispETypeMismatch: return L"Type mismatch.";
    case kDispEBadParamCount: return L"Invalid number of parameters.";
    case kDispEException: return L"Exception occurred.";
    case kEFail: return L"Unspecified error";
    default: return Format(L"Unknown error 0x%08x", code);
  }
}

DispatchPtr NoAutomation::Create(const std::wstring&) {
  throw AutomationError(kCoEClassString, StandardErrorMessage(kCoEClassString));
}

std::wstring NoAutomation::ErrorMessage(int32_t code) { return StandardErrorMessage(code); }

// ---- Registry ------------------------------------------------------------------------------------------------

namespace {

std::wstring AsciiLower(std::wstring text) {
  for (wchar_t& c : text) {
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  }
  return text;
}

}  // namespace

bool RegistryOrder(const RegistryValue& a, const RegistryValue& b) {
  return std::make_tuple(static_cast<int>(a.hive), AsciiLower(a.key), AsciiLower(a.name)) <
         std::make_tuple(static_cast<int>(b.hive), AsciiLower(b.key), AsciiLower(b.name));
}

MemoryRegistry::Path MemoryRegistry::MakePath(RegistryHive hive, const std::wstring& key, const std::wstring& name) {
  return {static_cast<int>(hive), AsciiLower(key), AsciiLower(name)};
}

std::optional<std::wstring> MemoryRegistry::GetString(RegistryHive hive, const std::wstring& key,
                                                      const std::wstring& name) {
  std::lock_guard lock(m_mutex);
  auto it = m_values.find(MakePath(hive, key, name));
  if (it == m_values.end() || it->second.kind != RegistryValue::Kind::kString) return std::nullopt;
  return it->second.text;
}

std::optional<uint32_t> MemoryRegistry::GetDword(RegistryHive hive, const std::wstring& key,
                                                 const std::wstring& name) {
  std::lock_guard lock(m_mutex);
  auto it = m_values.find(MakePath(hive, key, name));
  if (it == m_values.end() || it->second.kind != RegistryValue::Kind::kDword) return std::nullopt;
  return it->second.dword;
}

void MemoryRegistry::Store(RegistryValue value) {
  std::lock_guard lock(m_mutex);
  const Path path = MakePath(value.hive, value.key, value.name);
  // A key that exists keeps its spelling, as the registry keeps that of the key's creation.
  for (const auto& [other, existing] : m_values) {
    if (std::get<0>(other) == std::get<0>(path) && std::get<1>(other) == std::get<1>(path)) {
      value.key = existing.key;
      break;
    }
  }
  if (auto it = m_values.find(path); it != m_values.end()) value.name = it->second.name;
  m_values[path] = std::move(value);
}

bool MemoryRegistry::SetString(RegistryHive hive, const std::wstring& key, const std::wstring& name,
                               const std::wstring& value) {
  Store(RegistryValue{hive, key, name, RegistryValue::Kind::kString, value, 0});
  return true;
}

bool MemoryRegistry::SetDword(RegistryHive hive, const std::wstring& key, const std::wstring& name, uint32_t value) {
  Store(RegistryValue{hive, key, name, RegistryValue::Kind::kDword, {}, value});
  return true;
}

namespace {

// Whether the key (in lower case) is wanted or lies below it.
bool IsAtOrBelow(const std::wstring& key, const std::wstring& wanted) {
  if (wanted.empty() || key == wanted) return true;
  return key.size() > wanted.size() && key.compare(0, wanted.size(), wanted) == 0 && key[wanted.size()] == L'\\';
}

}  // namespace

std::vector<RegistryValue> MemoryRegistry::ValuesUnder(RegistryHive hive, const std::wstring& key) {
  std::lock_guard lock(m_mutex);
  const std::wstring wanted = AsciiLower(key);
  std::vector<RegistryValue> values;
  for (const auto& [path, value] : m_values) {
    if (std::get<0>(path) == static_cast<int>(hive) && IsAtOrBelow(std::get<1>(path), wanted)) {
      values.push_back(value);
    }
  }
  std::sort(values.begin(), values.end(), RegistryOrder);
  return values;
}

bool MemoryRegistry::DeleteTree(RegistryHive hive, const std::wstring& key) {
  std::lock_guard lock(m_mutex);
  const std::wstring wanted = AsciiLower(key);
  std::erase_if(m_values, [&](const auto& entry) {
    return std::get<0>(entry.first) == static_cast<int>(hive) && IsAtOrBelow(std::get<1>(entry.first), wanted);
  });
  return true;
}

// ---- Files ---------------------------------------------------------------------------------------------------

std::filesystem::path NativePath(const std::wstring& path) {
#if defined(_WIN32)
  return std::filesystem::path(path);
#else
  std::wstring slashed = path;
  for (wchar_t& c : slashed) {
    if (c == L'\\') c = L'/';
  }
  return std::filesystem::path(ToUtf8(slashed));
#endif
}

namespace {

std::wstring WidePath(const std::filesystem::path& path) {
#if defined(_WIN32)
  return path.wstring();
#else
  return FromUtf8(path.string());
#endif
}

std::optional<std::string> ReadFileBytes(const std::wstring& path) {
  std::ifstream in(NativePath(path), std::ios::binary);
  if (!in) return std::nullopt;
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

}  // namespace

bool StdFileSystem::FileExists(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(NativePath(path), error);
}

bool StdFileSystem::RemoveFile(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::remove(NativePath(path), error) && !error;
}

bool StdFileSystem::CreatePathTo(const std::wstring& filePath) {
  const std::filesystem::path parent = NativePath(filePath).parent_path();
  if (parent.empty()) return true;
  std::error_code error;
  std::filesystem::create_directories(parent, error);
  return std::filesystem::is_directory(parent, error);
}

bool StdFileSystem::AppendToFile(const std::wstring& path, std::string_view bytes) {
  std::ofstream out(NativePath(path), std::ios::binary | std::ios::app);
  if (!out) return false;
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  return !out.fail();
}

std::wstring StdFileSystem::TempDirectory() {
  std::error_code error;
  std::wstring dir = WidePath(std::filesystem::temp_directory_path(error));
  if (error || dir.empty()) dir = L"/tmp";
  const wchar_t separator = static_cast<wchar_t>(std::filesystem::path::preferred_separator);
  if (dir.back() != separator) dir += separator;
  return dir;
}

std::wstring StdFileSystem::LocalAppDataDirectory() {
  if (const char* data = std::getenv("LOCALAPPDATA"); data && *data) return FromUtf8(data);
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data) return FromUtf8(data);
  if (const char* home = std::getenv("HOME"); home && *home) return FromUtf8(home) + L"/.local/share";
  return {};
}

// ---- Ini files -----------------------------------------------------------------------------------------------

namespace {

// The three forms in which the profile functions read and write a file: UTF-16LE after its byte order mark,
// UTF-8 after its mark, and otherwise the ANSI code page, which is 936 (GBK) on the Chinese Windows served.
enum class IniEncoding { kAnsi, kUtf8Bom, kUtf16Le };

// What a lone 0xFF byte reads as in code page 936.
constexpr wchar_t kLoneFF = L'\uF8F5';

IniEncoding EncodingOf(std::string_view bytes) {
  if (bytes.substr(0, 2) == "\xFF\xFE") return IniEncoding::kUtf16Le;
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") return IniEncoding::kUtf8Bom;
  return IniEncoding::kAnsi;
}

// Code page 936 as the system's converter reads a file (measured against Wine's profile functions): a lead byte
// takes the next byte with it whatever that is, and a pair that isn't valid reads as '?', as does a lead byte cut
// off by the end of a half-written file; a lone 0xFF reads as U+F8F5. No byte stops the reading.
//
// One converter serves the whole file and each byte is converted once, so that a file of bad bytes (the script
// cut off, or any other program's file under the name) reads in time that grows with its size, not its square.
std::wstring DecodeAnsi(std::string_view bytes) {
#if !defined(_WIN32)
  if (iconv_t converter = iconv_open("UTF-8", "CP936"); converter != reinterpret_cast<iconv_t>(-1)) {
    std::string utf8;
    char* in = const_cast<char*>(bytes.data());  // iconv only reads its input
    size_t inLeft = bytes.size();
    char buffer[4096];
    while (inLeft > 0) {
      char* out = buffer;
      size_t outLeft = sizeof buffer;
      const size_t done = iconv(converter, &in, &inLeft, &out, &outLeft);
      utf8.append(buffer, static_cast<size_t>(out - buffer));
      if (done != static_cast<size_t>(-1) || errno == E2BIG) continue;
      // EILSEQ or EINVAL: iconv stopped at the first byte of a sequence that isn't valid or is cut off.
      const bool loneFF = static_cast<unsigned char>(*in) == 0xFF;
      const size_t skip = loneFF ? 1 : std::min<size_t>(2, inLeft);
      utf8 += loneFF ? ToUtf8(std::wstring(1, kLoneFF)) : "?";
      in += skip;
      inLeft -= skip;
      iconv(converter, nullptr, nullptr, nullptr, nullptr);
    }
    iconv_close(converter);
    return FromUtf8(utf8);
  }
#endif
  PortableEncoding encoding;
  std::wstring text;
  while (!bytes.empty()) {
    size_t bad = 0;
    if (std::optional<std::wstring> rest = encoding.FromCodePage936(bytes, bad)) {
      text += *rest;
      break;
    }
    size_t ignored = 0;
    text += encoding.FromCodePage936(bytes.substr(0, bad), ignored).value_or(L"");
    const auto lead = static_cast<unsigned char>(bytes[bad]);
    if (lead == 0xFF) {
      text += kLoneFF;
      bytes.remove_prefix(bad + 1);
    } else {
      text += L'?';
      bytes.remove_prefix(std::min(bad + 2, bytes.size()));
    }
  }
  return text;
}

std::wstring DecodeIniText(std::string_view bytes) {
  switch (EncodingOf(bytes)) {
    case IniEncoding::kUtf16Le: {
      std::wstring text;
      for (size_t i = 2; i < bytes.size(); i += 2) {
        // An odd last byte, half a unit cut off by the end of a half-written file, reads as a unit of its own
        // with a high byte of 0, as the profile functions read it.
        const unsigned high = i + 1 < bytes.size() ? static_cast<unsigned char>(bytes[i + 1]) : 0u;
        text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) | (high << 8));
      }
      if constexpr (sizeof(wchar_t) == 4) return FromUtf8(ToUtf8(text));  // joins surrogate pairs
      return text;
    }
    case IniEncoding::kUtf8Bom: return FromUtf8(bytes.substr(3));
    case IniEncoding::kAnsi: break;
  }
  return DecodeAnsi(bytes);
}

std::string EncodeIniText(const std::wstring& text, IniEncoding encoding) {
  switch (encoding) {
    case IniEncoding::kUtf16Le: {
      std::string bytes = "\xFF\xFE";
      const auto put = [&bytes](unsigned unit) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>((unit >> 8) & 0xFF);
      };
      for (const wchar_t c : text) {
        const auto code = static_cast<unsigned long>(c);
        if (code > 0xFFFF) {  // wchar_t of 32 bits: a surrogate pair
          put(static_cast<unsigned>(0xD800 + ((code - 0x10000) >> 10)));
          put(static_cast<unsigned>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        } else {
          put(static_cast<unsigned>(code));
        }
      }
      return bytes;
    }
    case IniEncoding::kUtf8Bom: return "\xEF\xBB\xBF" + ToUtf8(text);
    case IniEncoding::kAnsi: break;
  }
  // U+F8F5 goes back to the lone 0xFF it was read from, as the system's table maps it both ways.
  std::string bytes;
  size_t from = 0;
  for (size_t at = text.find(kLoneFF); ; at = text.find(kLoneFF, from)) {
    bytes += PortableEncoding().ToCodePage936(std::wstring_view(text).substr(from, at - from));
    if (at == std::wstring::npos) break;
    bytes += '\xFF';
    from = at + 1;
  }
  return bytes;
}

std::vector<std::wstring> SplitIniLines(const std::wstring& text) {
  std::vector<std::wstring> lines;
  std::wstring line;
  for (const wchar_t c : text) {
    if (c == L'\n') {
      if (!line.empty() && line.back() == L'\r') line.pop_back();
      lines.push_back(std::move(line));
      line.clear();
    } else {
      line += c;
    }
  }
  if (!line.empty() && line.back() == L'\r') line.pop_back();  // a file cut between the CR and the LF
  if (!line.empty()) lines.push_back(line);
  return lines;
}

std::wstring TrimBlanks(std::wstring_view text) {
  size_t first = 0, last = text.size();
  while (first < last && (text[first] == L' ' || text[first] == L'\t')) ++first;
  while (last > first && (text[last - 1] == L' ' || text[last - 1] == L'\t')) --last;
  return std::wstring(text.substr(first, last - first));
}

// The section name of a "[name]" line, or nothing for another line.
std::optional<std::wstring> SectionOf(const std::wstring& line) {
  const std::wstring trimmed = TrimBlanks(line);
  if (trimmed.size() < 2 || trimmed.front() != L'[') return std::nullopt;
  const size_t close = trimmed.find(L']');
  if (close == std::wstring::npos) return std::nullopt;
  return TrimBlanks(std::wstring_view(trimmed).substr(1, close - 1));
}

// The key of a "key=value" line and its value, or nothing for another line.
std::optional<std::pair<std::wstring, std::wstring>> EntryOf(const std::wstring& line) {
  const size_t equals = line.find(L'=');
  if (equals == std::wstring::npos || SectionOf(line)) return std::nullopt;
  return std::make_pair(TrimBlanks(std::wstring_view(line).substr(0, equals)),
                        TrimBlanks(std::wstring_view(line).substr(equals + 1)));
}

// A value as the profile functions hand it out: one pair of matching single or double quotes around it is
// dropped, so that a value can keep blanks at its ends.
std::wstring Unquoted(std::wstring value) {
  const bool quoted = value.size() >= 2 && (value.front() == L'"' || value.front() == L'\'') &&
                      value.back() == value.front();
  if (quoted) return value.substr(1, value.size() - 2);
  return value;
}

// The lines of the first section of the given name (in lower case): from its header to the next header. Like
// the profile functions, reads and writes see only the first of several sections with one name.
struct SectionSpan {
  size_t header = 0;
  size_t end = 0;
};

std::optional<SectionSpan> FindSection(const std::vector<std::wstring>& lines, const std::wstring& wantedSection) {
  for (size_t i = 0; i < lines.size(); ++i) {
    const auto name = SectionOf(lines[i]);
    if (!name || AsciiLower(*name) != wantedSection) continue;
    size_t end = i + 1;
    while (end < lines.size() && !SectionOf(lines[end])) ++end;
    return SectionSpan{i, end};
  }
  return std::nullopt;
}

// The line of the section's first entry with the given key (in lower case), or nothing.
std::optional<size_t> FindEntry(const std::vector<std::wstring>& lines, const SectionSpan& section,
                                const std::wstring& wantedKey) {
  for (size_t i = section.header + 1; i < section.end; ++i) {
    const auto entry = EntryOf(lines[i]);
    if (entry && AsciiLower(entry->first) == wantedKey) return i;
  }
  return std::nullopt;
}

std::vector<std::wstring> ReadIniLines(const std::wstring& file) {
  if (const std::optional<std::string> bytes = ReadFileBytes(file)) return SplitIniLines(DecodeIniText(*bytes));
  return {};
}

// The form a write keeps: the file's own, and for a new file UTF-16LE, as the Windows backend starts one.
IniEncoding WriteEncodingOf(const std::wstring& file) {
  if (const std::optional<std::string> bytes = ReadFileBytes(file)) return EncodingOf(*bytes);
  return IniEncoding::kUtf16Le;
}

}  // namespace

std::optional<std::wstring> FileIniStore::GetString(const std::wstring& file, const std::wstring& section,
                                                    const std::wstring& key) {
  const std::vector<std::wstring> lines = ReadIniLines(file);
  const std::optional<SectionSpan> found = FindSection(lines, AsciiLower(section));
  if (!found) return std::nullopt;
  const std::optional<size_t> line = FindEntry(lines, *found, AsciiLower(key));
  if (!line) return std::nullopt;
  return Unquoted(EntryOf(lines[*line])->second);
}

bool FileIniStore::SetString(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                             const std::wstring& value) {
  const IniEncoding encoding = WriteEncodingOf(file);
  std::vector<std::wstring> lines = ReadIniLines(file);
  const std::wstring entry = key + L"=" + value;
  if (const std::optional<SectionSpan> found = FindSection(lines, AsciiLower(section))) {
    if (const std::optional<size_t> line = FindEntry(lines, *found, AsciiLower(key))) {
      lines[*line] = entry;
    } else {
      size_t at = found->end;  // a new key goes behind the section's last line that isn't blank
      while (at > found->header + 1 && TrimBlanks(lines[at - 1]).empty()) --at;
      lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), entry);
    }
  } else {
    lines.push_back(L"[" + section + L"]");
    lines.push_back(entry);
  }
  std::wstring text;
  for (const std::wstring& line : lines) text += line + L"\r\n";
  const std::string bytes = EncodeIniText(text, encoding);
  StdFileSystem files;
  if (!files.CreatePathTo(file)) return false;
  std::ofstream out(NativePath(file), std::ios::binary | std::ios::trunc);
  if (!out) return false;
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  return !out.fail();
}

// ---- Clock ---------------------------------------------------------------------------------------------------

LocalTime LocalClock::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
#if defined(_WIN32)
  localtime_s(&parts, &now);
#else
  localtime_r(&now, &parts);
#endif
  return LocalTime{parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min,
                   parts.tm_sec};
}

// ---- Code page 936 -------------------------------------------------------------------------------------------

std::string PortableEncoding::ToCodePage936(std::wstring_view text) {
  std::string out;
  out.reserve(text.size() * 2);
#if !defined(_WIN32)
  iconv_t converter = iconv_open("CP936", "UTF-8");
  if (converter != reinterpret_cast<iconv_t>(-1)) {
    std::string utf8 = ToUtf8(text);
    char* in = utf8.data();
    size_t inLeft = utf8.size();
    char buffer[4096];
    while (inLeft > 0) {
      char* outPtr = buffer;
      size_t outLeft = sizeof buffer;
      const size_t done = iconv(converter, &in, &inLeft, &outPtr, &outLeft);
      out.append(buffer, static_cast<size_t>(outPtr - buffer));
      if (done != static_cast<size_t>(-1) || errno == E2BIG) continue;
      // A character without a form in the code page: one '?' for each of its UTF-16 units, as the Windows
      // converter writes them, so that the log has the same bytes on both systems.
      size_t skip = 1;
      while (skip < inLeft && (static_cast<unsigned char>(in[skip]) & 0xC0) == 0x80) ++skip;
      out += skip == 4 ? "??" : "?";
      in += skip;
      inLeft -= skip;
      iconv(converter, nullptr, nullptr, nullptr, nullptr);
    }
    iconv_close(converter);
    return out;
  }
#endif
  for (const wchar_t c : text) out += static_cast<unsigned long>(c) < 0x80 ? static_cast<char>(c) : '?';
  return out;
}

std::optional<std::wstring> PortableEncoding::FromCodePage936(std::string_view bytes, size_t& badOffset) {
#if !defined(_WIN32)
  iconv_t converter = iconv_open("UTF-8", "CP936");
  if (converter != reinterpret_cast<iconv_t>(-1)) {
    // The bytes are converted where they lie (iconv only reads its input): a caller that hands the rest of a text
    // again after every bad byte would otherwise have it copied each time, in time that grows with its square.
    std::string utf8;
    char* in = const_cast<char*>(bytes.data());
    size_t inLeft = bytes.size();
    char buffer[4096];
    bool valid = true;
    while (inLeft > 0) {
      char* outPtr = buffer;
      size_t outLeft = sizeof buffer;
      const size_t done = iconv(converter, &in, &inLeft, &outPtr, &outLeft);
      utf8.append(buffer, static_cast<size_t>(outPtr - buffer));
      if (done != static_cast<size_t>(-1) || errno == E2BIG) continue;
      // EILSEQ: a sequence that isn't valid; EINVAL: a lead byte whose trail byte is missing at the end. Either
      // way iconv stopped at the first byte of that sequence.
      valid = false;
      break;
    }
    iconv_close(converter);
    if (!valid) {
      badOffset = static_cast<size_t>(in - bytes.data());
      return std::nullopt;
    }
    return FromUtf8(utf8);
  }
#endif
  std::wstring text;
  text.reserve(bytes.size());
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (static_cast<unsigned char>(bytes[i]) >= 0x80) {
      badOffset = i;
      return std::nullopt;
    }
    text += static_cast<wchar_t>(bytes[i]);
  }
  return text;
}

// ---- Parameters ----------------------------------------------------------------------------------------------

std::wstring ProcessParameters::GetString(EnTallyKey key) {
  {
    std::lock_guard lock(m_mutex);
    auto it = m_values.find(static_cast<int32_t>(key));
    if (it != m_values.end()) return it->second;
  }
  const std::string name = "OSTREL_TALLY_" + std::to_string(static_cast<int32_t>(key));
  if (const char* value = std::getenv(name.c_str())) return FromUtf8(value);
  return {};
}

void ProcessParameters::Set(EnTallyKey key, std::wstring value) {
  std::lock_guard lock(m_mutex);
  m_values[static_cast<int32_t>(key)] = std::move(value);
}

void ProcessParameters::Erase(EnTallyKey key) {
  std::lock_guard lock(m_mutex);
  m_values.erase(static_cast<int32_t>(key));
}

void ProcessParameters::Clear() {
  std::lock_guard lock(m_mutex);
  m_values.clear();
}

}  // namespace ostrel
