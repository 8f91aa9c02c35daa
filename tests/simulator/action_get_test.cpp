// executeActionGet: every reference form resolves against the scenario as Photoshop resolves it.
#include "simulator/action_get.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "platform/text.h"
#include "sim_test_support.h"
#include "simulator/value_json.h"

namespace ostrel::sim {
namespace {

using namespace test;
using ActionGetTest = ExampleTest;

// The same layers with and without a background. From the bottom: [Background], Bottom, end of Group, Inner,
// Group, Top.
std::string Layers(bool background) {
  return std::string(R"({"documents": [{"layers": [
    {"descriptor": {"name": "Top", "layerID": 10}},
    {"descriptor": {"name": "Group", "layerID": 11}, "layers": [{"descriptor": {"name": "Inner", "layerID": 12}}]},
    {"descriptor": {"name": "Bottom", "layerID": 13}})") +
         (background ? R"(, {"descriptor": {"name": "Background", "layerID": 1, "background": true}})" : "") + "]}]}";
}

// Would catch an index read without the background offset, or one that counts a set as one place.
TEST(ActionGetScenarioTest, LayersByIndexIdNameAndCurrent) {
  const wchar_t* kNames[] = {L"Background", L"Bottom", L"</Layer group>", L"Inner", L"Group", L"Top"};
  for (bool background : {false, true}) {
    SCOPED_TRACE(background ? "with background" : "without background");
    auto ps = FromText(Layers(background));
    Connected c(ps);
    const int first = background ? 0 : 1;  // above the background the same putIndex names the same layer
    for (int i = first; i < 6; ++i) {
      SCOPED_TRACE(i);
      const DispatchPtr layer = c.ReadIndex(L"Lyr ", i);
      EXPECT_EQ(c.String(layer, L"name"), kNames[i]);
      EXPECT_EQ(c.Integer(layer, L"itemIndex"), background ? i + 1 : i);
    }
    EXPECT_EQ(FailureCode([&] { c.ReadIndex(L"Lyr ", first - 1); }), kDispEException);
    EXPECT_EQ(FailureCode([&] { c.ReadIndex(L"Lyr ", 6); }), kDispEException);
    EXPECT_EQ(c.Integer(c.ReadBy(dr::kPutIdentifier, L"Lyr ", I4(12)), L"itemIndex"), background ? 4 : 3);
    EXPECT_EQ(FailureCode([&] { c.ReadBy(dr::kPutIdentifier, L"Lyr ", I4(99)); }), kDispEException);
    EXPECT_EQ(c.Integer(c.ReadBy(dr::kPutName, L"Lyr ", Str(L"Group")), L"layerID"), 11);
    EXPECT_EQ(c.String(c.ReadCurrent(L"Lyr "), L"name"), L"Top");  // the top layer when the scenario names none
  }
}

// A set inside a set: each closes below its own layers. A document element after the target names the document.
TEST(ActionGetScenarioTest, NestedSetsAndOtherDocuments) {
  auto ps = FromText(R"({"documents": [
    {"descriptor": {"title": "one.psd", "documentID": 40}, "layers": [{"descriptor": {"name": "Only", "layerID": 1}}]},
    {"descriptor": {"title": "two.psd", "documentID": 41}, "layers": [
      {"descriptor": {"name": "Outer", "layerID": 1}, "layers": [
        {"descriptor": {"name": "Inner", "layerID": 2}, "layers": [{"descriptor": {"name": "Deep", "layerID": 3}}]},
        {"descriptor": {"name": "Side", "layerID": 4}}]}]}],
    "activeDocument": 2})");
  Connected c(ps);
  const wchar_t* expected[] = {L"</Layer group>", L"Side", L"</Layer group>", L"Deep", L"Inner", L"Outer"};
  for (int i = 1; i <= 6; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(c.String(c.ReadIndex(L"Lyr ", i), L"name"), expected[i - 1]);
  }
  EXPECT_EQ(c.Integer(c.ReadCurrent(L"Dcmn"), L"numberOfLayers"), 6);
  const auto firstLayerIn = [&](int32_t documentForm, const Variant& document) {
    return c.String(c.Read([&](const DispatchPtr& r) {
      Call(r, dr::kPutIndex, {I4(c.C(L"Lyr ")), I4(1)});
      Call(r, documentForm, {I4(c.C(L"Dcmn")), document});
    }),
                    L"name");
  };
  EXPECT_EQ(firstLayerIn(dr::kPutName, Str(L"one.psd")), L"Only");
  EXPECT_EQ(firstLayerIn(dr::kPutIdentifier, I4(41)), L"</Layer group>");
  EXPECT_EQ(c.Integer(c.ReadIndex(L"Dcmn", 1), L"documentID"), 40);
  EXPECT_EQ(FailureCode([&] { c.ReadIndex(L"Dcmn", 3); }), kDispEException);
}

// The keys of a descriptor by name, in their order.
std::vector<std::wstring> KeyNames(const Connected& c, const DispatchPtr& descriptor) {
  std::vector<std::wstring> names;
  for (int32_t i = 0; i < Get(descriptor, dd::kCount).AsI4(); ++i) {
    names.push_back(c.Name(Call(descriptor, dd::kGetKey, {I4(i)}).AsI4()));
  }
  return names;
}

// A read of the application's "tool" answers with the tool and then its options, by char ids and by string ids,
// and the options are those of the tool that is current now; any other property read gives that key alone.
TEST_F(ActionGetTest, ToolReadGivesTheToolAndItsOptions) {
  const auto stringForms = [&] {
    return c.Read([&](const DispatchPtr& r) {
      Call(r, dr::kPutProperty, {I4(c.S(L"property")), I4(c.S(L"tool"))});
      Call(r, dr::kPutEnumerated, {I4(c.S(L"application")), I4(c.S(L"ordinal")), I4(c.S(L"targetEnum"))});
    });
  };
  const auto charForms = [&] { return c.ReadProperty(L"capp", L"tool"); };
  const std::vector<std::wstring> kToolAndOptions = {L"tool", L"currentToolOptions"};
  for (const DispatchPtr& d : {charForms(), stringForms()}) {
    EXPECT_EQ(KeyNames(c, d), kToolAndOptions);
    EXPECT_EQ(c.Name(Call(d, dd::kGetEnumerationValue, {I4(c.S(L"tool"))}).AsI4()), L"targetEnum");
    EXPECT_TRUE(Call(c.Object(d, L"currentToolOptions"), dd::kGetBoolean, {I4(c.C(L"MrqA"))}).AsBool());
  }
  Put(c.app, da::kCurrentTool, Str(L"paintbrushTool"));
  for (const DispatchPtr& d : {charForms(), stringForms()}) {
    EXPECT_EQ(KeyNames(c, d), kToolAndOptions);
    EXPECT_TRUE(Call(c.Object(d, L"currentToolOptions"), dd::kGetBoolean, {I4(c.S(L"useTipDynamics"))}).AsBool());
  }
  EXPECT_EQ(KeyNames(c, c.ReadProperty(L"capp", L"interfacePrefs")), std::vector<std::wstring>{L"interfacePrefs"});
  EXPECT_EQ(KeyNames(c, c.ReadProperty(L"capp", L"currentToolOptions")),
            std::vector<std::wstring>{L"currentToolOptions"});
  EXPECT_EQ(FailureCode([&] { c.ReadProperty(L"capp", L"noSuchKey"); }), kDispEException);
  EXPECT_EQ(KeyNames(c, c.ReadProperty(L"Dcmn", L"title")), std::vector<std::wstring>{L"title"});
}

// The order of the answer is Photoshop's, not the application descriptor's: the whole application, as recorded,
// lists currentToolOptions first.
TEST(ActionGetScenarioTest, ToolReadOrderDoesNotFollowTheApplicationDescriptor) {
  auto ps = FromText(R"({"application": {"currentToolOptions": {"_obj": "currentToolOptions", "opacity": 50},
                                         "tool": {"_enum": "paintbrushTool", "_value": "targetEnum"}}})");
  Connected c(ps);
  EXPECT_EQ(KeyNames(c, c.ReadProperty(L"capp", L"tool")), (std::vector<std::wstring>{L"tool", L"currentToolOptions"}));
}

TEST_F(ActionGetTest, DocumentKeysFollowTheStack) {
  const DispatchPtr document = c.ReadCurrent(L"Dcmn");
  EXPECT_TRUE(Call(document, dd::kGetBoolean, {I4(c.S(L"hasBackgroundLayer"))}).AsBool());
  EXPECT_EQ(c.Integer(document, L"numberOfLayers"), 5);
  // targetLayers holds itemIndex - 1 of each selected layer, the putIndex place that finds it again: the
  // rectangle (layerID 2) and the title (layerID 7).
  const DispatchPtr targets = Call(document, dd::kGetList, {I4(c.S(L"targetLayers"))}).AsDispatch();
  ASSERT_EQ(Get(targets, dl::kCount).AsI4(), 2);
  const int32_t kIndexes[] = {1, 5}, kLayerIds[] = {2, 7};
  for (int i = 0; i < 2; ++i) {
    const int32_t index = Call(Call(targets, dl::kGetReference, {I4(i)}).AsDispatch(), dr::kGetIndex).AsI4();
    EXPECT_EQ(index, kIndexes[i]);
    EXPECT_EQ(c.Integer(c.ReadIndex(L"Lyr ", index), L"layerID"), kLayerIds[i]);
  }
}

// targetLayers as the scenario's "selectedLayers" gives it: missing, the current layer (named or the top one),
// also over a descriptor without the key; an empty list, the key with nothing in it; null, no key, so that a read of
// it fails as after Deselect Layers, even where the pasted descriptor had its own.
TEST(ActionGetScenarioTest, TargetLayersFollowTheSelectionOfLayers) {
  struct Case {
    const char* extra;     // the document's keys beside its layers
    int targets;           // -1: a read of targetLayers fails
    int32_t firstLayerId;  // the layer that the first target names
  };
  const Case kCases[] = {
      {R"("activeLayer": 12)", 1, 12},
      {R"("activeLayer": 11)", 1, 11},
      {R"("descriptor": {"title": "a.psd"})", 1, 10},
      {R"("activeLayer": 13, "selectedLayers": [10, 13])", 2, 10},
      {R"("selectedLayers": [])", 0, 0},
      {R"("selectedLayers": null)", -1, 0},
      {R"("selectedLayers": null, "descriptor": {"targetLayers": [{"_ref": "layer", "_index": 1}]})", -1, 0},
  };
  for (bool background : {false, true}) {
    for (const Case& k : kCases) {
      SCOPED_TRACE(std::string(k.extra) + (background ? " with background" : " without background"));
      std::string json = Layers(background);
      json.insert(json.rfind("]}]}") + 1, std::string(", ") + k.extra);
      auto ps = FromText(json);
      Connected c(ps);
      if (k.targets < 0) {
        EXPECT_EQ(FailureCode([&] { c.ReadProperty(L"Dcmn", L"targetLayers"); }), kDispEException);
        EXPECT_FALSE(Call(c.ReadCurrent(L"Dcmn"), dd::kHasKey, {I4(c.S(L"targetLayers"))}).AsBool());
        continue;
      }
      const DispatchPtr document = c.ReadProperty(L"Dcmn", L"targetLayers");
      const DispatchPtr targets = Call(document, dd::kGetList, {I4(c.S(L"targetLayers"))}).AsDispatch();
      ASSERT_EQ(Get(targets, dl::kCount).AsI4(), k.targets);
      if (k.targets == 0) continue;
      const int32_t index = Call(Call(targets, dl::kGetReference, {I4(0)}).AsDispatch(), dr::kGetIndex).AsI4();
      const DispatchPtr layer = c.ReadBy(dr::kPutIdentifier, L"Lyr ", I4(k.firstLayerId));
      EXPECT_EQ(index + 1, c.Integer(layer, L"itemIndex"));
    }
  }
}

// A document without layers has none to target.
TEST(ActionGetScenarioTest, NoLayersNoTargetLayers) {
  auto ps = FromText(R"({"documents": [{"descriptor": {"title": "empty.psd"}}]})");
  Connected c(ps);
  EXPECT_EQ(FailureCode([&] { c.ReadProperty(L"Dcmn", L"targetLayers"); }), kDispEException);
}

TEST_F(ActionGetTest, ChannelsPathsAndHistory) {
  EXPECT_EQ(c.String(c.ReadIndex(L"Chnl", 2), L"channelName"), L"Green");
  EXPECT_EQ(c.Integer(c.ReadCurrent(L"Chnl"), L"itemIndex"), 1);
  EXPECT_EQ(FailureCode([&] { c.ReadIndex(L"Chnl", 4); }), kDispEException);
  EXPECT_EQ(c.String(c.ReadIndex(L"Path", 1), L"pathName"), L"Path 1");
  EXPECT_EQ(c.Integer(c.ReadCurrent(L"Path"), L"itemIndex"), 1);  // targetPathIndex 0 of the document
  EXPECT_EQ(c.Integer(c.ReadBy(dr::kPutName, L"Path", Str(L"Path 1")), L"itemIndex"), 1);
  EXPECT_EQ(FailureCode([&] { c.ReadBy(dr::kPutName, L"Path", Str(L"Path 9")); }), kDispEException);
  // The current layer (the title) has no vector mask; the rectangle has one.
  const auto vectorMask = [&] {
    return c.Read([&](const DispatchPtr& r) {
      Call(r, dr::kPutEnumerated, {I4(c.C(L"Path")), I4(c.C(L"Ordn")), I4(c.S(L"vectorMask"))});
    });
  };
  EXPECT_EQ(FailureCode(vectorMask), kDispEException);
  ps.state().documents[0].activeLayerId = 2;
  EXPECT_EQ(c.Name(Call(vectorMask(), dd::kGetEnumerationValue, {I4(c.C(L"Knd "))}).AsI4()), L"vectorMask");
  EXPECT_EQ(c.String(c.ReadCurrent(L"HstS"), L"name"), L"New Layer");
}

TEST(ActionGetScenarioTest, NothingOpenMeansNothingThere) {
  auto ps = Example("only_130.json");
  Connected c(ps);
  std::wstring description;
  EXPECT_EQ(FailureCode([&] { c.ReadCurrent(L"Dcmn"); }, &description), kDispEException);
  EXPECT_NE(description.find(L"current document"), std::wstring::npos);
  EXPECT_EQ(FailureCode([&] { c.ReadCurrent(L"Lyr "); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { c.ReadIndex(L"Lyr ", 0); }), kDispEException);
  EXPECT_EQ(FailureCode([&] { c.Read([](const DispatchPtr&) {}); }), kDispEException);
}

// A walk over a real layer descriptor through the automation calls, as the library walks one: the keys come in
// the file's order, named by typeIDToStringID or else typeIDToCharID, with the file's values.
TEST_F(ActionGetTest, WalkOfARealLayerMatchesItsFile) {
  const DispatchPtr layer = c.ReadIndex(L"Lyr ", 0);
  std::ifstream in(ExamplesDir() / "realdata" / "ps27.3_layer_background_uxptoolkit.uxp.json");
  const Json file = Json::parse(in);
  ASSERT_EQ(Get(layer, dd::kCount).AsI4(), static_cast<int32_t>(file.size()));
  int position = 0;
  for (const auto& [name, value] : file.items()) {
    SCOPED_TRACE(name);
    const int32_t key = Call(layer, dd::kGetKey, {I4(position++)}).AsI4();
    std::wstring keyName = c.Name(key);
    if (keyName.empty()) keyName = L"$" + Call(c.app, da::kTypeIDToCharID, {I4(key)}).AsBstr();
    EXPECT_EQ(ToUtf8(keyName), name);
    if (value.is_boolean()) {
      EXPECT_EQ(Call(layer, dd::kGetBoolean, {I4(key)}).AsBool(), value.get<bool>());
    } else if (value.is_number_integer()) {
      EXPECT_EQ(Call(layer, dd::kGetInteger, {I4(key)}).AsI4(), value.get<int32_t>());
    } else if (value.is_string()) {
      EXPECT_EQ(ToUtf8(Call(layer, dd::kGetString, {I4(key)}).AsBstr()), value.get<std::string>());
    } else if (value.is_array()) {
      EXPECT_EQ(Call(layer, dd::kGetType, {I4(key)}).AsI4(), static_cast<int32_t>(ValueType::kList));
    } else if (value.contains("_enum")) {
      const int32_t enumerated = Call(layer, dd::kGetEnumerationValue, {I4(key)}).AsI4();
      EXPECT_EQ(ToUtf8(c.Name(enumerated)), value["_value"].get<std::string>());
    }
  }
}

}  // namespace
}  // namespace ostrel::sim
