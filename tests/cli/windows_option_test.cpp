// `ostrel --windows TREE.json call ...`: the locator's exports on a recorded tree, their answers as JSON, the
// overload of Ostrel_GetFontName that `call` picks, and a tree with a mistake refused with its place.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "run_in_process.h"

namespace ostrel::cli {
namespace {

std::string Tree(const char* name) { return std::string(OSTREL_EXAMPLES_DIR) + "/windows/" + name + ".json"; }

TEST(WindowsOption, CallsRunOnTheTree) {
  struct Case {
    const char* tree;
    std::vector<std::string> call;
    const char* out;
  };
  const Case cases[] = {
      {"marquee", {"Ostrel_GetPhotoshopRect"}, R"({"result": {"left": 0, "top": 0, "right": 1920, "bottom": 1040}})"},
      {"marquee", {"Ostrel_GetToolFeaturesBarChildWnd"},
       R"({"result": 1, "list": [1210, 1211, 1212, 1213, 1214, 1215, 1216, 1217, 1218]})"},
      {"marquee", {"Ostrel_GetToolFeaturesControlWnd", "51", "\"\""}, R"({"result": 1211})"},
      {"shape_gradient", {"Ostrel_IsShapeColorFillPanelWnd", "2201"}, R"({"result": 1})"},
      {"type_tool", {"Ostrel_GetFontName"}, R"({"result": "微软雅黑"})"},
      {"type_tool", {"Ostrel_GetFontName(font)"}, R"({"result": 1, "font": ""})"},
      {"type_tool", {"Ostrel_GetFontSize"}, R"({"result": 24.0})"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.tree) + " " + c.call[0]);
    std::vector<std::string> args = {"--windows", Tree(c.tree), "call"};
    args.insert(args.end(), c.call.begin(), c.call.end());
    const ToolRun run = RunInProcess(args);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, std::string(c.out) + "\n");
  }
}

TEST(WindowsOption, ListShowsHowToReachTheOtherFontName) {
  const ToolRun run = RunInProcess({"call", "--list"});
  EXPECT_NE(run.out.find("\nOstrel_GetFontName(out font: string) -> int    (call it as 'Ostrel_GetFontName(font)')\n"),
            std::string::npos);
  EXPECT_NE(run.out.find("\nOstrel_GetFontName() -> string\n"), std::string::npos);
}

TEST(WindowsOption, TreeWithAMistakeIsRefusedWithItsPlace) {
  const std::filesystem::path file = std::filesystem::path(::testing::TempDir()) / "ostrel_bad_tree.json";
  std::ofstream(file) << R"({"windows": [{"hwnd": 1, "class": "Photoshop",
                               "children": [{"hwnd": 1, "class": "Edit"}]}]})";
  const ToolRun run = RunInProcess({"call", "Ostrel_GetPhotoshopWnd", "--windows", file.string()});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "ostrel: --windows " + file.string() +
                         ": windows[0].children[0] (hwnd 1): the handle is already used by another window\n");
}

}  // namespace
}  // namespace ostrel::cli
