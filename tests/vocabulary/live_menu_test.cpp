// The live menu reader against simulated Photoshops: the cleaning of titles, what is left out, what is hidden,
// and what a failure at any automation call leaves behind.
#include "vocabulary/live_menu.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"
#include "simulator/scenario.h"

namespace ostrel {
namespace {

std::filesystem::path ExamplesDir() { return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop"; }

sim::SimulatedPhotoshop MenusZh() { return sim::SimulatedPhotoshop::FromFile(ExamplesDir() / "menus_zh.json"); }

// The titles of a tree, flattened as "menu", "menu/entry", "menu/entry/sub", in order.
std::vector<std::wstring> Paths(const std::vector<tagTopMenuItemName>& menus) {
  std::vector<std::wstring> paths;
  for (const tagTopMenuItemName& menu : menus) {
    paths.push_back(menu.strName);
    for (const tagTopMenuSubItemName& entry : menu.vecSubItem) {
      paths.push_back(menu.strName + L"/" + entry.strName);
      for (const std::wstring& sub : entry.vecSubItem) paths.push_back(menu.strName + L"/" + entry.strName + L"/" + sub);
    }
  }
  return paths;
}

TEST(CleanMenuTitleTest, CutAtTheFirstAsciiBracketThenThreeDotsDeleted) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"文件(&F)", L"文件"},
      {L"打开(&O)...", L"打开"},
      {L"存储为 Web 所用格式（旧版）...", L"存储为 Web 所用格式（旧版）"},  // full-width brackets stay
      {L"基本功能（默认）(&E)", L"基本功能（默认）"},
      {L"a...b......c", L"abc"},
      {L"....", L"."},
      {L"(&X)", L""},
      {L"New...(&N)(x)", L"New"},
      {L"", L""},
  };
  for (const auto& [title, clean] : cases) EXPECT_EQ(CleanMenuTitle(title), clean) << title;
}

TEST(LiveMenuTest, VisibleTitlesThreeLevelsDeepWithTheFilterGalleryLeftOut) {
  sim::SimulatedPhotoshop photoshop = MenusZh();
  ScopedPlatform platform(Platform{.automation = &photoshop});
  ASSERT_EQ(Ostrel_Init(), 1);
  std::vector<tagTopMenuItemName> menus;
  EXPECT_EQ(Ostrel_GetTopMenuName(menus), 1);
  const std::vector<std::wstring> expected = {
      L"文件", L"文件/新建", L"文件/打开", L"文件/存储为 Web 所用格式（旧版）", L"文件/导出",
      L"文件/导出/快速导出为 PNG", L"文件/导出/导出为",          // a hidden level 3 entry is dropped
      L"编辑", L"编辑/还原", L"编辑/首选项", L"编辑/首选项/常规", L"编辑/首选项/界面",  // no "visible": hidden
      L"滤镜", L"滤镜/上次滤镜操作", L"滤镜/滤镜库", L"滤镜/风格化", L"滤镜/风格化/查找边缘",
      L"滤镜/风格化/浮雕效果", L"滤镜/扭曲", L"滤镜/扭曲/波浪", L"滤镜/扭曲/旋转扭曲", L"滤镜/模糊",
      L"滤镜/模糊/高斯模糊", L"滤镜/模糊/照亮边缘",  // left out only under 风格化 and 扭曲
      L"窗口", L"窗口/工作区", L"窗口/工作区/基本功能（默认）", L"窗口/工作区/复位基本功能",
  };
  EXPECT_EQ(Paths(menus), expected);
  Ostrel_UnInit();
  EXPECT_EQ(photoshop.LiveObjects(), 0);
}

// The filter gallery entries are left out by their Chinese titles: a Photoshop in English keeps them.
TEST(LiveMenuTest, OtherLanguagesLeaveNothingOut) {
  sim::SimulatedPhotoshop photoshop(sim::ParseScenario(R"({"versions": [150], "application": [{"menuBarInfo": {
      "_obj": "menuBarInfo", "submenu": [{"title": "Filter", "visible": true, "submenu": [
        {"title": "Artistic", "visible": true, "submenu": [{"title": "Fresco...", "visible": true}]},
        {"title": "Stylize", "visible": true, "submenu": [{"title": "Glowing Edges...", "visible": true}]}]}]}}]})",
                                                          ExamplesDir(), "english.json"));
  ScopedPlatform platform(Platform{.automation = &photoshop});
  ASSERT_EQ(Ostrel_Init(), 1);
  std::vector<tagTopMenuItemName> menus;
  EXPECT_EQ(Ostrel_GetTopMenuName(menus), 1);
  EXPECT_EQ(Paths(menus), (std::vector<std::wstring>{L"Filter", L"Filter/Artistic", L"Filter/Artistic/Fresco",
                                                     L"Filter/Stylize", L"Filter/Stylize/Glowing Edges"}));
  Ostrel_UnInit();
}

TEST(LiveMenuTest, UnconnectedGivesMinusOneAndEmptiesTheVector) {
  Ostrel_UnInit();
  std::vector<tagTopMenuItemName> menus(2);
  EXPECT_EQ(Ostrel_GetTopMenuName(menus), -1);
  EXPECT_TRUE(menus.empty());
}

// A failure at any call, once or from then on, gives 0 (or, where the failed call didn't matter, the whole
// answer), throws nothing, leaves no object alive, and leaves in the
// vector a prefix of the whole answer made of complete menus only.
TEST(LiveMenuTest, AFailureAtEveryCallLeavesTheCompleteMenusBefore) {
  std::vector<tagTopMenuItemName> whole;
  {
    sim::SimulatedPhotoshop photoshop = MenusZh();
    ScopedPlatform platform(Platform{.automation = &photoshop});
    ASSERT_EQ(Ostrel_Init(), 1);
    ASSERT_EQ(Ostrel_GetTopMenuName(whole), 1);
    Ostrel_UnInit();
  }
  for (const sim::FaultMode mode : {sim::FaultMode::kTransient, sim::FaultMode::kPersistent}) {
    for (int64_t n = 1;; ++n) {
      SCOPED_TRACE(testing::Message() << "call " << n << (mode == sim::FaultMode::kTransient ? " once" : " on"));
      sim::SimulatedPhotoshop photoshop = MenusZh();
      ScopedPlatform platform(Platform{.automation = &photoshop});
      ASSERT_EQ(Ostrel_Init(), 1);
      photoshop.FailCall(n, mode);
      std::vector<tagTopMenuItemName> menus(1);
      const int result = Ostrel_GetTopMenuName(menus);
      const bool fired = photoshop.FaultFired();
      Ostrel_UnInit();
      EXPECT_EQ(photoshop.LiveObjects(), 0);
      if (!fired) {
        EXPECT_EQ(result, 1);
        break;
      }
      if (result == 1) {  // a failed creation of the descriptor that only holds the answer changes nothing
        EXPECT_EQ(Paths(menus), Paths(whole));
        continue;
      }
      EXPECT_EQ(result, 0);
      ASSERT_LE(menus.size(), whole.size());
      for (size_t i = 0; i < menus.size(); ++i) {
        EXPECT_EQ(menus[i].strName, whole[i].strName);
        EXPECT_EQ(Paths({menus[i]}), Paths({whole[i]}));  // a menu in the vector is whole
      }
    }
  }
}

}  // namespace
}  // namespace ostrel
