// executeActionGet: every reference form resolves against the scenario as Photoshop resolves it.
#include "simulator/action_get.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/text.h"
#include "sim_test_support.h"
#include "simulator/value_json.h"

namespace ostrel::sim {
namespace {

using test::Call;
using test::I4;
using test::Str;
namespace dd = dispid::desc;
namespace dr = dispid::ref;

// The same layers with and without a background. From the bottom: [Background], Bottom, end of Group, Inner,
// Group, Top.
std::string Layers(bool background) {
  return std::string(R"({"documents": [{"layers": [
    {"descriptor": {"name": "Top", "layerID": 10}},
    {"descriptor": {"name": "Group", "layerID": 11}, "layers": [{"descriptor": {"name": "Inner", "layerID": 12}}]},
    {"descriptor": {"name": "Bottom", "layerID": 13}})") +
         (background ? R"(, {"descriptor": {"name": "Background", "layerID": 1, "background": true}})" : "") +
         "]}]}";
}

// Would catch an index read without the background offset, or one that counts a set as one place.
TEST(ActionGetTest, LayerIndexHasTheBackgroundOffset) {
  for (bool background : {false, true}) {
    SCOPED_TRACE(background ? "with background" : "without background");
    auto ps = test::FromText(Layers(background));
    test::Connected c(ps);
    const int places = background ? 6 : 5;
    const int first = background ? 0 : 1;
    for (int i = first; i < first + places; ++i) {
      SCOPED_TRACE(i);
      EXPECT_EQ(c.Integer(c.ReadIndex(L"Lyr ", i), L"itemIndex"), background ? i + 1 : i);
    }
    EXPECT_EQ(test::FailureCode([&] { c.ReadIndex(L"Lyr ", first - 1); }), kDispEException);
    EXPECT_EQ(test::FailureCode([&] { c.ReadIndex(L"Lyr ", first + places); }), kDispEException);
    // Above the background the same putIndex names the same layer in both documents; the set takes two places.
    EXPECT_EQ(c.String(c.ReadIndex(L"Lyr ", 1), L"name"), L"Bottom");
    EXPECT_EQ(c.String(c.ReadIndex(L"Lyr ", 2), L"name"), L"</Layer group>");
    EXPECT_EQ(c.String(c.ReadIndex(L"Lyr ", 3), L"name"), L"Inner");
    EXPECT_EQ(c.String(c.ReadIndex(L"Lyr ", 4), L"name"), L"Group");
    if (background) {
      EXPECT_EQ(c.String(c.ReadIndex(L"Lyr ", 0), L"name"), L"Background");
    }
  }
}

TEST(ActionGetTest, LayerByIdNameAndCurrent) {
  auto ps = test::FromText(Layers(true));
  test::Connected c(ps);
  const auto byId = [&](int32_t id) {
    return c.Read([&](const DispatchPtr& r) { Call(r, dr::kPutIdentifier, {I4(c.C(L"Lyr ")), I4(id)}); });
  };
  EXPECT_EQ(c.Integer(byId(12), L"itemIndex"), 4);
  EXPECT_EQ(test::FailureCode([&] { byId(99); }), kDispEException);
  const auto byName = c.Read([&](const DispatchPtr& r) { Call(r, dr::kPutName, {I4(c.S(L"layer")), Str(L"Group")}); });
  EXPECT_EQ(c.Integer(byName, L"layerID"), 11);
  EXPECT_EQ(c.String(c.ReadCurrent(L"Lyr "), L"name"), L"Top");  // the top layer when the scenario names none
}

// A set inside a set: each closes below its own layers. A document element after the target names the document.
TEST(ActionGetTest, NestedSetsAndOtherDocuments) {
  auto ps = test::FromText(R"({"documents": [
    {"descriptor": {"title": "one.psd", "documentID": 40}, "layers": [{"descriptor": {"name": "Only", "layerID": 1}}]},
    {"descriptor": {"title": "two.psd", "documentID": 41}, "layers": [
      {"descriptor": {"name": "Outer", "layerID": 1}, "layers": [
        {"descriptor": {"name": "Inner", "layerID": 2}, "layers": [{"descriptor": {"name": "Deep", "layerID": 3}}]},
        {"descriptor": {"name": "Side", "layerID": 4}}]}]}],
    "activeDocument": 2})");
  test::Connected c(ps);
  const wchar_t* expected[] = {L"</Layer group>", L"Side", L"</Layer group>", L"Deep", L"Inner", L"Outer"};
  for (int i = 1; i <= 6; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(c.String(c.ReadIndex(L"Lyr ", i), L"name"), expected[i - 1]);
  }
  EXPECT_EQ(c.Integer(c.ReadCurrent(L"Dcmn"), L"numberOfLayers"), 6);
  const auto inDocument = [&](auto putDocument) {
    return c.Read([&](const DispatchPtr& r) {
      Call(r, dr::kPutIndex, {I4(c.C(L"Lyr ")), I4(1)});
      putDocument(r);
    });
  };
  EXPECT_EQ(c.String(inDocument([&](const DispatchPtr& r) { Call(r, dr::kPutName, {I4(c.C(L"Dcmn")), Str(L"one.psd")}); }),
                     L"name"),
            L"Only");
  EXPECT_EQ(c.String(inDocument([&](const DispatchPtr& r) { Call(r, dr::kPutIdentifier, {I4(c.C(L"Dcmn")), I4(41)}); }),
                     L"name"),
            L"</Layer group>");
  EXPECT_EQ(c.Integer(c.ReadIndex(L"Dcmn", 1), L"documentID"), 40);
  EXPECT_EQ(test::FailureCode([&] { c.ReadIndex(L"Dcmn", 3); }), kDispEException);
}

TEST(ActionGetTest, PropertyReadsGiveOnlyThatKey) {
  auto ps = SimulatedPhotoshop::FromFile(test::ExamplesDir() / "layers_and_group.json");
  test::Connected c(ps);
  // Char forms and string forms name the same application read.
  const auto charForms = c.Read([&](const DispatchPtr& r) {
    Call(r, dr::kPutProperty, {I4(c.C(L"Prpr")), I4(c.S(L"tool"))});
    Call(r, dr::kPutEnumerated, {I4(c.C(L"capp")), I4(c.C(L"Ordn")), I4(c.C(L"Trgt"))});
  });
  const auto stringForms = c.Read([&](const DispatchPtr& r) {
    Call(r, dr::kPutProperty, {I4(c.S(L"property")), I4(c.S(L"tool"))});
    Call(r, dr::kPutEnumerated, {I4(c.S(L"application")), I4(c.S(L"ordinal")), I4(c.S(L"targetEnum"))});
  });
  for (const DispatchPtr& d : {charForms, stringForms}) {
    EXPECT_EQ(test::Get(d, dd::kCount).AsI4(), 1);
    EXPECT_EQ(Call(d, dd::kGetKey, {I4(0)}).AsI4(), c.S(L"tool"));
    EXPECT_EQ(c.Name(Call(d, dd::kGetEnumerationValue, {I4(c.S(L"tool"))}).AsI4()), L"targetEnum");
  }
  EXPECT_EQ(test::FailureCode([&] {
              c.Read([&](const DispatchPtr& r) {
                Call(r, dr::kPutProperty, {I4(c.C(L"Prpr")), I4(c.S(L"noSuchKey"))});
                Call(r, dr::kPutEnumerated, {I4(c.C(L"capp")), I4(c.C(L"Ordn")), I4(c.C(L"Trgt"))});
              });
            }),
            kDispEException);
  const auto title = c.Read([&](const DispatchPtr& r) {
    Call(r, dr::kPutProperty, {I4(c.C(L"Prpr")), I4(c.S(L"title"))});
    Call(r, dr::kPutEnumerated, {I4(c.C(L"Dcmn")), I4(c.C(L"Ordn")), I4(c.C(L"Trgt"))});
  });
  EXPECT_EQ(c.String(title, L"title"), L"landscape.psd");
}

TEST(ActionGetTest, DocumentKeysFollowTheStack) {
  auto ps = SimulatedPhotoshop::FromFile(test::ExamplesDir() / "layers_and_group.json");
  test::Connected c(ps);
  const DispatchPtr document = c.ReadCurrent(L"Dcmn");
  EXPECT_TRUE(Call(document, dd::kGetBoolean, {I4(c.S(L"hasBackgroundLayer"))}).AsBool());
  EXPECT_EQ(c.Integer(document, L"numberOfLayers"), 5);
  // targetLayers holds itemIndex - 1 of each selected layer: the rectangle (2) and the title (6).
  const DispatchPtr targets = Call(document, dd::kGetList, {I4(c.S(L"targetLayers"))}).AsDispatch();
  ASSERT_EQ(test::Get(targets, dispid::list::kCount).AsI4(), 2);
  std::vector<int32_t> indexes;
  for (int i = 0; i < 2; ++i) {
    const DispatchPtr reference = Call(targets, dispid::list::kGetReference, {I4(i)}).AsDispatch();
    indexes.push_back(Call(reference, dr::kGetIndex).AsI4());
  }
  EXPECT_EQ(indexes, (std::vector<int32_t>{1, 5}));
  for (int32_t index : indexes) {
    EXPECT_TRUE(c.Integer(c.ReadIndex(L"Lyr ", index), L"layerID") == 2 ||
                c.Integer(c.ReadIndex(L"Lyr ", index), L"layerID") == 7);  // putIndex of it finds the same layer
  }
}

TEST(ActionGetTest, ChannelsPathsAndHistory) {
  auto ps = SimulatedPhotoshop::FromFile(test::ExamplesDir() / "layers_and_group.json");
  test::Connected c(ps);
  EXPECT_EQ(c.String(c.ReadIndex(L"Chnl", 2), L"channelName"), L"Green");
  EXPECT_EQ(c.Integer(c.ReadCurrent(L"Chnl"), L"itemIndex"), 1);
  EXPECT_EQ(test::FailureCode([&] { c.ReadIndex(L"Chnl", 4); }), kDispEException);
  EXPECT_EQ(c.String(c.ReadIndex(L"Path", 1), L"pathName"), L"Path 1");
  EXPECT_EQ(c.Integer(c.ReadCurrent(L"Path"), L"itemIndex"), 1);  // targetPathIndex 0 of the document
  const auto byName = c.Read([&](const DispatchPtr& r) { Call(r, dr::kPutName, {I4(c.C(L"Path")), Str(L"Path 1")}); });
  EXPECT_EQ(c.Integer(byName, L"itemIndex"), 1);
  EXPECT_EQ(test::FailureCode([&] {
              c.Read([&](const DispatchPtr& r) { Call(r, dr::kPutName, {I4(c.C(L"Path")), Str(L"Path 9")}); });
            }),
            kDispEException);
  // The current layer (the title) has no vector mask.
  const auto vectorMask = [&] {
    return c.Read([&](const DispatchPtr& r) {
      Call(r, dr::kPutEnumerated, {I4(c.C(L"Path")), I4(c.C(L"Ordn")), I4(c.S(L"vectorMask"))});
    });
  };
  EXPECT_EQ(test::FailureCode(vectorMask), kDispEException);
  ps.state().documents[0].activeLayerId = 2;  // the rectangle has one
  EXPECT_EQ(c.Name(Call(vectorMask(), dd::kGetEnumerationValue, {I4(c.C(L"Knd "))}).AsI4()), L"vectorMask");
  EXPECT_EQ(c.String(c.ReadCurrent(L"HstS"), L"name"), L"New Layer");
}

TEST(ActionGetTest, NothingOpenMeansNothingThere) {
  auto ps = SimulatedPhotoshop::FromFile(test::ExamplesDir() / "only_130.json");
  test::Connected c(ps);
  try {
    c.ReadCurrent(L"Dcmn");
    ADD_FAILURE() << "no error";
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.code(), kDispEException);
    EXPECT_NE(e.description().find(L"current document"), std::wstring::npos);
  }
  EXPECT_EQ(test::FailureCode([&] { c.ReadCurrent(L"Lyr "); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { c.ReadIndex(L"Lyr ", 0); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { c.Read([](const DispatchPtr&) {}); }), kDispEException);
}

// A walk over a real layer descriptor through the automation calls, as the library walks one: the keys come in
// the file's order, named by typeIDToStringID or else typeIDToCharID, with the file's values.
TEST(ActionGetTest, WalkOfARealLayerMatchesItsFile) {
  auto ps = SimulatedPhotoshop::FromFile(test::ExamplesDir() / "layers_and_group.json");
  test::Connected c(ps);
  const DispatchPtr layer = c.ReadIndex(L"Lyr ", 0);
  std::ifstream in(test::ExamplesDir() / "realdata" / "ps27.3_layer_background_uxptoolkit.uxp.json");
  const Json file = Json::parse(in);
  ASSERT_EQ(test::Get(layer, dd::kCount).AsI4(), static_cast<int32_t>(file.size()));
  int position = 0;
  for (const auto& [name, value] : file.items()) {
    SCOPED_TRACE(name);
    const int32_t key = Call(layer, dd::kGetKey, {I4(position++)}).AsI4();
    std::wstring keyName = c.Name(key);
    if (keyName.empty()) keyName = L"$" + Call(c.app, dispid::app::kTypeIDToCharID, {I4(key)}).AsBstr();
    EXPECT_EQ(ToUtf8(keyName), name);
    const auto type = static_cast<ValueType>(Call(layer, dd::kGetType, {I4(key)}).AsI4());
    if (value.is_boolean()) {
      EXPECT_EQ(Call(layer, dd::kGetBoolean, {I4(key)}).AsBool(), value.get<bool>());
    } else if (value.is_number_integer()) {
      EXPECT_EQ(Call(layer, dd::kGetInteger, {I4(key)}).AsI4(), value.get<int32_t>());
    } else if (value.is_string()) {
      EXPECT_EQ(ToUtf8(Call(layer, dd::kGetString, {I4(key)}).AsBstr()), value.get<std::string>());
    } else if (value.is_array()) {
      EXPECT_EQ(type, ValueType::kList);
    }
    if (value.is_object() && value.contains("_enum")) {
      EXPECT_EQ(ToUtf8(c.Name(Call(layer, dd::kGetEnumerationValue, {I4(key)}).AsI4())), value["_value"].get<std::string>());
    }
  }
}

}  // namespace
}  // namespace ostrel::sim
