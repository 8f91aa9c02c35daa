// The Windows backends: COM automation, the live window tree, the system's code page 936 converter, ini files
// through the profile functions, the registry, the local clock and the well-known folders.
#include <windows.h>

#include <shlobj.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "platform/portable/portable_backends.h"
#include "platform/system_backends.h"
#include "platform/win32/com_automation.h"
#include "platform/win32/holders.h"
#include "platform/win32/win32_windows.h"

namespace ostrel::win32 {
namespace {

constexpr UINT kCodePage936 = 936;

// Decodes bytes that must all be valid in code page 936 into UTF-16; 0 when one isn't, as the system says.
int DecodeStrict(std::string_view bytes, wchar_t* out, int outSize) {
  return MultiByteToWideChar(kCodePage936, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()), out,
                             outSize);
}

// The offset of the first byte of the first character that isn't valid in code page 936, found character by
// character: a lead byte takes the byte after it (a lead byte at the end is cut off), any other byte stands alone,
// and the system decides whether that character is defined. The size of bytes when every character is valid.
size_t FirstInvalidOffset(std::string_view bytes) {
  wchar_t decoded[2];
  size_t offset = 0;
  while (offset < bytes.size()) {
    const bool lead = IsDBCSLeadByteEx(kCodePage936, static_cast<BYTE>(bytes[offset])) != 0;
    const size_t length = lead ? 2 : 1;
    if (offset + length > bytes.size()) return offset;
    if (DecodeStrict(bytes.substr(offset, length), decoded, 2) == 0) return offset;
    offset += length;
  }
  return offset;
}

class Win32Encoding final : public ITextEncoding {
 public:
  std::string ToCodePage936(std::wstring_view text) override {
    if (text.empty()) return {};
    const int wideLength = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(936, 0, text.data(), wideLength, nullptr, 0, "?", nullptr);
    std::string out(static_cast<size_t>(size > 0 ? size : 0), '\0');
    if (size > 0) WideCharToMultiByte(936, 0, text.data(), wideLength, out.data(), size, "?", nullptr);
    return out;
  }

  std::optional<std::wstring> FromCodePage936(std::string_view bytes, size_t& badOffset) override {
    if (bytes.empty()) return std::wstring();
    if (bytes.size() > static_cast<size_t>(INT_MAX)) throw std::length_error("code page 936 text too long");
    const int size = DecodeStrict(bytes, nullptr, 0);
    if (size == 0) return Invalid(bytes, badOffset);
    std::wstring text(static_cast<size_t>(size), L'\0');
    if (DecodeStrict(bytes, text.data(), size) != size) return Invalid(bytes, badOffset);
    return text;
  }

 private:
  // The system refused the bytes: says where. A refusal without an invalid character is a failure of its own.
  static std::optional<std::wstring> Invalid(std::string_view bytes, size_t& badOffset) {
    const DWORD error = GetLastError();
    const size_t offset = FirstInvalidOffset(bytes);
    if (offset == bytes.size()) {
      throw std::system_error(static_cast<int>(error), std::system_category(), "MultiByteToWideChar(936)");
    }
    badOffset = offset;
    return std::nullopt;
  }
};

// Real files as the portable backend has them, with the temporary and local application data folders of the
// user from the system.
class Win32FileSystem final : public IFileSystem {
 public:
  bool FileExists(const std::wstring& path) override { return m_files.FileExists(path); }
  bool RemoveFile(const std::wstring& path) override { return DeleteFileW(path.c_str()) != 0; }
  bool CreatePathTo(const std::wstring& filePath) override { return m_files.CreatePathTo(filePath); }
  bool AppendToFile(const std::wstring& path, std::string_view bytes) override {
    return m_files.AppendToFile(path, bytes);
  }
  std::wstring TempDirectory() override {
    wchar_t buffer[MAX_PATH + 1] = {};
    const DWORD length = GetTempPathW(MAX_PATH + 1, buffer);
    return length > 0 && length <= MAX_PATH ? std::wstring(buffer, length) : std::wstring();
  }
  std::wstring LocalAppDataDirectory() override {
    wchar_t buffer[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, buffer))) return {};
    return buffer;
  }

 private:
  StdFileSystem m_files;
};

class ProfileIniStore final : public IIniStore {
 public:
  std::optional<std::wstring> GetString(const std::wstring& file, const std::wstring& section,
                                        const std::wstring& key) override {
    // A default no value can hold tells a missing key from an empty one.
    static constexpr wchar_t kMissing[] = L"\x01missing\x01";
    std::vector<wchar_t> buffer(4096);
    for (;;) {
      const DWORD length = GetPrivateProfileStringW(section.c_str(), key.c_str(), kMissing, buffer.data(),
                                                    static_cast<DWORD>(buffer.size()), file.c_str());
      if (length + 1 < buffer.size() || buffer.size() > (1u << 20)) {
        std::wstring value(buffer.data(), length);
        if (value == kMissing) return std::nullopt;
        return value;
      }
      buffer.resize(buffer.size() * 4);
    }
  }

  bool SetString(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                 const std::wstring& value) override {
    // A new file starts with a UTF-16 byte order mark, so that the profile functions keep it in Unicode and
    // Chinese text survives whatever the system's ANSI code page.
    if (GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES) {
      static constexpr char kUtf16Mark[] = "\xFF\xFE";
      m_files.CreatePathTo(file);
      m_files.AppendToFile(file, std::string_view(kUtf16Mark, 2));
    }
    return WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), file.c_str()) != 0;
  }

 private:
  StdFileSystem m_files;
};

HKEY RootOf(RegistryHive hive) { return hive == RegistryHive::kLocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

// Opens key for setting values, making it and the keys above it where missing; an empty holder when it can't.
Hkey OpenForWriting(RegistryHive hive, const std::wstring& key) {
  Hkey opened;
  if (RegCreateKeyExW(RootOf(hive), key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, opened.Put(), nullptr) !=
      ERROR_SUCCESS) {
    opened.Reset();
  }
  return opened;
}

// The values of the open key and of the keys below it, named by their path from the hive.
void CollectValues(HKEY opened, RegistryHive hive, const std::wstring& path, std::vector<RegistryValue>& out) {
  DWORD longestName = 0, longestData = 0, longestSubkey = 0;
  if (RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, nullptr, &longestSubkey, nullptr, nullptr, &longestName,
                       &longestData, nullptr, nullptr) != ERROR_SUCCESS) {
    return;
  }
  std::vector<wchar_t> name(longestName + 2);
  std::vector<BYTE> data(longestData + sizeof(wchar_t) * 2);
  for (DWORD i = 0;; ++i) {
    DWORD nameLength = static_cast<DWORD>(name.size()), dataSize = static_cast<DWORD>(data.size()), type = 0;
    std::fill(data.begin(), data.end(), BYTE{0});
    if (RegEnumValueW(opened, i, name.data(), &nameLength, nullptr, &type, data.data(), &dataSize) !=
        ERROR_SUCCESS) {
      break;
    }
    RegistryValue value{hive, path, std::wstring(name.data(), nameLength), RegistryValue::Kind::kOther, {}, type};
    if (type == REG_SZ) {
      const auto* text = reinterpret_cast<const wchar_t*>(data.data());
      value.kind = RegistryValue::Kind::kString;
      value.text.assign(text, wcsnlen(text, dataSize / sizeof(wchar_t)));
      value.dword = 0;
    } else if (type == REG_DWORD && dataSize == sizeof(DWORD)) {
      value.kind = RegistryValue::Kind::kDword;
      std::memcpy(&value.dword, data.data(), sizeof(DWORD));
    }
    out.push_back(std::move(value));
  }
  std::vector<wchar_t> subkey(longestSubkey + 2);
  for (DWORD i = 0;; ++i) {
    DWORD length = static_cast<DWORD>(subkey.size());
    if (RegEnumKeyExW(opened, i, subkey.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    const std::wstring child = path + L"\\" + std::wstring(subkey.data(), length);
    Hkey below;
    if (RegOpenKeyExW(opened, std::wstring(subkey.data(), length).c_str(), 0, KEY_READ, below.Put()) ==
        ERROR_SUCCESS) {
      CollectValues(below.Get(), hive, child, out);
    }
  }
}

class Win32Registry final : public IRegistry {
 public:
  std::optional<std::wstring> GetString(RegistryHive hive, const std::wstring& key,
                                        const std::wstring& name) override {
    DWORD bytes = 0;
    if (RegGetValueW(RootOf(hive), key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS) {
      return std::nullopt;
    }
    std::wstring value(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (RegGetValueW(RootOf(hive), key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, value.data(), &bytes) !=
        ERROR_SUCCESS) {
      return std::nullopt;
    }
    value.resize(wcsnlen(value.c_str(), value.size()));
    return value;
  }
  std::optional<uint32_t> GetDword(RegistryHive hive, const std::wstring& key, const std::wstring& name) override {
    DWORD value = 0, bytes = sizeof value;
    if (RegGetValueW(RootOf(hive), key.c_str(), name.c_str(), RRF_RT_REG_DWORD, nullptr, &value, &bytes) !=
        ERROR_SUCCESS) {
      return std::nullopt;
    }
    return value;
  }
  bool SetString(RegistryHive hive, const std::wstring& key, const std::wstring& name,
                 const std::wstring& value) override {
    const Hkey opened = OpenForWriting(hive, key);
    if (!opened) return false;
    const DWORD bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(opened.Get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          bytes) == ERROR_SUCCESS;
  }
  bool SetDword(RegistryHive hive, const std::wstring& key, const std::wstring& name, uint32_t value) override {
    const Hkey opened = OpenForWriting(hive, key);
    if (!opened) return false;
    const DWORD data = value;
    return RegSetValueExW(opened.Get(), name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&data),
                          sizeof data) == ERROR_SUCCESS;
  }
  std::vector<RegistryValue> ValuesUnder(RegistryHive hive, const std::wstring& key) override {
    std::vector<RegistryValue> values;
    Hkey opened;
    if (RegOpenKeyExW(RootOf(hive), key.c_str(), 0, KEY_READ, opened.Put()) == ERROR_SUCCESS) {
      CollectValues(opened.Get(), hive, key, values);
    }
    std::sort(values.begin(), values.end(), RegistryOrder);
    return values;
  }
  bool DeleteTree(RegistryHive hive, const std::wstring& key) override {
    // RegDeleteTreeW empties the key and deletes the keys below it; the key itself goes after.
    LSTATUS status = RegDeleteTreeW(RootOf(hive), key.c_str());
    if (status == ERROR_FILE_NOT_FOUND) return true;
    if (status != ERROR_SUCCESS) return false;
    status = RegDeleteKeyW(RootOf(hive), key.c_str());
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
  }
};

class Win32Clock final : public IClock {
 public:
  LocalTime Now() override {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return LocalTime{now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
  }
};

}  // namespace
}  // namespace ostrel::win32

namespace ostrel {

void InstallSystemBackends(Platform& platform) {
  static win32::ComAutomation automation;
  static win32::Win32WindowTree windows;
  static win32::Win32Screen screen;
  static win32::Win32Encoding encoding;
  static win32::Win32FileSystem files;
  static win32::ProfileIniStore ini;
  static win32::Win32Registry registry;
  static win32::Win32Clock clock;
  platform.automation = &automation;
  platform.windows = &windows;
  platform.screen = &screen;
  platform.encoding = &encoding;
  platform.files = &files;
  platform.ini = &ini;
  platform.registry = &registry;
  platform.clock = &clock;
}

}  // namespace ostrel
