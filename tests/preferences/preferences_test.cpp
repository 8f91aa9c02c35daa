// Install discovery and the preference writers against the registry in force: the in-memory registry on Linux,
// the real registry when the Windows build runs under Wine. Each test starts and ends with no Photoshop keys, and
// compares the whole of them before and after a call to see exactly what it wrote.
#if defined(_WIN32)
#include <windows.h>  // first: the interface's tagSIZE then is the system's
#endif

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel {
namespace {

constexpr RegistryHive kUser = RegistryHive::kCurrentUser;
constexpr RegistryHive kMachine = RegistryHive::kLocalMachine;
constexpr wchar_t kAdobe[] = L"SOFTWARE\\Adobe\\Photoshop";
constexpr wchar_t kWowAdobe[] = L"SOFTWARE\\Wow6432Node\\Adobe\\Photoshop";

std::wstring Wide(const std::filesystem::path& path) {
#if defined(_WIN32)
  return path.wstring();
#else
  return FromUtf8(path.string());
#endif
}

// The Photoshop keys of both hives, whole.
std::vector<RegistryValue> PhotoshopKeys() {
  IRegistry& registry = *CurrentPlatform().registry;
  std::vector<RegistryValue> all;
  for (RegistryHive hive : {kUser, kMachine}) {
    for (const wchar_t* key : {kAdobe, kWowAdobe}) {
      const std::vector<RegistryValue> values = registry.ValuesUnder(hive, key);
      all.insert(all.end(), values.begin(), values.end());
    }
  }
  return all;
}

std::string Describe(const std::vector<RegistryValue>& values) {
  std::string text;
  for (const RegistryValue& v : values) {
    text += (v.hive == kUser ? "HKCU\\" : "HKLM\\") + ToUtf8(v.key) + " [" + ToUtf8(v.name) +
            "] = " + (v.kind == RegistryValue::Kind::kDword ? std::to_string(v.dword) : '"' + ToUtf8(v.text) + '"') +
            "\n";
  }
  return text;
}

class PreferencesTest : public ::testing::Test {
 protected:
  void SetUp() override {
#if defined(_WIN32)
    // These tests delete Photoshop's keys: only in Wine's registry, never in that of a real Windows.
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr) {
      GTEST_SKIP() << "rewrites Photoshop's registry keys: runs only under Wine";
    }
#endif
    Clear();
    m_dir = std::filesystem::path(::testing::TempDir()) /
            ("ostrel_prefs_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(m_dir);
  }
  void TearDown() override {
    Clear();
    std::error_code ignored;
    std::filesystem::remove_all(m_dir, ignored);
  }
  static void Clear() {
    IRegistry& registry = *CurrentPlatform().registry;
    for (RegistryHive hive : {kUser, kMachine}) {
      ASSERT_TRUE(registry.DeleteTree(hive, kAdobe));
      ASSERT_TRUE(registry.DeleteTree(hive, kWowAdobe));
    }
  }
  // An install folder with Photoshop.exe in it, as the library's Windows-style path without its separator.
  std::wstring InstallFolder(const char* name) {
    const std::filesystem::path folder = m_dir / name;
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "Photoshop.exe") << "MZ";
    return Wide(folder);
  }
  static void SetMachinePath(const wchar_t* key, const std::wstring& version, const std::wstring& path) {
    ASSERT_TRUE(
        CurrentPlatform().registry->SetString(kMachine, std::wstring(key) + L"\\" + version, L"ApplicationPath", path));
  }

  std::filesystem::path m_dir;
};

TEST_F(PreferencesTest, TheRegistryListsAndDeletesWholeKeys) {
  IRegistry& registry = *CurrentPlatform().registry;
  ASSERT_TRUE(registry.SetString(kUser, L"SOFTWARE\\Adobe\\Photoshop\\130.0", L"b", L"x"));
  ASSERT_TRUE(registry.SetDword(kUser, L"SOFTWARE\\Adobe\\Photoshop\\130.0\\Sub", L"a", 7));
  ASSERT_TRUE(registry.SetDword(kUser, L"SOFTWARE\\Adobe\\Photoshop\\130.0", L"A", 1));
  ASSERT_TRUE(registry.SetString(kUser, L"SOFTWARE\\Adobe\\Photoshop 2", L"a", L"not below"));
  const std::vector<RegistryValue> expected = {
      {kUser, L"SOFTWARE\\Adobe\\Photoshop\\130.0", L"A", RegistryValue::Kind::kDword, L"", 1},
      {kUser, L"SOFTWARE\\Adobe\\Photoshop\\130.0", L"b", RegistryValue::Kind::kString, L"x", 0},
      {kUser, L"SOFTWARE\\Adobe\\Photoshop\\130.0\\Sub", L"a", RegistryValue::Kind::kDword, L"", 7},
  };
  EXPECT_EQ(registry.ValuesUnder(kUser, kAdobe), expected) << Describe(registry.ValuesUnder(kUser, kAdobe));
  EXPECT_TRUE(registry.ValuesUnder(kMachine, kAdobe).empty());
  EXPECT_TRUE(registry.DeleteTree(kUser, kAdobe));
  EXPECT_TRUE(registry.ValuesUnder(kUser, kAdobe).empty());
  EXPECT_EQ(registry.GetString(kUser, L"SOFTWARE\\Adobe\\Photoshop 2", L"a"), L"not below");
  EXPECT_TRUE(registry.DeleteTree(kUser, L"SOFTWARE\\Adobe\\Photoshop 2"));
  EXPECT_TRUE(registry.DeleteTree(kUser, L"SOFTWARE\\Adobe\\Photoshop 2"));  // gone already
}

TEST_F(PreferencesTest, SettingsFolderIsTheUsersValue) {
  EXPECT_EQ(Ostrel_GetSettingFileDir(L"120.0"), L"");
  ASSERT_TRUE(CurrentPlatform().registry->SetString(kUser, L"SOFTWARE\\Adobe\\Photoshop\\120.0", L"SettingsFilePath",
                                                    L"C:\\Users\\学员\\AppData\\Roaming\\Adobe\\"));
  EXPECT_EQ(Ostrel_GetSettingFileDir(L"120.0"), L"C:\\Users\\学员\\AppData\\Roaming\\Adobe\\");
  EXPECT_EQ(Ostrel_GetSettingFileDir(L"130.0"), L"");
  SetMachinePath(kAdobe, L"130.0", L"C:\\machine\\");  // not the machine's
  EXPECT_EQ(Ostrel_GetSettingFileDir(L"130.0"), L"");
}

TEST_F(PreferencesTest, InstallFolderWithItsSeparatorIsGivenAsStored) {
  const std::wstring folder = InstallFolder("ps") + L"\\";
  SetMachinePath(kAdobe, L"140.0", folder);
  const std::vector<RegistryValue> before = PhotoshopKeys();
  EXPECT_EQ(Ostrel_GetApplicationDir(L"140.0"), folder);
  EXPECT_EQ(PhotoshopKeys(), before);
}

TEST_F(PreferencesTest, InstallFolderWithoutItsSeparatorIsRepaired) {
  const std::wstring folder = InstallFolder("ps");
  SetMachinePath(kAdobe, L"140.0", folder);
  SetMachinePath(kWowAdobe, L"140.0", folder);
  EXPECT_EQ(Ostrel_GetApplicationDir(L"140.0"), folder + L"\\");
  std::vector<RegistryValue> expected = {
      {kMachine, L"SOFTWARE\\Adobe\\Photoshop\\140.0", L"ApplicationPath", RegistryValue::Kind::kString, folder + L"\\",
       0},
      {kMachine, L"SOFTWARE\\Wow6432Node\\Adobe\\Photoshop\\140.0", L"ApplicationPath", RegistryValue::Kind::kString,
       folder, 0},  // the second key isn't looked at
  };
  EXPECT_EQ(PhotoshopKeys(), expected) << Describe(PhotoshopKeys());
  EXPECT_EQ(Ostrel_GetApplicationDir(L"140.0"), folder + L"\\");  // repaired once
  EXPECT_EQ(PhotoshopKeys(), expected) << Describe(PhotoshopKeys());
}

TEST_F(PreferencesTest, InstallFolderFromTheSecondKey) {
  const std::wstring folder = InstallFolder("ps32") + L"\\";
  SetMachinePath(kWowAdobe, L"110.0", folder);
  EXPECT_EQ(Ostrel_GetApplicationDir(L"110.0"), folder);
  // A first key whose folder has no Photoshop.exe is passed over as an empty one is.
  SetMachinePath(kAdobe, L"110.0", Wide(m_dir / "gone") + L"\\");
  EXPECT_EQ(Ostrel_GetApplicationDir(L"110.0"), folder);
  SetMachinePath(kAdobe, L"110.0", L"");
  EXPECT_EQ(Ostrel_GetApplicationDir(L"110.0"), folder);
}

TEST_F(PreferencesTest, NoInstallFolder) {
  EXPECT_EQ(Ostrel_GetApplicationDir(L"150.0"), L"");
  SetMachinePath(kAdobe, L"150.0", Wide(m_dir / "gone") + L"\\");
  SetMachinePath(kWowAdobe, L"150.0", Wide(m_dir / "gone"));
  const std::vector<RegistryValue> before = PhotoshopKeys();
  EXPECT_EQ(Ostrel_GetApplicationDir(L"150.0"), L"");
  EXPECT_EQ(PhotoshopKeys(), before);
  // The user's hive is no install.
  ASSERT_TRUE(CurrentPlatform().registry->SetString(kUser, L"SOFTWARE\\Adobe\\Photoshop\\120.0", L"ApplicationPath",
                                                    InstallFolder("user") + L"\\"));
  EXPECT_EQ(Ostrel_GetApplicationDir(L"120.0"), L"");
}

struct VersionCase {
  const wchar_t* version;
  const wchar_t* fontValue;      // nullptr: not a version of the table
  const wchar_t* languageValue;  // nullptr: not written
};

// The value names, written out from Photoshop's own naming rather than from the library's table.
constexpr VersionCase kVersionCases[] = {
    {L"110.0", L"paletteEnhancedFontTypeKey CC 2017", L"uiLanguageKey CC 2017"},
    {L"120.0", L"paletteEnhancedFontTypeKey CC 2018", L"uiLanguageKey CC 2018"},
    {L"130.0", L"paletteEnhancedFontTypeKey CC 2019", L"uiLanguageKey CC 2019"},
    {L"140.0", L"paletteEnhancedFontTypeKey 2020", L"uiLanguageKey 2020"},
    {L"150.0", L"paletteEnhancedFontTypeKey 2021", nullptr},
    {L"110", nullptr, nullptr},
    {L"160.0", nullptr, nullptr},
    {L"", nullptr, nullptr},
    {L"110.0 ", nullptr, nullptr},
};

class VersionTest : public PreferencesTest, public ::testing::WithParamInterface<VersionCase> {};

TEST_P(VersionTest, TheFontTypeGoesUnderTheVersionsName) {
  const VersionCase& c = GetParam();
  const std::vector<RegistryValue> before = PhotoshopKeys();
  if (c.fontValue == nullptr) {
    EXPECT_EQ(Ostrel_SetUiFontType(c.version, 2), 0);
    EXPECT_EQ(PhotoshopKeys(), before) << Describe(PhotoshopKeys());
    return;
  }
  EXPECT_EQ(Ostrel_SetUiFontType(c.version, 3), 1);
  const std::vector<RegistryValue> expected = {
      {kUser, std::wstring(kAdobe) + L"\\" + c.version, c.fontValue, RegistryValue::Kind::kDword, L"", 3}};
  EXPECT_EQ(PhotoshopKeys(), expected) << Describe(PhotoshopKeys());
}

TEST_P(VersionTest, TheLanguageIsReadAndWrittenUnderTheVersionsName) {
  const VersionCase& c = GetParam();
  IRegistry& registry = *CurrentPlatform().registry;
  const std::wstring key = std::wstring(kAdobe) + L"\\" + c.version;
  if (c.fontValue != nullptr) {  // a version of the table: read whether or not it may be written
    const std::wstring name = c.languageValue ? c.languageValue : L"uiLanguageKey 2021";
    ASSERT_TRUE(registry.SetString(kUser, key, name, L"zh_CN"));
    EXPECT_EQ(Ostrel_GetUiLanguage(c.version), L"zh_CN");
  } else {
    ASSERT_TRUE(registry.SetString(kUser, key, L"uiLanguageKey CC 2017", L"zh_CN"));
    EXPECT_EQ(Ostrel_GetUiLanguage(c.version), L"");
  }
  const std::vector<RegistryValue> before = PhotoshopKeys();
  if (c.languageValue == nullptr) {
    EXPECT_EQ(Ostrel_SetUiLanguage(c.version, L"en_US"), 0);
    EXPECT_EQ(PhotoshopKeys(), before) << Describe(PhotoshopKeys());
    return;
  }
  EXPECT_EQ(Ostrel_SetUiLanguage(c.version, L"en_US"), 1);
  EXPECT_EQ(registry.GetString(kUser, key, c.languageValue), L"en_US");
  EXPECT_EQ(Ostrel_GetUiLanguage(c.version), L"en_US");
  EXPECT_EQ(PhotoshopKeys().size(), before.size());  // changed in place
}

INSTANTIATE_TEST_SUITE_P(Versions, VersionTest, ::testing::ValuesIn(kVersionCases), [](const auto& info) {
  std::string name = "V" + ToUtf8(info.param.version);
  for (char& ch : name) ch = std::isalnum(static_cast<unsigned char>(ch)) ? ch : '_';
  return name + "_" + std::to_string(info.index);
});

// The UI scale's value name carries no version: the version goes into the key as given, known or not.
TEST_F(PreferencesTest, TheUiScaleGoesUnderTheVersionsKey) {
  for (const wchar_t* version : {L"110.0", L"150.0", L"110", L"160.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    Clear();
    const std::wstring key = std::wstring(kAdobe) + L"\\" + version;
    EXPECT_EQ(Ostrel_SetUIScale(version, 200), 1);
    const std::vector<RegistryValue> expected = {{kUser, key, L"UIScale", RegistryValue::Kind::kDword, L"", 200}};
    EXPECT_EQ(PhotoshopKeys(), expected) << Describe(PhotoshopKeys());
    EXPECT_EQ(Ostrel_SetUIScale(version, 0xFFFFFFFFu), 1);
    EXPECT_EQ(CurrentPlatform().registry->GetDword(kUser, key, L"UIScale"), 0xFFFFFFFFu);
  }
}

}  // namespace
}  // namespace ostrel
