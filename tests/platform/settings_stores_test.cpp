// The ini store, the registry and the files of the platform in force: the portable backends on Linux, the
// Windows backends (profile functions, advapi32) when this suite runs under Windows or Wine.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel {
namespace {

std::wstring TestPath(const char* name) {
  const std::filesystem::path path = std::filesystem::path(::testing::TempDir()) / name;
  std::filesystem::remove(path);
#if defined(_WIN32)
  return path.wstring();
#else
  return FromUtf8(path.string());
#endif
}

TEST(IniStoreTest, KeysReadBackAndMissingOnesReadAsNothing) {
  IIniStore& ini = *CurrentPlatform().ini;
  const std::wstring file = TestPath("ostrel_store_test.ini");
  EXPECT_FALSE(ini.GetString(file, L"Event", L"Tool"));  // no file at all
  ASSERT_TRUE(ini.SetString(file, L"Event", L"Tool", L"marqueeRectTool"));
  ASSERT_TRUE(ini.SetString(file, L"Event", L"Layer", L"图层 1"));
  ASSERT_TRUE(ini.SetString(file, L"Other", L"Tool", L"x"));
  ASSERT_TRUE(ini.SetString(file, L"Event", L"Tool", L""));  // a blanked key stays, empty
  EXPECT_EQ(ini.GetString(file, L"Event", L"Tool"), std::wstring());
  EXPECT_EQ(ini.GetString(file, L"event", L"LAYER"), L"图层 1");  // sections and keys ignore case
  EXPECT_EQ(ini.GetString(file, L"Other", L"Tool"), L"x");
  EXPECT_FALSE(ini.GetString(file, L"Event", L"Missing"));
  EXPECT_FALSE(ini.GetString(file, L"Missing", L"Tool"));
  std::filesystem::remove(std::filesystem::path(file));
}

TEST(RegistryTest, ValuesReadBackByKindAndAbsentOnesReadAsNothing) {
  IRegistry& registry = *CurrentPlatform().registry;
  const std::wstring key = L"Software\\OstrelCoreTest\\Photoshop\\130.0";
  ASSERT_TRUE(registry.SetString(RegistryHive::kCurrentUser, key, L"ApplicationPath", L"C:\\Adobe\\图像\\"));
  ASSERT_TRUE(registry.SetDword(RegistryHive::kCurrentUser, key, L"UIScale", 2));
  EXPECT_EQ(registry.GetString(RegistryHive::kCurrentUser, key, L"ApplicationPath"), L"C:\\Adobe\\图像\\");
  EXPECT_EQ(registry.GetDword(RegistryHive::kCurrentUser, key, L"UIScale"), 2u);
  EXPECT_FALSE(registry.GetDword(RegistryHive::kCurrentUser, key, L"ApplicationPath"));  // another kind
  EXPECT_FALSE(registry.GetString(RegistryHive::kCurrentUser, key, L"Nothing"));
  EXPECT_FALSE(registry.GetString(RegistryHive::kCurrentUser, key + L"\\Deeper", L"ApplicationPath"));
}

TEST(FileSystemTest, AppendCreatesAndNeverTruncates) {
  IFileSystem& files = *CurrentPlatform().files;
  const std::wstring dir = TestPath("ostrel_files_test");
  std::filesystem::remove_all(std::filesystem::path(dir));
  const std::wstring file = dir + L"/a/b/文件.log";
  EXPECT_FALSE(files.FileExists(file));
  ASSERT_TRUE(files.CreatePathTo(file));
  ASSERT_TRUE(files.AppendToFile(file, "one\r\n"));
  ASSERT_TRUE(files.AppendToFile(file, "two\r\n"));
  EXPECT_TRUE(files.FileExists(file));
  EXPECT_EQ(std::filesystem::file_size(std::filesystem::path(dir) / "a" / "b" / std::filesystem::u8path("文件.log")), 10u);
  EXPECT_TRUE(files.RemoveFile(file));
  EXPECT_FALSE(files.FileExists(file));
  EXPECT_FALSE(files.TempDirectory().empty());
  std::filesystem::remove_all(std::filesystem::path(dir));
}

}  // namespace
}  // namespace ostrel
