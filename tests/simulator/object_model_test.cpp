// The object model: documents, layers and their collections, history, selection, colours, fonts, notifiers.
#include "simulator/object_model.h"

#include <gtest/gtest.h>

#include "sim_test_support.h"

namespace ostrel::sim {
namespace {

using test::Call;
using test::Get;
using test::I4;
using test::Str;
namespace da = dispid::app;
namespace om = dispid::obj;

class ObjectModelTest : public ::testing::Test {
 protected:
  SimulatedPhotoshop ps = SimulatedPhotoshop::FromFile(test::ExamplesDir() / "layers_and_group.json");
  test::Connected c{ps};
  DispatchPtr Document() { return Get(c.app, da::kActiveDocument).AsDispatch(); }
  DispatchPtr Item(const DispatchPtr& collection, int16_t position) {
    return Call(collection, om::kItem, {Variant::I2(position)}).AsDispatch();
  }
};

TEST_F(ObjectModelTest, DocumentProperties) {
  const DispatchPtr document = Document();
  EXPECT_EQ(Get(document, om::kName).AsBstr(), L"landscape.psd");
  EXPECT_EQ(Get(document, om::kFullName).AsBstr(), L"C:\\Users\\learner\\Documents\\landscape.psd");
  EXPECT_EQ(Get(document, om::kWidth).AsR8(), 2100.0);
  EXPECT_EQ(Get(document, om::kHeight).AsR8(), 1500.0);
  EXPECT_FALSE(Get(document, om::kQuickMaskMode).AsBool());
  EXPECT_EQ(Get(Get(c.app, da::kDocuments).AsDispatch(), om::kCount).AsI4(), 1);
  const Variant bounds = Get(Get(document, om::kSelection).AsDispatch(), om::kBounds);
  ASSERT_EQ(bounds.type(), VarType::kArray);
  ASSERT_EQ(bounds.AsArray().size(), 4u);
  EXPECT_EQ(bounds.AsArray()[2].type(), VarType::kR8);
  EXPECT_EQ(bounds.AsArray()[3].AsR8(), 220.0);
}

// The document's art layers are its top level only; a set holds its own. Positions count from 1.
TEST_F(ObjectModelTest, LayerCollectionsAndItems) {
  const DispatchPtr document = Document();
  const DispatchPtr artLayers = Get(document, om::kArtLayers).AsDispatch();
  const DispatchPtr layerSets = Get(document, om::kLayerSets).AsDispatch();
  EXPECT_EQ(Get(artLayers, om::kCount).AsI4(), 3);
  EXPECT_EQ(Get(layerSets, om::kCount).AsI4(), 1);
  EXPECT_EQ(Get(Item(artLayers, 1), om::kName).AsBstr(), L"Title");
  EXPECT_EQ(Get(Item(artLayers, 3), om::kId).AsI4(), 1);
  EXPECT_EQ(Get(Call(artLayers, om::kItem, {I4(2)}).AsDispatch(), om::kItemIndex).AsI4(), 2);
  EXPECT_EQ(test::FailureCode([&] { Item(artLayers, 0); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { Item(artLayers, 4); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { Call(artLayers, om::kItem, {Str(L"1")}); }), kDispETypeMismatch);
  const DispatchPtr group = Item(layerSets, 1);
  EXPECT_EQ(Get(group, om::kId).AsI4(), 5);
  const DispatchPtr inner = Get(group, om::kArtLayers).AsDispatch();
  EXPECT_EQ(Get(Item(inner, 1), om::kName).AsBstr(), L"Shadow");
  EXPECT_EQ(Get(Get(group, om::kLayerSets).AsDispatch(), om::kCount).AsI4(), 0);
  EXPECT_EQ(test::FailureCode([&] { Get(Item(artLayers, 1), om::kArtLayers); }), kDispENotFound);
}

TEST_F(ObjectModelTest, LayerPropertiesComeFromItsDescriptor) {
  const DispatchPtr shadow = Item(Get(Item(Get(Document(), om::kLayerSets).AsDispatch(), 1), om::kArtLayers).AsDispatch(), 1);
  EXPECT_EQ(Get(shadow, om::kBlendMode).AsI4(), 5);  // multiply
  EXPECT_NEAR(Get(shadow, om::kOpacity).AsR8(), 50.196, 0.001);  // 128 of 255
  EXPECT_EQ(Get(shadow, om::kFillOpacity).AsR8(), 100.0);
  EXPECT_TRUE(Get(shadow, om::kPixelsLocked).AsBool());
  EXPECT_FALSE(Get(shadow, om::kAllLocked).AsBool());
  const DispatchPtr title = Get(Document(), om::kActiveLayer).AsDispatch();
  EXPECT_EQ(Get(title, om::kName).AsBstr(), L"Title");
  const auto bounds = Get(title, om::kBounds).AsArray();
  ASSERT_EQ(bounds.size(), 4u);
  EXPECT_EQ(bounds[0].AsR8(), 40.0);
  EXPECT_EQ(bounds[3].AsR8(), 90.0);
}

TEST_F(ObjectModelTest, HistoryStates) {
  const DispatchPtr document = Document();
  const DispatchPtr states = Get(document, om::kHistoryStates).AsDispatch();
  EXPECT_EQ(Get(states, om::kCount).AsI4(), 3);
  const DispatchPtr active = Get(document, om::kActiveHistoryState).AsDispatch();
  EXPECT_EQ(Get(active, om::kName).AsBstr(), L"New Layer");
  EXPECT_EQ(Call(states, 0x70696478 /* index */, {Variant::Dispatch(active)}).AsI4(), 3);
  const DispatchPtr first = Call(states, om::kItem, {I4(1)}).AsDispatch();
  test::Put(document, om::kActiveHistoryState, Variant::Dispatch(first));
  EXPECT_EQ(Get(Get(document, om::kActiveHistoryState).AsDispatch(), om::kName).AsBstr(), L"Open");
  EXPECT_EQ(Get(Get(document, om::kActiveHistoryBrushSource).AsDispatch(), om::kName).AsBstr(), L"Open");
}

// Without a source, Photoshop's error is "No such element" in the language of its interface.
TEST_F(ObjectModelTest, NoHistoryBrushSourceIsNoSuchElement) {
  ps.state().documents[0].historyBrushSource = 0;
  try {
    Get(Document(), om::kActiveHistoryBrushSource);
    ADD_FAILURE() << "no error";
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.description(), L"没有这种元素");
  }
}

TEST_F(ObjectModelTest, ChannelsPathsAndFonts) {
  const DispatchPtr document = Document();
  const DispatchPtr channels = Get(document, om::kChannels).AsDispatch();
  EXPECT_EQ(Get(channels, om::kCount).AsI4(), 3);
  EXPECT_EQ(Get(Call(channels, om::kItem, {I4(3)}).AsDispatch(), om::kName).AsBstr(), L"Blue");
  EXPECT_EQ(Get(Get(document, om::kPathItems).AsDispatch(), om::kCount).AsI4(), 1);
  const DispatchPtr fonts = Get(c.app, da::kFonts).AsDispatch();
  EXPECT_EQ(Get(fonts, om::kCount).AsI4(), 3);
  EXPECT_EQ(Get(Call(fonts, om::kItem, {Variant::I2(2)}).AsDispatch(), om::kName).AsBstr(), L"MicrosoftYaHei");
}

// A colour read is a copy: only the put back changes the application's colour.
TEST_F(ObjectModelTest, ColoursGoThroughSolidColorAndRgbColor) {
  const DispatchPtr solid = Get(c.app, da::kForegroundColor).AsDispatch();
  const DispatchPtr rgb = Get(solid, om::kRgb).AsDispatch();
  EXPECT_EQ(Get(rgb, om::kHexValue).AsBstr(), L"0D00FF");  // 12.9, 0.2, 255.0 rounded
  test::Put(rgb, om::kHexValue, Str(L"a1b2c3"));
  EXPECT_EQ(Get(Get(Get(c.app, da::kForegroundColor).AsDispatch(), om::kRgb).AsDispatch(), om::kHexValue).AsBstr(),
            L"0D00FF");
  test::Put(solid, om::kRgb, Variant::Dispatch(rgb));
  test::Put(c.app, da::kBackgroundColor, Variant::Dispatch(solid));
  EXPECT_EQ(Get(Get(Get(c.app, da::kBackgroundColor).AsDispatch(), om::kRgb).AsDispatch(), om::kHexValue).AsBstr(),
            L"A1B2C3");
  EXPECT_EQ(test::FailureCode([&] { test::Put(rgb, om::kHexValue, Str(L"red")); }), kDispEException);
}

TEST_F(ObjectModelTest, NotifiersAddAndRemove) {
  EXPECT_FALSE(Get(c.app, da::kNotifiersEnabled).AsBool());
  test::Put(c.app, da::kNotifiersEnabled, Variant::Bool(true));
  const DispatchPtr notifiers = Get(c.app, da::kNotifiers).AsDispatch();
  Call(notifiers, om::kAdd, {Str(L"slct"), Str(L"C:\\n.jsx"), Str(L"")});
  Call(notifiers, om::kAdd, {Str(L"placedLayerEditContents"), Str(L"C:\\n.jsx"), Str(L"")});
  EXPECT_EQ(Get(notifiers, om::kCount).AsI4(), 2);
  EXPECT_EQ(ps.state().app.notifiers[1].event, L"placedLayerEditContents");
  Call(notifiers, om::kRemoveAll);
  EXPECT_EQ(Get(notifiers, om::kCount).AsI4(), 0);
  EXPECT_TRUE(ps.state().app.notifiersEnabled);
}

// Closing removes the document; an object that stood for it fails from then on.
TEST_F(ObjectModelTest, ClosedDocumentIsGone) {
  const DispatchPtr document = Document();
  const DispatchPtr layers = Get(document, om::kArtLayers).AsDispatch();
  Call(document, om::kClose, {I4(2)});
  EXPECT_EQ(Get(Get(c.app, da::kDocuments).AsDispatch(), om::kCount).AsI4(), 0);
  EXPECT_EQ(test::FailureCode([&] { Get(document, om::kName); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { Get(layers, om::kCount); }), kDispEException);
  EXPECT_EQ(test::FailureCode([&] { Get(c.app, da::kActiveDocument); }), kDispEException);
  ASSERT_FALSE(ps.Journal().empty());
  EXPECT_EQ(ps.Journal().back().member, "close");
  EXPECT_EQ(ps.Journal().back().detail, L"2");
}

TEST_F(ObjectModelTest, WrongKindOrArgumentsFailAsComDoes) {
  EXPECT_EQ(test::FailureCode([&] { Call(c.app, da::kVersion); }), kDispENotFound);  // a property, not a method
  EXPECT_EQ(test::FailureCode([&] { Get(c.app, 0x12345678); }), kDispENotFound);
  EXPECT_EQ(test::FailureCode([&] { Get(Document(), om::kName, {I4(1)}); }), kDispEBadParamCount);
  EXPECT_EQ(Get(c.app, da::kVersion).AsBstr(), L"20.0.4");
  EXPECT_TRUE(Get(c.app, da::kVisible).AsBool());
  EXPECT_EQ(Get(c.app, da::kPath).AsBstr(), L"C:\\Program Files\\Adobe\\Adobe Photoshop CC 2019\\");
}

}  // namespace
}  // namespace ostrel::sim
