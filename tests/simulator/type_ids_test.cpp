// Type ids: char ids and their string twins name the same number, the string given back is Photoshop's, and
// string-only ids get run-time numbers of their own.
#include "simulator/type_ids.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>

#include "platform/text.h"
#include "sim_test_support.h"
#include "simulator/value_json.h"

namespace ostrel::sim {
namespace {

struct Row {
  const char* charId;
  const char* stringId;
  bool answer;
};
constexpr Row kRows[] = {
#define OSTREL_SIM_TYPE_ID(charId, stringId, answer) {charId, stringId, answer != 0},
#include "simulator/type_ids.def"
#undef OSTREL_SIM_TYPE_ID
};

int32_t Chars(const char* text) { return *TypeIds::CharIdToTypeId(FromUtf8(text)); }

// Would catch a string id that gets a run-time number although it has a char twin, or a twin of another char id.
TEST(TypeIdsTest, EveryStringTwinNamesItsCharId) {
  TypeIds ids;
  for (const Row& row : kRows) {
    if (*row.stringId == '\0') continue;
    SCOPED_TRACE(row.stringId);
    EXPECT_EQ(ids.StringIdToTypeId(FromUtf8(row.stringId)), Chars(row.charId));
  }
}

// Exactly one string comes back for each char id with string twins, and it is one of them.
TEST(TypeIdsTest, EachCharIdGivesBackOneOfItsTwins) {
  TypeIds ids;
  std::map<std::string, std::set<std::string>> twins;
  for (const Row& row : kRows) twins[row.charId].insert(row.stringId);
  for (const auto& [charId, strings] : twins) {
    SCOPED_TRACE(charId);
    const std::string back = ToUtf8(ids.TypeIdToStringId(Chars(charId.c_str())));
    EXPECT_EQ(strings.count(back), 1u);
  }
}

TEST(TypeIdsTest, ConflictsGiveWhatRealPhotoshopGives) {
  TypeIds ids;
  EXPECT_EQ(ids.TypeIdToStringId(ids.StringIdToTypeId(L"green")), L"grain");
  EXPECT_EQ(ids.TypeIdToStringId(CharId("Pnt ")), L"paint");
  EXPECT_EQ(ids.TypeIdToStringId(CharId("Intr")), L"interfaceIconFrameDimmed");
  EXPECT_EQ(ids.StringIdToTypeId(L"target"), CharId("null"));
  EXPECT_EQ(ids.TypeIdToStringId(CharId("null")), L"null");
  EXPECT_NE(ids.StringIdToTypeId(L"target"), CharId("Trgt"));
  EXPECT_EQ(ids.TypeIdToStringId(CharId("Trgt")), L"targetEnum");
}

TEST(TypeIdsTest, CharIdsWithoutStringFormGiveEmptyString) {
  TypeIds ids;
  EXPECT_EQ(ids.TypeIdToStringId(CharId("MrqA")), L"");
  EXPECT_EQ(TypeIds::TypeIdToCharId(CharId("MrqA")), L"MrqA");
  EXPECT_EQ(ids.IdToName(CharId("MrqA")), L"$MrqA");
  EXPECT_EQ(ids.NameToId(L"$MrqA"), CharId("MrqA"));
  EXPECT_EQ(ids.NameToId(L"$Grn "), ids.NameToId(L"grain"));
}

TEST(TypeIdsTest, StringOnlyIdsGetStableRuntimeNumbers) {
  TypeIds ids;
  const int32_t bounds = ids.StringIdToTypeId(L"bounds");
  const int32_t menuBarInfo = ids.StringIdToTypeId(L"menuBarInfo");
  EXPECT_NE(bounds, menuBarInfo);
  EXPECT_EQ(ids.StringIdToTypeId(L"bounds"), bounds);
  EXPECT_GT(bounds, 0);
  EXPECT_LT(bounds, kFirstCharId);
  EXPECT_EQ(ids.TypeIdToStringId(bounds), L"bounds");
  EXPECT_EQ(TypeIds::TypeIdToCharId(bounds), L"");
}

TEST(TypeIdsTest, OnlyFourCharactersMakeACharId) {
  EXPECT_EQ(TypeIds::CharIdToTypeId(L"Nm  "), 0x4E6D2020);
  EXPECT_EQ(TypeIds::CharIdToTypeId(L"    "), kFirstCharId);
  for (const wchar_t* bad : {L"", L"Lyr", L"Lyr  ", L"layerID", L"图层名字"}) {
    SCOPED_TRACE(ToUtf8(bad));
    EXPECT_FALSE(TypeIds::CharIdToTypeId(bad).has_value());
  }
}

// The numbers that one real Photoshop gave for the keys of a layer.
TEST(TypeIdsTest, AgreesWithRealPhotoshopNumbers) {
  std::ifstream in(test::DataDir() / "extendscript_runtime_ids_sample.json");
  const Json sample = Json::parse(in);
  TypeIds ids;
  int checked = 0;
  for (const Json& entry : sample["entries"]) {
    const std::wstring charId = FromUtf8(entry["charID"].get<std::string>());
    const std::wstring stringId = FromUtf8(entry["stringID"].get<std::string>());
    SCOPED_TRACE(entry["stringID"].get<std::string>());
    if (charId.empty()) {
      EXPECT_LT(ids.StringIdToTypeId(stringId), kFirstCharId);  // a run-time id in real Photoshop too
      continue;
    }
    const int32_t real = entry["id"].get<int32_t>();
    EXPECT_EQ(TypeIds::CharIdToTypeId(charId), real);
    EXPECT_EQ(ids.StringIdToTypeId(stringId), real);
    EXPECT_EQ(ids.TypeIdToStringId(real), stringId);
    ++checked;
  }
  EXPECT_GT(checked, 5);
}

// The same through the Application object: charIDToTypeID of a long text fails there.
TEST(TypeIdsTest, ApplicationConvertsAndRefusesLongCharIds) {
  auto ps = test::FromText("{}");
  test::Connected c(ps);
  EXPECT_EQ(c.S(L"layer"), c.C(L"Lyr "));
  EXPECT_EQ(c.S(L"ordinal"), c.C(L"Ordn"));
  EXPECT_EQ(c.Name(c.C(L"Grn ")), L"grain");
  EXPECT_EQ(test::Call(c.app, dispid::app::kTypeIDToCharID, {test::I4(c.S(L"targetLayers"))}).AsBstr(), L"");
  EXPECT_EQ(test::FailureCode([&] { c.C(L"currentToolOptions"); }), kDispEException);
}

}  // namespace
}  // namespace ostrel::sim
