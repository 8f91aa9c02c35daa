// Channels and paths by Photoshop's itemIndex (from 1; -1 the composite), the preset managers' lists as they are
// now, and the installed fonts.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

constexpr const char* kDocument = R"({
  "documents": [{
    "descriptor": {"title": "a.psd", "targetPathIndex": 1},
    "channels": [{"channelName": "Red", "visible": true}, {"channelName": "Green", "visible": false},
                 {"channelName": "Blue", "visible": true}],
    "activeChannel": 2,
    "paths": [{"pathName": "Path 1"}, {"pathName": "Work Path"}]
  }]
})";

class ChannelsPathsTest : public test::ConnectedPhotoshopTest {};

TEST_F(ChannelsPathsTest, ChannelsCountFromOneAndTheCompositeIsRGB) {
  ConnectToText(kDocument);
  EXPECT_EQ(Ostrel_GetChannelCount(), 3);
  EXPECT_EQ(Ostrel_GetLastSelectChannelIndex(), 2);
  EXPECT_EQ(Ostrel_ChannelIndexToName(-1), L"RGB");
  EXPECT_EQ(Ostrel_ChannelIndexToName(1), L"Red");
  EXPECT_EQ(Ostrel_ChannelIndexToName(3), L"Blue");
  EXPECT_EQ(Ostrel_ChannelIndexToName(4), L"");
  EXPECT_EQ(Ostrel_IsChannelVisible(1), 1);
  EXPECT_EQ(Ostrel_IsChannelVisible(2), 0);
  std::vector<int> visible = {7, 7};
  EXPECT_EQ(Ostrel_GetChanelVisible(visible), 1);
  EXPECT_EQ(visible, (std::vector<int>{1, 0, 1}));
}

TEST_F(ChannelsPathsTest, PathsCountFromOneAndTheTargetIndexIsPhotoshops) {
  ConnectToText(kDocument);
  EXPECT_EQ(Ostrel_GetPathCount(), 2);
  EXPECT_EQ(Ostrel_PathIndexToName(1), L"Path 1");
  EXPECT_EQ(Ostrel_PathIndexToName(2), L"Work Path");
  EXPECT_EQ(Ostrel_PathIndexToName(0), L"");
  EXPECT_EQ(Ostrel_PathNameToIndex(L"Work Path"), 2);
  EXPECT_EQ(Ostrel_PathNameToIndex(L"Path 9"), -1);
  EXPECT_EQ(Ostrel_GetPathSelectCount(), 1);      // the key's value as it stands
  EXPECT_EQ(Ostrel_GetLastSelectPathIndex(), 2);  // the itemIndex of that path
}

// A visibility read that fails gives 0 for its channel and the walk goes on.
TEST_F(ChannelsPathsTest, AFailedVisibilityReadGivesZeroForItsChannel) {
  ConnectToText(kDocument);
  m_photoshop->FailMember("getBoolean");
  std::vector<int> visible;
  EXPECT_EQ(Ostrel_GetChanelVisible(visible), 1);
  EXPECT_EQ(visible, (std::vector<int>{0, 0, 0}));
}

TEST_F(ChannelsPathsTest, WithoutADocumentCountsAreZeroAndIndexesMinusOne) {
  ConnectToText("{}");
  EXPECT_EQ(Ostrel_GetChannelCount(), 0);
  EXPECT_EQ(Ostrel_GetPathCount(), 0);
  EXPECT_EQ(Ostrel_GetLastSelectChannelIndex(), -1);
  EXPECT_EQ(Ostrel_GetPathSelectCount(), -1);
  EXPECT_EQ(Ostrel_ChannelIndexToName(1), L"");
  std::vector<int> visible = {1};
  EXPECT_EQ(Ostrel_GetChanelVisible(visible), 1);
  EXPECT_TRUE(visible.empty());
}

TEST(ChannelsUnconnectedTest, OnlyTheCompositeHasANameWithoutPhotoshop) {
  EXPECT_EQ(Ostrel_ChannelIndexToName(-1), L"RGB");
  EXPECT_EQ(Ostrel_ChannelIndexToName(1), L"");
  std::vector<int> visible = {1};
  EXPECT_EQ(Ostrel_GetChanelVisible(visible), 1);
  EXPECT_TRUE(visible.empty());
}

// ---- Preset managers and fonts ------------------------------------------------------------------------------------

constexpr const char* kPresets = R"({
  "application": {"presetManager": [
    {"_obj": "brush", "name": ["Soft Round", "Hard, Round"]},
    {"_obj": "colors", "name": ["RGB Red"]},
    {"_obj": "gradientClassEvent", "name": ["Foreground, to Background", "Red, Green, Blue", "Plain"]},
    {"_obj": "style", "name": ["Drop, Shadow"]},
    {"_obj": "pattern", "name": ["Bubbles"]},
    {"_obj": "shapingCurve", "name": ["Linear", "Cone"]},
    {"_obj": "customShape", "name": ["Heart"]},
    {"_obj": "toolPreset", "name": []}
  ]},
  "fonts": ["SimSun", "Arial, Bold", "微软雅黑"]
})";

struct ListCase {
  const char* name;
  int (*read)(std::vector<std::wstring>&);
  std::vector<std::wstring> names;
};

const ListCase kLists[] = {
    {"Brushes", Ostrel_GetBrushPresetList, {L"Soft Round", L"Hard, Round"}},
    {"Swatches", Ostrel_GetColorList, {L"RGB Red"}},
    // Only the gradients lose every ", ".
    {"Gradients", Ostrel_GetGradualList, {L"Foregroundto Background", L"RedGreenBlue", L"Plain"}},
    {"Styles", Ostrel_GetStyleList, {L"Drop, Shadow"}},
    {"Patterns", Ostrel_GetPatternList, {L"Bubbles"}},
    {"Contours", Ostrel_GetContourList, {L"Linear", L"Cone"}},
    {"Shapes", Ostrel_GetShapeList, {L"Heart"}},
    {"ToolPresets", Ostrel_GetToolList, {}},
    {"Fonts", Ostrel_GetFontList, {L"SimSun", L"Arial, Bold", L"微软雅黑"}},
};

class PresetListTest : public test::ConnectedPhotoshopTest, public ::testing::WithParamInterface<ListCase> {};

TEST_P(PresetListTest, NamesInPhotoshopsOrder) {
  const ListCase& c = GetParam();
  ConnectToText(kPresets);
  std::vector<std::wstring> names = {L"left over"};
  EXPECT_EQ(c.read(names), 1);
  EXPECT_EQ(names, c.names);
}

INSTANTIATE_TEST_SUITE_P(Lists, PresetListTest, ::testing::ValuesIn(kLists),
                         [](const auto& info) { return std::string(info.param.name); });

// A failure at any call halfway gives 0 and keeps the names read before it (or, for a failure that didn't matter,
// such as the creation of the holder of the answer, 1 with every name).
TEST_F(ChannelsPathsTest, AListFailureKeepsTheNamesReadBeforeIt) {
  for (const ListCase& c : kLists) {
    if (c.names.size() < 2) continue;
    SCOPED_TRACE(c.name);
    ConnectToText(kPresets);
    std::vector<std::wstring> names;
    m_photoshop->ResetCalls();
    ASSERT_EQ(c.read(names), 1);
    const int64_t calls = m_photoshop->Calls();
    for (int64_t n = 1; n <= calls; ++n) {
      SCOPED_TRACE(testing::Message() << "call " << n);
      m_photoshop->FailCall(n, sim::FaultMode::kPersistent);
      names = {L"left over"};
      if (c.read(names) == 1) {
        EXPECT_EQ(names, c.names);
      } else {
        ASSERT_LE(names.size(), c.names.size());
        EXPECT_TRUE(std::equal(names.begin(), names.end(), c.names.begin()));
      }
      m_photoshop->ClearFaults();
    }
  }
}

TEST(PresetListUnconnectedTest, EmptiedAndZero) {
  for (const ListCase& c : kLists) {
    SCOPED_TRACE(c.name);
    std::vector<std::wstring> names = {L"left over"};
    EXPECT_EQ(c.read(names), 0);
    EXPECT_TRUE(names.empty());
  }
}

}  // namespace
}  // namespace ostrel
