// Scenario files: a document is built from its parts, and each kind of mistake names its place.
#include "simulator/scenario.h"

#include <gtest/gtest.h>

#include "sim_test_support.h"

namespace ostrel::sim {
namespace {

TEST(ScenarioTest, ExampleDocumentIsBuiltFromItsParts) {
  const Scenario s = LoadScenarioFile(test::ExamplesDir() / "layers_and_group.json");
  ASSERT_EQ(s.state.documents.size(), 1u);
  DocumentState document = s.state.documents[0];
  EXPECT_EQ(StringOr(document.descriptor, CharId("Ttl "), L""), L"landscape.psd");  // the later part wins
  EXPECT_TRUE(HasBackground(document));
  EXPECT_EQ(LayerStack(document).size(), 6u);  // background, rectangle, group end, shadow, group, title
  EXPECT_EQ(document.width, 2100.0);           // 504 points at 300 pixels per inch
  EXPECT_EQ(document.activeLayerId, 7);
  const Value* end = document.layers[1].end.Find(CharId("LyrI"));
  ASSERT_NE(end, nullptr);
  EXPECT_EQ(end->integer, 8);  // made-up end entries get ids above the given ones
}

TEST(ScenarioTest, MistakesNameTheirPlace) {
  struct Case {
    const char* json;
    const char* message;  // a part of the error's text
  };
  const Case cases[] = {
      {"{\n  \"versions\": [130,\n  ]\n}", "test.json:3:3: JSON syntax error"},
      {R"({"version": 20})", "at /version: must be a string"},
      {R"({"versoins": [130]})", "at /versoins: unknown key"},
      {R"({"versions": [100]})", "at /versions/0: no Photoshop version 100"},
      {R"({"documents": [{"layers": [{"descriptor": {"name": "a", "layerID": 1}}], "activeLayer": 12}]})",
       "at /documents/0/activeLayer: no layer has the layerID 12"},
      {R"({"documents": [{"layers": [{"descriptor": {"layerID": 1}}], "selectedLayers": [1, 2]}]})",
       "at /documents/0/selectedLayers/1: no layer has the layerID 2"},
      {R"({"documents": [{"selectedLayers": "all"}]})",
       "at /documents/0/selectedLayers: must be a list of layerIDs or null"},
      {R"({"documents": [{"layers": [{"descriptor": {"layerID": "one"}}]}]})",
       "at /documents/0/layers/0/descriptor: \"layerID\" must be an integer"},
      {R"({"documents": [{"layers": [{"descriptor": {"mode": {"_enum": "blendMode"}}}]}]})",
       "at /documents/0/layers/0/descriptor/mode: "},
      {R"({"application": {"tool": {"_enum": "moveTool", "_value": "targetEnum", "x": 1}}})", "at /application/tool/x"},
      {R"({"documents": [{"layers": [{"descriptor": {"layerID": 3}}, {"descriptor": {"layerID": 3}}]}]})",
       "two layers have the layerID 3"},
      {R"({"documents": [{"layers": [{"descriptor": {"background": true}}, {"descriptor": {}}]}]})",
       "only the lowest layer of the top level can be the background"},
      {R"({"documents": [{"history": [{"name": "Open"}], "activeHistoryState": 2}]})",
       "at /documents/0/activeHistoryState: there is no 2"},
      {R"({"documents": [{}], "activeDocument": 2})", "at /activeDocument: there is no document 2"},
      {R"({"unsettled": {"getIntegerOfBoolean": "one"}})",
       R"(at /unsettled/getIntegerOfBoolean: must be "zeroOrOne" or "fails")"},
      {R"({"unsettled": {"charIDToTypeIDOfOtherLength": true}})",
       R"(at /unsettled/charIDToTypeIDOfOtherLength: must be "fails" or "minusOne")"},
      {R"({"unsettled": {"charIDToTypeID": "fails"}})", "at /unsettled/charIDToTypeID: unknown key"},
      {R"({"documents": [{"selection": [1, 2, 3]}]})", "at /documents/0/selection"},
      {R"({"application": "no_such_file.json"})", "at /application: cannot read the descriptor file"},
      {R"({"application": "realdata/ps2015_layers_spacesdesign.uxp.json#/5"})", "has nothing at /5"},
      {R"({"documents": [{"layers": [{"descriptor": "../../tests/simulator/data/bad_notation.json"}]}]})",
       "at /documents/0/layers/0/descriptor: in \"../../tests/simulator/data/bad_notation.json\" at /mode/_unit"},
      {R"({"application": "../../tests/simulator/data/bad_syntax.json"})", "bad_syntax.json:3:17: JSON syntax error"},
      {R"({"defaults": {"presets": {"brush": "Soft Round"}}})", "at /defaults/presets/brush: must be a list of names"},
      {R"({"defaults": {"presets": {"brush": [1]}}})", "at /defaults/presets/brush/0: must be a string"},
      {R"({"defaults": {"tools": {}}})", "at /defaults/tools: unknown key"},
      {R"({"defaults": {"toolOptions": {"penTool": 3}}})", "at /defaults/toolOptions/penTool"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.json);
    try {
      ParseScenario(c.json, test::ExamplesDir(), "test.json");
      ADD_FAILURE() << "no error";
    } catch (const ScenarioError& e) {
      EXPECT_NE(std::string(e.what()).find(c.message), std::string::npos) << e.what();
    }
  }
}

}  // namespace
}  // namespace ostrel::sim
