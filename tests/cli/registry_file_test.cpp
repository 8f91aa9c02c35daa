// --registry FILE.json: the preference exports read the file's registry and the tool writes back what they
// changed, in the file's own form, and leaves a file alone that the command didn't change.
#include "registry_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "run_in_process.h"

namespace ostrel::cli {
namespace {

class RegistryFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_file =
        std::filesystem::path(::testing::TempDir()) /
        ("ostrel_registry_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + ".json");
    std::filesystem::remove(m_file);
  }
  void TearDown() override { std::filesystem::remove(m_file); }
  void Write(const std::string& text) { std::ofstream(m_file, std::ios::binary) << text; }
  std::string Read() const {
    std::ifstream in(m_file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }
  ToolRun Call(std::vector<std::string> words) {
    words.insert(words.begin(), {"--registry", m_file.string(), "call"});
    return RunInProcess(words);
  }

  std::filesystem::path m_file;
};

TEST_F(RegistryFileTest, WritersGoIntoTheFileAndReadersReadIt) {
  EXPECT_EQ(Call({"Ostrel_SetUIScale", "\"130.0\"", "200"}).out, "{\"result\": 1}\n");
  EXPECT_EQ(Call({"Ostrel_SetUiLanguage", "\"130.0\"", "zh_CN"}).out, "{\"result\": 1}\n");
  EXPECT_EQ(Read(),
            "{\n"
            "  \"HKEY_CURRENT_USER\": {\n"
            "    \"SOFTWARE\\\\Adobe\\\\Photoshop\\\\130.0\": {\n"
            "      \"uiLanguageKey CC 2019\": \"zh_CN\",\n"  // names in the registry's order, without case
            "      \"UIScale\": 200\n"
            "    }\n"
            "  }\n"
            "}\n");
  EXPECT_EQ(Call({"Ostrel_GetUiLanguage", "\"130.0\""}).out, "{\"result\": \"zh_CN\"}\n");
}

TEST_F(RegistryFileTest, AFileTheCommandDidntChangeIsLeftAsItWas) {
  const std::string text =
      R"({"HKEY_LOCAL_MACHINE":{"SOFTWARE\\Adobe\\Photoshop\\150.0":{"ApplicationPath":"C:\\nowhere\\"}},)"
      R"("HKEY_CURRENT_USER":{"software\\adobe\\photoshop\\150.0":{"uiLanguageKey 2021":"中文", "UIScale": 4294967295}}})";
  Write(text);
  EXPECT_EQ(Call({"Ostrel_GetUiLanguage", "\"150.0\""}).out, "{\"result\": \"中文\"}\n");
  EXPECT_EQ(Call({"Ostrel_SetUiLanguage", "\"150.0\"", "en_US"}).out, "{\"result\": 0}\n");
  EXPECT_EQ(Call({"Ostrel_SetUiFontType", "\"110\"", "1"}).out, "{\"result\": 0}\n");
  EXPECT_EQ(Call({"Ostrel_GetApplicationDir", "\"150.0\""}).out, "{\"result\": \"\"}\n");
  EXPECT_EQ(Read(), text);
}

TEST_F(RegistryFileTest, FilesNotInTheFormAreRefused) {
  for (const char* text :
       {"[]", "{\"HKEY_CLASSES_ROOT\": {}}", "{\"HKEY_CURRENT_USER\": []}", "{\"HKEY_CURRENT_USER\": {\"K\": 1}}",
        "{\"HKEY_CURRENT_USER\": {\"K\": {\"v\": -1}}}", "{\"HKEY_CURRENT_USER\": {\"K\": {\"v\": 4294967296}}}",
        "{\"HKEY_CURRENT_USER\": {\"K\": {\"v\": 1.5}}}", "{\"HKEY_CURRENT_USER\": {"}) {
    SCOPED_TRACE(text);
    Write(text);
    const ToolRun run = Call({"Ostrel_GetUiLanguage", "\"150.0\""});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("--registry " + m_file.string() + ": "), std::string::npos) << run.err;
    EXPECT_EQ(Read(), text);
  }
  const ToolRun twice = RunInProcess({"--registry", "a.json", "call", "--registry", "b.json", "Ostrel_Init"});
  EXPECT_EQ(twice.status, 2);
  EXPECT_NE(twice.err.find("--registry given more than once"), std::string::npos) << twice.err;
}

}  // namespace
}  // namespace ostrel::cli
