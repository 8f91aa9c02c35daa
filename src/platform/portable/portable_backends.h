// The portable backends, built everywhere: real files, the local clock, ini files on disk, an in-memory
// registry, parameters from the process, a code page converter, and "nothing there" for automation, windows and
// the screen until a host installs its own.
#pragma once

#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <tuple>
#include <vector>

#include "platform/platform.h"

namespace ostrel {

// No automation server: every creation fails as an unregistered ProgID does.
class NoAutomation final : public IAutomation {
 public:
  int32_t Initialize() override { return kSOk; }
  DispatchPtr Create(const std::wstring& progId) override;
  std::wstring ErrorMessage(int32_t code) override;
};

// The texts Windows gives for the result codes the library reports, without their line end.
std::wstring StandardErrorMessage(int32_t code);

// No windows at all: every search finds nothing.
class NoWindows final : public IWindowTree, public IScreen {
 public:
  WindowHandle FindTopLevel(const std::wstring&, const std::wstring*) override { return 0; }
  WindowHandle FindChild(WindowHandle, const std::wstring&) override { return 0; }
  WindowHandle FindDescendantByClass(WindowHandle, const std::wstring&) override { return 0; }
  bool GetDescendants(WindowHandle, bool, std::vector<WindowHandle>& out) override {
    out.clear();
    return false;
  }
  WindowHandle ParentOf(WindowHandle) override { return 0; }
  bool RectOf(WindowHandle, WindowRect&) override { return false; }
  bool IsVisible(WindowHandle) override { return false; }
  WindowHandle WindowAt(int32_t, int32_t) override { return 0; }
  std::wstring ClassOf(WindowHandle) override { return {}; }
  std::wstring TextOf(WindowHandle) override { return {}; }
  bool SetText(WindowHandle, const std::wstring&) override { return false; }
  bool GiveFocus(WindowHandle) override { return false; }
  bool PressEnter(WindowHandle) override { return false; }
  int32_t ComboBoxCount(WindowHandle) override { return -1; }
  int32_t ComboBoxSelection(WindowHandle) override { return -1; }
  void ScreenSize(int32_t& width, int32_t& height) override { width = height = 0; }
  int32_t FindImage(const std::wstring&, const WindowRect&, WindowRect&, double) override { return 0; }
};

// A registry in memory: keys compare without regard to case, as the Windows registry's do, and keep the spelling
// of the write that made them.
class MemoryRegistry final : public IRegistry {
 public:
  std::optional<std::wstring> GetString(RegistryHive hive, const std::wstring& key, const std::wstring& name) override;
  std::optional<uint32_t> GetDword(RegistryHive hive, const std::wstring& key, const std::wstring& name) override;
  bool SetString(RegistryHive hive, const std::wstring& key, const std::wstring& name,
                 const std::wstring& value) override;
  bool SetDword(RegistryHive hive, const std::wstring& key, const std::wstring& name, uint32_t value) override;
  std::vector<RegistryValue> ValuesUnder(RegistryHive hive, const std::wstring& key) override;
  bool DeleteTree(RegistryHive hive, const std::wstring& key) override;

 private:
  using Path = std::tuple<int, std::wstring, std::wstring>;
  static Path MakePath(RegistryHive hive, const std::wstring& key, const std::wstring& name);
  void Store(RegistryValue value);
  std::mutex m_mutex;
  std::map<Path, RegistryValue> m_values;
};

// Ini files on disk, read and written as the Windows profile functions do on the Chinese Windows served: after a
// UTF-16LE byte order mark in UTF-16LE, after a UTF-8 one in UTF-8, and otherwise in the ANSI code page 936 (GBK),
// where no byte stops the reading (a pair that isn't valid reads as '?', as Windows' converter reads it). A write
// keeps the file's form; a new file is UTF-16LE with its mark, with CR LF line ends. As the profile functions do,
// sections and keys compare without regard to ASCII case, blanks around keys and values and one pair of quotes
// around a value are dropped, the first of two keys (or sections) with one name is the one read and written, and
// keys before the first section belong to none.
class FileIniStore final : public IIniStore {
 public:
  std::optional<std::wstring> GetString(const std::wstring& file, const std::wstring& section,
                                        const std::wstring& key) override;
  bool SetString(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                 const std::wstring& value) override;
};

// Real files through the standard library. On systems whose separator is '/', a '\' in a path is taken as a
// separator too, so that the library's Windows-style paths name the same places.
class StdFileSystem final : public IFileSystem {
 public:
  bool FileExists(const std::wstring& path) override;
  bool RemoveFile(const std::wstring& path) override;
  bool CreatePathTo(const std::wstring& filePath) override;
  bool AppendToFile(const std::wstring& path, std::string_view bytes) override;
  std::wstring TempDirectory() override;
  std::wstring LocalAppDataDirectory() override;
};

class LocalClock final : public IClock {
 public:
  LocalTime Now() override;
};

// Code page 936 through iconv where the C library has it; elsewhere a converter that keeps ASCII and writes
// '?' for the rest, and decodes ASCII only, taking the first other byte as invalid (the Windows backend brings
// the system's converter).
class PortableEncoding final : public ITextEncoding {
 public:
  std::string ToCodePage936(std::wstring_view text) override;
  std::optional<std::wstring> FromCodePage936(std::string_view bytes, size_t& badOffset) override;
};

// Parameters that the host sets in the process with Set, or, for a key never set, the environment variable
// OSTREL_TALLY_<key> (UTF-8). A key with neither reads as the empty string.
class ProcessParameters final : public IParameters {
 public:
  std::wstring GetString(EnTallyKey key) override;
  void Set(EnTallyKey key, std::wstring value);
  // Takes back what Set gave the key: the environment variable (or nothing) answers again.
  void Erase(EnTallyKey key);
  void Clear();

 private:
  std::mutex m_mutex;
  std::map<int32_t, std::wstring> m_values;
};

// The process's own parameters backend, for a host that wants to set keys.
ProcessParameters& DefaultParameters() noexcept;

// A path in the form the standard library takes on this system ('\\' read as a separator where it is none).
std::filesystem::path NativePath(const std::wstring& path);

}  // namespace ostrel
