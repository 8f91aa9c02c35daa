// The event file's tests: a temporary directory and a local application data directory of their own, an event
// file written as the notifier script writes it (UTF-16LE with its mark), and a simulated Photoshop when a test
// needs the active layer.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ostrel/lifecycle.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/text.h"
#include "simulator/photoshop.h"
#include "simulator/scenario.h"

namespace ostrel::test {

inline std::wstring Wide(const std::filesystem::path& path) {
#if defined(_WIN32)
  return path.wstring();
#else
  return FromUtf8(path.string());
#endif
}

// The real files, with the two well-known folders moved into the test's own directory.
class FolderFiles final : public IFileSystem {
 public:
  FolderFiles(std::wstring temp, std::wstring localAppData)
      : m_temp(std::move(temp)), m_localAppData(std::move(localAppData)) {}
  bool FileExists(const std::wstring& path) override { return m_files.FileExists(path); }
  bool RemoveFile(const std::wstring& path) override { return m_files.RemoveFile(path); }
  bool CreatePathTo(const std::wstring& path) override { return m_files.CreatePathTo(path); }
  bool AppendToFile(const std::wstring& path, std::string_view bytes) override {
    return m_files.AppendToFile(path, bytes);
  }
  std::wstring TempDirectory() override { return m_temp; }
  std::wstring LocalAppDataDirectory() override { return m_localAppData; }

 private:
  StdFileSystem m_files;
  std::wstring m_temp, m_localAppData;
};

// UTF-16LE with its byte order mark, as the notifier script writes the file.
inline std::string Utf16LeFile(std::wstring_view text) {
  std::string bytes = "\xFF\xFE";
  for (const wchar_t c : text) {  // the tests' texts lie in the BMP
    bytes += static_cast<char>(static_cast<unsigned>(c) & 0xFF);
    bytes += static_cast<char>((static_cast<unsigned>(c) >> 8) & 0xFF);
  }
  return bytes;
}

class EventFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = "ostrel_events_" + std::string(info->test_suite_name()) + "_" + info->name();
    for (char& c : name) c = c == '/' ? '_' : c;
    m_root = std::filesystem::path(::testing::TempDir()) / name;
    std::filesystem::remove_all(m_root);
    std::filesystem::create_directories(m_root / "temp");
    std::filesystem::create_directories(m_root / "local");
    const auto separator = static_cast<wchar_t>(std::filesystem::path::preferred_separator);
    m_files = std::make_unique<FolderFiles>(Wide(m_root / "temp") + separator, Wide(m_root / "local"));
    m_platform = std::make_unique<ScopedPlatform>(Platform{.files = m_files.get()});
  }
  void TearDown() override {
    Ostrel_UnInit();
    m_platform.reset();
    if (m_photoshop) {
      EXPECT_EQ(m_photoshop->LiveObjects(), 0);
    }
    m_photoshop.reset();
    m_files.reset();
    std::error_code ignored;
    std::filesystem::remove_all(m_root, ignored);
  }

  // Connects to a simulated Photoshop of the scenario text (the files stay as they are).
  void ConnectToText(const std::string& scenario) {
    Ostrel_UnInit();
    m_platform.reset();
    const std::filesystem::path examples = std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop";
    m_photoshop = std::make_unique<sim::SimulatedPhotoshop>(sim::ParseScenario(scenario, examples, "test.json"));
    m_platform = std::make_unique<ScopedPlatform>(Platform{.automation = m_photoshop.get(), .files = m_files.get()});
    ASSERT_EQ(Ostrel_Init(), 1);
  }

  std::filesystem::path TempFile() const { return m_root / "temp" / "PsNotifiers.ini"; }
  std::filesystem::path LocalFile() const { return m_root / "local" / "Temp" / "PsNotifiers.ini"; }

  static void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  void WriteEventFile(std::wstring_view text) { WriteBytes(TempFile(), Utf16LeFile(text)); }

  // A key of the event file as the ini store reads it now; nothing when it isn't there.
  std::optional<std::wstring> Key(const wchar_t* section, const wchar_t* key) const {
    return CurrentPlatform().ini->GetString(Wide(TempFile()), section, key);
  }

  std::filesystem::path m_root;
  std::unique_ptr<FolderFiles> m_files;
  std::unique_ptr<sim::SimulatedPhotoshop> m_photoshop;
  std::unique_ptr<ScopedPlatform> m_platform;
};

}  // namespace ostrel::test
