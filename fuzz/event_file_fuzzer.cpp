// The event file that the notifier script writes inside Photoshop: the input is the file's bytes, read by the
// portable ini store as the profile functions read them (UTF-16LE or UTF-8 after their byte order marks, code page
// 936 without one), and every reader of the event file runs over it. No reader may fail, whatever the bytes; the
// readers that take their event must not report it twice (a second round gives 0 and empty names, the brush
// preset, which is only read, the same name), and a file they wrote into keeps its form (its byte order mark, or
// none).
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz_support.h"
#include "ostrel/events.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"

namespace {

// The real files, with the temporary folder (where the event file is looked for first) one of this process.
class FuzzFolders final : public ostrel::IFileSystem {
 public:
  explicit FuzzFolders(std::filesystem::path root) : m_root(std::move(root)) {
    std::filesystem::create_directories(m_root / "temp");
  }
  ~FuzzFolders() override {
    std::error_code ignored;
    std::filesystem::remove_all(m_root, ignored);
  }
  FuzzFolders(const FuzzFolders&) = delete;
  FuzzFolders& operator=(const FuzzFolders&) = delete;
  bool FileExists(const std::wstring& path) override { return m_files.FileExists(path); }
  bool RemoveFile(const std::wstring& path) override { return m_files.RemoveFile(path); }
  bool CreatePathTo(const std::wstring& path) override { return m_files.CreatePathTo(path); }
  bool AppendToFile(const std::wstring& path, std::string_view bytes) override {
    return m_files.AppendToFile(path, bytes);
  }
  std::wstring TempDirectory() override { return ostrel::FromUtf8((m_root / "temp" / "").string()); }
  std::wstring LocalAppDataDirectory() override { return ostrel::FromUtf8((m_root / "local").string()); }
  std::filesystem::path EventFile() const { return m_root / "temp" / "PsNotifiers.ini"; }

 private:
  ostrel::StdFileSystem m_files;
  std::filesystem::path m_root;
};

FuzzFolders& Folders() {
  static FuzzFolders folders(std::filesystem::temp_directory_path() /
                             ("ostrel-fuzz-events-" + std::to_string(::getpid())));
  return folders;
}

// The form of the file as the store tells it: 0 code page 936, 1 UTF-8 with its mark, 2 UTF-16LE with its mark.
int FormOf(std::string_view bytes) {
  if (bytes.substr(0, 2) == "\xFF\xFE") return 2;
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") return 1;
  return 0;
}

std::string ReadBack(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

// Every reader once. Its answers, as one text, for the second round to be compared with.
struct Round {
  int flags = 0;  // the sum of every flag and result, each 0 or 1 when the event was taken
  std::wstring names;
  std::wstring brush;
};

Round ReadEvents() {
  Round round;
  round.flags += Ostrel_IsColorExchange() + Ostrel_IsDefaultBackgroundForegroundColor() + Ostrel_IsSmartObjectEdit();
  for (std::wstring (*read)() : {Ostrel_GetJoinLayerMaskName, Ostrel_GetQuitLayerMaskName,
                                 Ostrel_GetDuplicateDeleteName, Ostrel_GetDeleteMaskLayerName,
                                 Ostrel_GetLinkMaskLayerName, Ostrel_GetSelectEventLayerName,
                                 Ostrel_GetSmartReplacePath}) {
    round.names += read();
  }
  round.brush = Ostrel_GetCurrentBrushPresetName();
  std::wstring start, dest, name;
  EnLayerMask mask{};
  EnSelectMode mode{};
  EnLayerPanel panel{};
  round.flags += Ostrel_GetAddMask(start, dest, mask);
  round.names += start + dest;
  round.flags += Ostrel_GetLoadSelectionInfo(name, mode, panel, mask);
  round.names += name;
  return round;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostrel::fuzz::InitLibraryOnce();  // unconnected: "-1" names the active layer, which reads as ""
  FuzzFolders& folders = Folders();
  const std::string_view bytes = ostrel::fuzz::Bytes(data, size);
  {
    std::ofstream out(folders.EventFile(), std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  ostrel::ScopedPlatform platform(ostrel::Platform{.files = &folders});
  const Round first = ReadEvents();
  const Round second = ReadEvents();
  if (second.flags != 0 || !second.names.empty()) ostrel::fuzz::Broken("an event reported twice");
  if (second.brush != first.brush) ostrel::fuzz::Broken("the brush preset changed by reading it");
  const std::string after = ReadBack(folders.EventFile());
  if (after != bytes && FormOf(after) != FormOf(bytes)) ostrel::fuzz::Broken("a write changed the file's form");
  return 0;
}
