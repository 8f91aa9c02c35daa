// The read and command shapes against the simulated Photoshop: reference forms, the background offset that a
// caller applies, walkers and commands with dialog mode 3.
#include "photoshop/action_manager.h"

#include <gtest/gtest.h>

#include "ostrel/lifecycle.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

std::filesystem::path Scenario(const char* name) {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / name;
}

class ActionManagerTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(Ostrel_Init(), 1); }
  void TearDown() override {
    Ostrel_UnInit();
    EXPECT_EQ(m_photoshop.LiveObjects(), 0);
  }

  sim::SimulatedPhotoshop m_photoshop = sim::SimulatedPhotoshop::FromFile(Scenario("layers_and_group.json"));
  ScopedPlatform m_platform{Platform{.automation = &m_photoshop}};
};

TEST_F(ActionManagerTest, LayerReadsByEveryForm) {
  using namespace am;
  EXPECT_EQ(GetString(ReadCurrentLayer(), StringId(L"name")), L"Title");
  EXPECT_EQ(GetString(ReadLayerById(4, L"name"), StringId(L"name")), L"Shadow");
  // The background is putIndex place 0 and reads 1 through getInteger.
  EXPECT_EQ(GetInteger(ReadLayerByIndex(0), StringId(L"background")), 1);
  // A layer's itemIndex is one above its putIndex place when the document has a background.
  const int32_t itemIndex = GetInteger(ReadLayerById(4, L"itemIndex"), StringId(L"itemIndex"));
  EXPECT_EQ(GetString(ReadLayerByIndex(itemIndex - 1, L"name"), StringId(L"name")), L"Shadow");
  EXPECT_TRUE(GetBoolean(ReadCurrentDocument(L"hasBackgroundLayer"), StringId(L"hasBackgroundLayer")));
  EXPECT_THROW(ReadLayerById(999), AutomationError);
}

TEST_F(ActionManagerTest, TypeIdsAreAskedAndNamedStringFirst) {
  using namespace am;
  EXPECT_EQ(StringId(L"layer"), CharId(L"Lyr "));
  EXPECT_EQ(TypeIdFromName(L"layerID"), CharId(L"LyrI"));  // not four characters: its string form is asked
  EXPECT_EQ(TypeIdFromName(L"Lyr "), StringId(L"layer"));
  EXPECT_EQ(NameOfTypeId(CharId(L"Lyr ")), L"layer");
  EXPECT_EQ(NameOfTypeId(CharId(L"MrqA")), L"MrqA");  // no string form: the char form
  EXPECT_EQ(NameOfTypeId(CharId(L"Grn ")), L"grain");
}

TEST_F(ActionManagerTest, WalkersCountFromOneAndFromZero) {
  using namespace am;
  std::vector<std::wstring> names;
  ForEachItem(Wrap(ActiveDocument().Get(dispid::obj::kArtLayers)), VarType::kI2,
              [&](const COleDispatchDriver& layer, int32_t) { names.push_back(layer.Get(dispid::obj::kName).AsBstr()); });
  EXPECT_FALSE(names.empty());
  EXPECT_EQ(names.front(), L"Title");

  const COleDispatchDriver app = ReadApplication();
  int32_t keys = 0;
  ForEachPosition(app, [&](int32_t position) {
    EXPECT_FALSE(NameOfTypeId(GetKey(app, position)).empty());
    ++keys;
  });
  EXPECT_EQ(keys, Count(app));
}

TEST_F(ActionManagerTest, CommandsCarryDialogModeThree) {
  m_photoshop.ClearJournal();
  am::MenuCommand(L"toggleRulers");
  ASSERT_EQ(m_photoshop.Journal().size(), 1u);
  const sim::JournalEntry& entry = m_photoshop.Journal().back();
  EXPECT_EQ(entry.event, L"select");
  EXPECT_EQ(entry.dialogMode, 3);
  EXPECT_NE(entry.descriptor.find("toggleRulers"), std::string::npos);
}

}  // namespace
}  // namespace ostrel
