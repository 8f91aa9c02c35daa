// The reset, panel and colour commands exactly as Photoshop receives them: every journal entry compared whole
// (event, descriptor in Photoshop's JSON notation, dialog mode), in order; and each command refused gives 0.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"
#include "platform/text.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

// The pen tool current with one option, a workspace, and the layers panel hidden.
constexpr const char* kScenario = R"({
  "application": {
    "tool": {"_enum": "penTool", "_value": "targetEnum"},
    "currentToolOptions": {"_obj": "currentToolOptions", "geometryToolMode": {"_enum": "geometryToolMode", "_value": "path"}},
    "workspaceList": [{"_obj": "workspace", "displayName": "Essentials"}]
  },
  "panels": {"layers": false, "channels": true}
})";

// An expected journal entry: an executeAction (event and descriptor) or an object model call (member and detail).
struct Expected {
  const char* member;
  const wchar_t* eventOrDetail;
  const char* descriptor;
};

Expected Action(const wchar_t* event, const char* descriptor) { return {"executeAction", event, descriptor}; }

constexpr const char* kAppKey = R"({"_ref":[{"_ref":"property","_property":"%s"},{"_ref":"application","_enum":"ordinal","_value":"targetEnum"}]})";

std::string AppKeyTarget(const char* key) {
  std::string text = kAppKey;
  text.replace(text.find("%s"), 2, key);
  return R"({"null":)" + text + "}";
}

std::string MenuItem(const char* item) {
  return std::string(R"({"null":{"_ref":"menuItemClass","_enum":"menuItemType","_value":")") + item + R"("}})";
}

constexpr const char* kOptions = R"("geometryToolMode":{"_enum":"geometryToolMode","_value":"path"})";

std::string PatchSet(const char* toolClass, const char* key, int value) {
  return std::string(R"({"null":{"_ref":")") + toolClass + R"("},"to":{"_obj":"null",)" + kOptions + R"(,")" + key +
         "\":" + std::to_string(value) + "}}";
}

std::string ViewInfo(const char* viewId, const char* panel) {
  return std::string(R"({"null":{"_ref":"application","_enum":"ordinal","_value":"targetEnum"},"command":"getViewInfo","viewID":")") +
         viewId + R"(","panel":")" + panel + R"("})";
}

struct JournalCase {
  const char* name;
  std::function<int()> command;
  std::vector<std::pair<Expected, std::string>> entries;  // the entry, and its descriptor when it is built
};

std::pair<Expected, std::string> A(const wchar_t* event, std::string descriptor) {
  return {Action(event, ""), std::move(descriptor)};
}
std::pair<Expected, std::string> Call(const char* member, const wchar_t* detail) {
  return {Expected{member, detail, ""}, ""};
}

std::vector<JournalCase> Cases() {
  const std::string workspace = R"({"null":{"_ref":"workspace","_name":"Essentials"}})";
  return {
      {"ResetWorkSpace", [] { return Ostrel_ResetWorkSpace(L"Essentials"); }, {A(L"select", workspace), A(L"reset", workspace)}},
      {"ResetTool", [] { return Ostrel_ResetTool(); },
       {A(L"reset", AppKeyTarget("allToolOptions")), A(L"set", PatchSet("recomposeSelection", "recomposeMode", 1)),
        A(L"set", PatchSet("patchSelection", "patchStructureAdapt", 3)),
        A(L"set", PatchSet("patchSelection", "patchColorAdaptation", 5))}},
      {"ResetColor", [] { return Ostrel_ResetColor(); }, {A(L"reset", R"({"null":{"_ref":"color","_property":"colors"}})")}},
      {"ResetPresetAppending", [] { return Ostrel_ResetPreset(L"brush", 1); },
       {A(L"reset", AppKeyTarget("brush").substr(0, AppKeyTarget("brush").size() - 1) + R"(,"append":true})")}},
      {"ResetPresetReplacing", [] { return Ostrel_ResetPreset(L"pattern", 0); },
       {A(L"reset", AppKeyTarget("pattern").substr(0, AppKeyTarget("pattern").size() - 1) + R"(,"append":false})")}},
      {"ResetBrush", [] { return Ostrel_ResetBrush(); }, {A(L"reset", AppKeyTarget("brush"))}},
      {"ResetColors", [] { return Ostrel_ResetColors(); }, {A(L"reset", AppKeyTarget("colors"))}},
      {"ResetGradients", [] { return Ostrel_ResetGradientClassEvent(); }, {A(L"reset", AppKeyTarget("gradientClassEvent"))}},
      {"ResetStyle", [] { return Ostrel_ResetStyle(); }, {A(L"reset", AppKeyTarget("style"))}},
      {"ResetPattern", [] { return Ostrel_ResetPattern(); }, {A(L"reset", AppKeyTarget("pattern"))}},
      {"ResetCustomShape", [] { return Ostrel_ResetCustomShape(); }, {A(L"reset", AppKeyTarget("shapeCurveType"))}},
      {"ResetShapeCurveType", [] { return Ostrel_ResetShapeCurveType(); }, {A(L"reset", AppKeyTarget("shapeCurveType"))}},
      {"ResetToolPreset", [] { return Ostrel_ResetToolPreset(); }, {A(L"reset", AppKeyTarget("toolPreset"))}},
      {"ResetContentAwareMove", [] { return Ostrel_ResetContentAwareMoveMixMode(); },
       {A(L"set", PatchSet("recomposeSelection", "recomposeMode", 1))}},
      {"ResetPatchStructure", [] { return Ostrel_ResetPatchStructure(); },
       {A(L"set", PatchSet("patchSelection", "patchStructureAdapt", 3))}},
      {"ResetPatchColor", [] { return Ostrel_ResetPatchColor(); },
       {A(L"set", PatchSet("patchSelection", "patchColorAdaptation", 5))}},
      {"CloseProperties", [] { return Ostrel_ClosePropertiesPannel(); }, {A(L"select", MenuItem("closePropertiesPanel"))}},
      {"CloseCloneSource", [] { return Ostrel_CloseCloneSourcePanel(); }, {A(L"select", MenuItem("closeCloneSourcePanel"))}},
      {"CloseCharacter", [] { return Ostrel_CloseCharacterPanel(); }, {A(L"select", MenuItem("closeCharacterPanel"))}},
      {"CloseParagraph", [] { return Ostrel_CloseParagraphPanel(); }, {A(L"select", MenuItem("closeParagraphPanel"))}},
      {"SetFontNameSendsNothing", [] { return Ostrel_SetFontName(L"SimSun"); }, {}},
      {"PenToolShapeMode", [] { return Ostrel_SetPenToolGeometryModeToShape(); },
       {A(L"set", std::string(R"({"null":{"_ref":"penTool"},"to":{"_obj":"null","tool":{"_enum":"penTool","_value":"targetEnum"},"currentToolOptions":{"_obj":"currentToolOptions",)") +
                      kOptions + R"(},"geometryToolMode":{"_enum":"geometryToolMode","_value":"shape"}}})")}},
      // The layers panel is hidden: asked, then toggled. The channels panel is shown: asked, and nothing more.
      {"ShowLayersPanel", [] { return Ostrel_SetLayerPanelVisible(); },
       {A(L"uiInfo", ViewInfo("$layr", "layers")), A(L"select", MenuItem("toggleLayersPalette"))}},
      {"ShowChannelsPanelAlreadyShown", [] { return Ostrel_SetChannelPanelVisible(); },
       {A(L"uiInfo", ViewInfo("$chnl", "channels"))}},
      {"ShowPathsPanel", [] { return Ostrel_SetPathPannelVisible(); },
       {A(L"uiInfo", ViewInfo("$path", "paths")), A(L"select", MenuItem("togglePathsPalette"))}},
      {"ShowPanelByValue", [] { return Ostrel_SetLayerPanelVisible(EnLayerPanel{2}); },
       {A(L"uiInfo", ViewInfo("$path", "paths")), A(L"select", MenuItem("togglePathsPalette"))}},
      {"IsLayerPanelVisible", [] { return 1 - Ostrel_IsLayerPanelVisible(); }, {A(L"uiInfo", ViewInfo("$layr", "layers"))}},
      // Red 0x0C, green 0x00, blue 0xFF: the text that reaches Photoshop is red first.
      {"SetForegroundColor", [] { return Ostrel_SetForegroundColor(0x00FF000Cu); }, {Call("foregroundColor", L"0C00FF")}},
      {"SetBackgroundColor", [] { return Ostrel_SetBackgroundColor(0x00123456u); }, {Call("backgroundColor", L"563412")}},
  };
}

class ResetsJournalTest : public test::ConnectedPhotoshopTest, public ::testing::WithParamInterface<JournalCase> {};

TEST_P(ResetsJournalTest, PhotoshopReceivesEveryCommandWhole) {
  const JournalCase& c = GetParam();
  ConnectToText(kScenario);
  m_photoshop->ClearJournal();
  EXPECT_EQ(c.command(), 1);
  const std::vector<sim::JournalEntry>& journal = m_photoshop->Journal();
  ASSERT_EQ(journal.size(), c.entries.size());
  for (size_t i = 0; i < journal.size(); ++i) {
    SCOPED_TRACE(testing::Message() << "entry " << i);
    const auto& [expected, descriptor] = c.entries[i];
    EXPECT_EQ(journal[i].member, expected.member);
    EXPECT_FALSE(journal[i].failed);
    if (journal[i].member == "executeAction") {
      EXPECT_EQ(journal[i].event, expected.eventOrDetail);
      EXPECT_EQ(journal[i].descriptor, descriptor);
      EXPECT_EQ(journal[i].dialogMode, 3);
    } else {
      EXPECT_EQ(journal[i].detail, expected.eventOrDetail);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Commands, ResetsJournalTest, ::testing::ValuesIn(Cases()),
                         [](const auto& info) { return std::string(info.param.name); });

class ResetsTest : public test::ConnectedPhotoshopTest {};

// Each command that Photoshop refuses gives 0. The reset of the tools ignores its three patch writes, refused
// or not; the workspace isn't reset when it can't be selected.
TEST_F(ResetsTest, RefusedCommandsGiveZero) {
  ConnectToText(R"({"refusedEvents": ["reset", "select"],
                    "application": {"workspaceList": [{"_obj": "workspace", "displayName": "Essentials"}]}})");
  const std::pair<const char*, std::function<int()>> refused[] = {
      {"ResetWorkSpace", [] { return Ostrel_ResetWorkSpace(L"Essentials"); }},
      {"ResetTool", [] { return Ostrel_ResetTool(); }},
      {"ResetColor", [] { return Ostrel_ResetColor(); }},
      {"ResetPreset", [] { return Ostrel_ResetPreset(L"brush", 1); }},
      {"ResetBrush", [] { return Ostrel_ResetBrush(); }},
      {"ResetColors", [] { return Ostrel_ResetColors(); }},
      {"ResetGradientClassEvent", [] { return Ostrel_ResetGradientClassEvent(); }},
      {"ResetStyle", [] { return Ostrel_ResetStyle(); }},
      {"ResetPattern", [] { return Ostrel_ResetPattern(); }},
      {"ResetCustomShape", [] { return Ostrel_ResetCustomShape(); }},
      {"ResetToolPreset", [] { return Ostrel_ResetToolPreset(); }},
      {"ClosePropertiesPannel", [] { return Ostrel_ClosePropertiesPannel(); }},
      {"CloseParagraphPanel", [] { return Ostrel_CloseParagraphPanel(); }},
      {"SetLayerPanelVisible", [] { return Ostrel_SetLayerPanelVisible(); }},
  };
  for (const auto& [name, command] : refused) {
    SCOPED_TRACE(name);
    EXPECT_EQ(command(), 0);
  }
}

TEST_F(ResetsTest, ResetToolGoesThroughWhenThePatchWritesAreRefused) {
  ConnectToText(R"({"refusedEvents": ["set"]})");  // no tool at all: the patch writes fail at their read too
  EXPECT_EQ(Ostrel_ResetTool(), 1);
  EXPECT_EQ(Ostrel_ResetContentAwareMoveMixMode(), 0);
}

TEST_F(ResetsTest, ResetWorkSpaceOfAnUnknownNameResetsNothing) {
  ConnectToText(kScenario);
  m_photoshop->ClearJournal();
  EXPECT_EQ(Ostrel_ResetWorkSpace(L"Painting"), 0);
  ASSERT_EQ(m_photoshop->Journal().size(), 1u);
  EXPECT_EQ(m_photoshop->Journal().front().event, L"select");
  EXPECT_TRUE(m_photoshop->Journal().front().failed);
}

TEST(ResetsUnconnectedTest, TheFontNameAnswersWithoutPhotoshop) { EXPECT_EQ(Ostrel_SetFontName(L"SimSun"), 1); }

}  // namespace
}  // namespace ostrel
