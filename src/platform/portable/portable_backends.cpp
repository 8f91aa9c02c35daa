// The portable backends.
#include "platform/portable/portable_backends.h"

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

MemoryRegistry::Path MemoryRegistry::MakePath(RegistryHive hive, const std::wstring& key, const std::wstring& name) {
  return {static_cast<int>(hive), AsciiLower(key), AsciiLower(name)};
}

std::optional<std::wstring> MemoryRegistry::GetString(RegistryHive hive, const std::wstring& key,
                                                      const std::wstring& name) {
  std::lock_guard lock(m_mutex);
  auto it = m_values.find(MakePath(hive, key, name));
  if (it == m_values.end() || it->second.isDword) return std::nullopt;
  return it->second.text;
}

std::optional<uint32_t> MemoryRegistry::GetDword(RegistryHive hive, const std::wstring& key,
                                                 const std::wstring& name) {
  std::lock_guard lock(m_mutex);
  auto it = m_values.find(MakePath(hive, key, name));
  if (it == m_values.end() || !it->second.isDword) return std::nullopt;
  return it->second.dword;
}

bool MemoryRegistry::SetString(RegistryHive hive, const std::wstring& key, const std::wstring& name,
                               const std::wstring& value) {
  std::lock_guard lock(m_mutex);
  m_values[MakePath(hive, key, name)] = Value{false, value, 0};
  return true;
}

bool MemoryRegistry::SetDword(RegistryHive hive, const std::wstring& key, const std::wstring& name, uint32_t value) {
  std::lock_guard lock(m_mutex);
  m_values[MakePath(hive, key, name)] = Value{true, {}, value};
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

std::wstring DecodeIniText(const std::string& bytes) {
  if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF &&
      static_cast<unsigned char>(bytes[1]) == 0xFE) {
    std::wstring text;
    for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
      text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                   (static_cast<unsigned char>(bytes[i + 1]) << 8));
    }
    if constexpr (sizeof(wchar_t) == 4) return FromUtf8(ToUtf8(text));  // joins surrogate pairs
    return text;
  }
  std::string_view view(bytes);
  if (view.substr(0, 3) == "\xEF\xBB\xBF") view.remove_prefix(3);
  return FromUtf8(view);
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

}  // namespace

std::optional<std::wstring> FileIniStore::GetString(const std::wstring& file, const std::wstring& section,
                                                    const std::wstring& key) {
  const std::optional<std::string> bytes = ReadFileBytes(file);
  if (!bytes) return std::nullopt;
  const std::wstring wantedSection = AsciiLower(section), wantedKey = AsciiLower(key);
  bool inSection = false;
  for (const std::wstring& line : SplitIniLines(DecodeIniText(*bytes))) {
    if (const auto name = SectionOf(line)) {
      inSection = AsciiLower(*name) == wantedSection;
      continue;
    }
    if (!inSection) continue;
    const auto entry = EntryOf(line);
    if (entry && AsciiLower(entry->first) == wantedKey) return entry->second;
  }
  return std::nullopt;
}

bool FileIniStore::SetString(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                             const std::wstring& value) {
  std::vector<std::wstring> lines;
  if (const std::optional<std::string> bytes = ReadFileBytes(file)) lines = SplitIniLines(DecodeIniText(*bytes));
  const std::wstring wantedSection = AsciiLower(section), wantedKey = AsciiLower(key);
  const std::wstring entry = key + L"=" + value;
  bool inSection = false, done = false;
  size_t sectionEnd = std::wstring::npos;  // where a new key of the section goes
  for (size_t i = 0; i < lines.size() && !done; ++i) {
    if (const auto name = SectionOf(lines[i])) {
      inSection = AsciiLower(*name) == wantedSection;
      if (inSection) sectionEnd = i + 1;
      continue;
    }
    if (!inSection) continue;
    const auto current = EntryOf(lines[i]);
    if (current && AsciiLower(current->first) == wantedKey) {
      lines[i] = entry;
      done = true;
    } else if (!TrimBlanks(lines[i]).empty()) {
      sectionEnd = i + 1;
    }
  }
  if (!done && sectionEnd != std::wstring::npos) {
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(sectionEnd), entry);
  } else if (!done) {
    lines.push_back(L"[" + section + L"]");
    lines.push_back(entry);
  }
  std::string bytes;
  for (const std::wstring& line : lines) bytes += ToUtf8(line) + "\r\n";
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

// The portable decoder comes from another branch; this placeholder only keeps the build whole.
std::optional<std::wstring> PortableEncoding::FromCodePage936(std::string_view, size_t&) {
  throw std::logic_error("not in this branch");
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

void ProcessParameters::Clear() {
  std::lock_guard lock(m_mutex);
  m_values.clear();
}

}  // namespace ostrel
