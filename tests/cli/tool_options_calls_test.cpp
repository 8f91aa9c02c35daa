// The tool option exports through `ostrel call`: unsigned ids, and the TF row as the lesson player gets it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "calls.h"
#include "ostrel/lifecycle.h"

namespace ostrel::cli {
namespace {

struct ToolOptionCallCase {
  const char* name;
  std::vector<std::string> words;
  const char* answer;
};

TEST(ToolOptionCallTest, RunsTheExportsByName) {
  const ToolOptionCallCase cases[] = {
      {"Ostrel_ToolFeaturesIDToToolIndex", {"2262"}, R"({"result": 59})"},
      {"Ostrel_GetToolFeaturesType", {"3050"}, R"({"result": 45})"},
      {"Ostrel_ToolFeaturesToStringID", {"51"}, R"({"result": "MrqF"})"},
      {"Ostrel_ToolFeaturesToStringID", {"4294967295"}, R"({"result": ""})"},
      {"Ostrel_ToolFeaturesToStringID", {"-1"}, R"({"result": ""})"},  // taken as 4294967295
      {"Ostrel_GetToolFeaturesValueUnits", {"2253"}, R"({"result": "点"})"},
      {"Ostrel_SetToolFeatures", {"51", "10"}, R"({"result": 1})"},
      {"Ostrel_ToolFeaturesToName", {"650", "3"}, R"({"result": "排列方式"})"},
      {"Ostrel_ToolFeaturesValueToName", {"50", "\"\""}, R"({"result": "新选区"})"},
      {"Ostrel_TransfPatternName", {"Watercolor 2"}, R"({"result": "水彩"})"},
      {"Ostrel_TransfGradualName", {"$$$/DefaultGradient/Copper=Copper"}, R"({"result": "铜色渐变"})"},
      {"Ostrel_ParseScript", {"TF,51,10"},
       R"({"result": 1, "script": {"strTitle": "羽化", "strDetail": "设置羽化为：10像素"}})"},
      {"Ostrel_ParseScriptToolFeatures", {R"(["TF","2159","ff0000"])"},
       R"({"result": 1, "script": {"strTitle": "形状描边纯色", "strDetail": "设置形状描边纯色为:ff0000"}})"},
  };
  Ostrel_Init();
  for (const ToolOptionCallCase& c : cases) {
    SCOPED_TRACE(c.name);
    std::string answer, error;
    ASSERT_EQ(RunCall(c.name, c.words, answer, error), 0) << error;
    EXPECT_EQ(answer, c.answer);
  }
}

TEST(ToolOptionCallTest, AnUnsignedIdMustBeAWhole32BitNumber) {
  for (const char* bad : {"1.5", "4294967296", "-2147483649", "[]"}) {
    SCOPED_TRACE(bad);
    std::string answer, error;
    EXPECT_NE(RunCall("Ostrel_ToolFeaturesToStringID", {bad}, answer, error), 0);
  }
}

}  // namespace
}  // namespace ostrel::cli
