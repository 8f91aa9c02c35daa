// The object model: documents, layers and their collections, history, selection, colours, fonts, notifiers.
#include "simulator/object_model.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "sim_test_support.h"

namespace ostrel::sim {
namespace {

using namespace test;

class ObjectModelTest : public ExampleTest {
 protected:
  static DispatchPtr Of(const DispatchPtr& object, int32_t dispId) { return Get(object, dispId).AsDispatch(); }
  static int32_t Count(const DispatchPtr& collection) { return Get(collection, om::kCount).AsI4(); }
  static DispatchPtr Item(const DispatchPtr& collection, int16_t position) {
    return Call(collection, om::kItem, {Variant::I2(position)}).AsDispatch();
  }
  DispatchPtr Document() { return Of(c.app, da::kActiveDocument); }
};

// Bounds as four doubles (AsR8 throws for another type): left, top, right, bottom.
std::vector<double> Bounds(const DispatchPtr& object) {
  const Variant array = Get(object, om::kBounds);
  std::vector<double> bounds;
  for (const Variant& v : array.AsArray()) bounds.push_back(v.AsR8());
  return bounds;
}

TEST_F(ObjectModelTest, ApplicationAndDocumentProperties) {
  EXPECT_EQ(Get(c.app, da::kVersion).AsBstr(), L"20.0.4");
  EXPECT_TRUE(Get(c.app, da::kVisible).AsBool());
  EXPECT_EQ(Get(c.app, da::kPath).AsBstr(), L"C:\\Program Files\\Adobe\\Adobe Photoshop CC 2019\\");
  EXPECT_EQ(Get(Item(Of(c.app, da::kFonts), 2), om::kName).AsBstr(), L"MicrosoftYaHei");
  const DispatchPtr document = Document();
  EXPECT_EQ(Get(document, om::kName).AsBstr(), L"landscape.psd");
  EXPECT_EQ(Get(document, om::kFullName).AsBstr(), L"C:\\Users\\learner\\Documents\\landscape.psd");
  EXPECT_EQ(Get(document, om::kWidth).AsR8(), 2100.0);
  EXPECT_EQ(Get(document, om::kHeight).AsR8(), 1500.0);
  EXPECT_FALSE(Get(document, om::kQuickMaskMode).AsBool());
  EXPECT_EQ(Bounds(Of(document, om::kSelection)), (std::vector<double>{10, 20, 110, 220}));
  EXPECT_EQ(Get(Item(Of(document, om::kChannels), 3), om::kName).AsBstr(), L"Blue");
  EXPECT_EQ(Count(Of(c.app, da::kDocuments)), 1);
  EXPECT_EQ(Count(Of(c.app, da::kFonts)), 3);
  EXPECT_EQ(Count(Of(document, om::kChannels)), 3);
  EXPECT_EQ(Count(Of(document, om::kPathItems)), 1);
}

// The document's art layers are its top level only; a set holds its own. Positions count from 1.
TEST_F(ObjectModelTest, LayerCollectionsAndItems) {
  const DispatchPtr artLayers = Of(Document(), om::kArtLayers);
  const DispatchPtr layerSets = Of(Document(), om::kLayerSets);
  EXPECT_EQ(Count(artLayers), 3);
  EXPECT_EQ(Count(layerSets), 1);
  EXPECT_EQ(Get(Item(artLayers, 1), om::kName).AsBstr(), L"Title");
  EXPECT_EQ(Get(Item(artLayers, 3), om::kId).AsI4(), 1);
  EXPECT_EQ(Get(Call(artLayers, om::kItem, {I4(2)}).AsDispatch(), om::kItemIndex).AsI4(), 2);
  EXPECT_EQ(FailureCode([&] { Item(artLayers, 0); }), kDispEBadIndex);
  EXPECT_EQ(FailureCode([&] { Item(artLayers, 4); }), kDispEBadIndex);
  EXPECT_EQ(FailureCode([&] { Call(artLayers, om::kItem, {Str(L"1")}); }), kDispETypeMismatch);
  const DispatchPtr group = Item(layerSets, 1);
  EXPECT_EQ(Get(group, om::kId).AsI4(), 5);
  EXPECT_EQ(Count(Of(group, om::kLayerSets)), 0);
  EXPECT_EQ(FailureCode([&] { Get(Item(artLayers, 1), om::kArtLayers); }), kDispENotFound);
  // Its properties come from its descriptor.
  const DispatchPtr shadow = Item(Of(group, om::kArtLayers), 1);
  EXPECT_EQ(Get(shadow, om::kName).AsBstr(), L"Shadow");
  EXPECT_EQ(Get(shadow, om::kBlendMode).AsI4(), 5);              // multiply
  EXPECT_NEAR(Get(shadow, om::kOpacity).AsR8(), 50.196, 0.001);  // 128 of 255
  EXPECT_EQ(Get(shadow, om::kFillOpacity).AsR8(), 100.0);
  EXPECT_TRUE(Get(shadow, om::kPixelsLocked).AsBool());
  EXPECT_FALSE(Get(shadow, om::kAllLocked).AsBool());
  const DispatchPtr title = Of(Document(), om::kActiveLayer);
  EXPECT_EQ(Get(title, om::kName).AsBstr(), L"Title");
  EXPECT_EQ(Bounds(title), (std::vector<double>{40, 30, 400, 90}));
}

TEST_F(ObjectModelTest, HistoryStates) {
  const DispatchPtr document = Document();
  const DispatchPtr states = Of(document, om::kHistoryStates);
  EXPECT_EQ(Count(states), 3);
  const DispatchPtr active = Of(document, om::kActiveHistoryState);
  EXPECT_EQ(Get(active, om::kName).AsBstr(), L"New Layer");
  EXPECT_EQ(Call(states, 0x70696478 /* index */, {Variant::Dispatch(active)}).AsI4(), 3);
  Put(document, om::kActiveHistoryState, Call(states, om::kItem, {I4(1)}));
  EXPECT_EQ(Get(Of(document, om::kActiveHistoryState), om::kName).AsBstr(), L"Open");
  EXPECT_EQ(Get(Of(document, om::kActiveHistoryBrushSource), om::kName).AsBstr(), L"Open");
  // Without a source, Photoshop's error is "No such element" in the language of its interface.
  ps.state().documents[0].historyBrushSource = 0;
  std::wstring description;
  EXPECT_EQ(FailureCode([&] { Get(document, om::kActiveHistoryBrushSource); }, &description), kDispEBadIndex);
  EXPECT_EQ(description, L"没有这种元素");
}

// A colour read is a copy: only the put back changes the application's colour.
TEST_F(ObjectModelTest, ColoursGoThroughSolidColorAndRgbColor) {
  const auto hex = [&](int32_t colour) { return Get(Of(Of(c.app, colour), om::kRgb), om::kHexValue).AsBstr(); };
  const DispatchPtr solid = Of(c.app, da::kForegroundColor);
  const DispatchPtr rgb = Of(solid, om::kRgb);
  EXPECT_EQ(hex(da::kForegroundColor), L"0D00FF");  // 12.9, 0.2, 255.0 rounded
  Put(rgb, om::kHexValue, Str(L"a1b2c3"));
  EXPECT_EQ(hex(da::kForegroundColor), L"0D00FF");
  Put(solid, om::kRgb, Variant::Dispatch(rgb));
  Put(c.app, da::kBackgroundColor, Variant::Dispatch(solid));
  EXPECT_EQ(hex(da::kBackgroundColor), L"A1B2C3");
  EXPECT_EQ(FailureCode([&] { Put(rgb, om::kHexValue, Str(L"red")); }), kDispEException);
}

TEST_F(ObjectModelTest, NotifiersAddAndRemove) {
  EXPECT_FALSE(Get(c.app, da::kNotifiersEnabled).AsBool());
  Put(c.app, da::kNotifiersEnabled, Variant::Bool(true));
  const DispatchPtr notifiers = Of(c.app, da::kNotifiers);
  Call(notifiers, om::kAdd, {Str(L"slct"), Str(L"C:\\n.jsx"), Str(L"")});
  Call(notifiers, om::kAdd, {Str(L"placedLayerEditContents"), Str(L"C:\\n.jsx"), Str(L"")});
  EXPECT_EQ(Count(notifiers), 2);
  EXPECT_EQ(ps.state().app.notifiers[1].event, L"placedLayerEditContents");
  Call(notifiers, om::kRemoveAll);
  EXPECT_EQ(Count(notifiers), 0);
  EXPECT_TRUE(ps.state().app.notifiersEnabled);
}

// Closing removes the document; an object that stood for it fails from then on.
TEST_F(ObjectModelTest, ClosedDocumentIsGone) {
  const DispatchPtr document = Document();
  const DispatchPtr layers = Of(document, om::kArtLayers);
  Call(document, om::kClose, {I4(2)});
  EXPECT_EQ(Count(Of(c.app, da::kDocuments)), 0);
  EXPECT_EQ(FailureCode([&] { Get(document, om::kName); }), kDispEBadIndex);
  EXPECT_EQ(FailureCode([&] { Count(layers); }), kDispEBadIndex);
  EXPECT_EQ(FailureCode([&] { Document(); }), kDispEBadIndex);
  ASSERT_FALSE(ps.Journal().empty());
  EXPECT_EQ(ps.Journal().back().member, "close");
  EXPECT_EQ(ps.Journal().back().detail, L"2");
}

// activeDocument with no document open and a selection's bounds with no selection fail with Photoshop's
// "No such element", in the language of its interface, carrying DISP_E_BADINDEX: not as a general error.
TEST(ObjectModelScenarioTest, NothingThereIsNoSuchElement) {
  struct Case {
    const char* language;
    const wchar_t* text;
  };
  const Case kLanguages[] = {{"en_US", L"No such element"}, {"zh_CN", L"没有这种元素"}};
  for (const Case& k : kLanguages) {
    SCOPED_TRACE(k.language);
    const std::string language = std::string(R"("language": ")") + k.language + "\"";
    auto none = FromText("{" + language + "}");
    Connected noDocument(none);
    auto unselected = FromText("{" + language + R"(, "documents": [{"selection": null}]})");
    Connected noSelection(unselected);
    const DispatchPtr selection =
        Get(Get(noSelection.app, da::kActiveDocument).AsDispatch(), om::kSelection).AsDispatch();
    const std::function<void()> reads[] = {[&] { Get(noDocument.app, da::kActiveDocument); },
                                           [&] { Get(selection, om::kBounds); }};
    for (const auto& read : reads) {
      std::wstring description;
      EXPECT_EQ(FailureCode(read, &description), kDispEBadIndex);
      EXPECT_EQ(description, k.text);
    }
  }
}

// The object model gives a document's width and height in the ruler units of the application's unitsPrefs (or
// its own rulerUnits): the descriptor's 504 by 360 points at 300 pixels per inch are 2100 by 1500 pixels. A size
// the scenario gives is taken as in those units already.
TEST(ObjectModelScenarioTest, SizeIsInTheRulerUnits) {
  struct Case {
    const char* application;
    double width;
    double height;
  };
  const Case kCases[] = {
      {"{}", 2100, 1500},
      {R"({"unitsPrefs": {"_obj": "unitsPrefs", "rulerUnits": {"_enum": "rulerUnits", "_value": "rulerPixels"}}})",
       2100, 1500},
      {R"({"unitsPrefs": {"_obj": "unitsPrefs", "rulerUnits": {"_enum": "rulerUnits", "_value": "rulerInches"}}})", 7,
       5},
      {R"({"unitsPrefs": {"_obj": "unitsPrefs", "rulerUnits": {"_enum": "rulerUnits", "_value": "rulerCm"}}})", 17.78,
       12.7},
      {R"({"unitsPrefs": {"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerMillimeters"}}})", 177.8, 127},
      {R"({"unitsPrefs": {"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerPoints"}}})", 504, 360},
      {R"({"unitsPrefs": {"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerPicas"}}})", 42, 30},
      {R"({"unitsPrefs": {"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerPercent"}}})", 100, 100},
      {R"({"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerInches"}})", 7, 5},
      {R"({"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerPixels"},
           "unitsPrefs": {"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerPicas"}}})",
       42, 30},
  };
  const std::string document =
      R"("documents": [{"descriptor": {"width": {"_unit": "distanceUnit", "_value": 504},
                                       "height": {"_unit": "distanceUnit", "_value": 360},
                                       "resolution": {"_unit": "densityUnit", "_value": 300.0}}}])";
  for (const Case& k : kCases) {
    SCOPED_TRACE(k.application);
    auto ps = FromText(std::string(R"({"application": )") + k.application + ", " + document + "}");
    Connected c(ps);
    const DispatchPtr active = Get(c.app, da::kActiveDocument).AsDispatch();
    EXPECT_NEAR(Get(active, om::kWidth).AsR8(), k.width, 1e-9);
    EXPECT_NEAR(Get(active, om::kHeight).AsR8(), k.height, 1e-9);
  }
  auto given = FromText(R"({"application": {"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerCm"}},
                            "documents": [{"width": 21.0, "height": 29.7}]})");
  Connected c(given);
  EXPECT_EQ(Get(Get(c.app, da::kActiveDocument).AsDispatch(), om::kWidth).AsR8(), 21.0);
  EXPECT_THROW(FromText(R"({"application": {"rulerUnits": {"_enum": "rulerUnits", "_value": "rulerFeet"}},
                            "documents": [{}]})"),
               ScenarioError);
}

TEST_F(ObjectModelTest, WrongKindOrArgumentsFailAsComDoes) {
  EXPECT_EQ(FailureCode([&] { Call(c.app, da::kVersion); }), kDispENotFound);  // a property, not a method
  EXPECT_EQ(FailureCode([&] { Get(c.app, 0x12345678); }), kDispENotFound);
  EXPECT_EQ(FailureCode([&] { Get(Document(), om::kName, {I4(1)}); }), kDispEBadParamCount);
}

}  // namespace
}  // namespace ostrel::sim
