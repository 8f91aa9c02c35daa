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

int32_t Chars(const char* text) {
  return *TypeIds::CharIdToTypeId(FromUtf8(text));
}

// Over every row: a string twin names its char id's number (not a run-time number, not another char id's), and
// exactly one of a char id's twins comes back for it.
TEST(TypeIdsTest, StringTwinsNameTheirCharIdAndOneOfThemComesBack) {
  struct Row {
    const char* charId;
    const char* stringId;
  };
  constexpr Row kRows[] = {
#define OSTREL_SIM_TYPE_ID(charId, stringId, answer) {charId, stringId},
#include "simulator/type_ids.def"
#undef OSTREL_SIM_TYPE_ID
  };
  TypeIds ids;
  std::map<std::string, std::set<std::string>> twins;
  for (const Row& row : kRows) {
    twins[row.charId].insert(row.stringId);
    if (*row.stringId == '\0') continue;
    SCOPED_TRACE(row.stringId);
    EXPECT_EQ(ids.StringIdToTypeId(FromUtf8(row.stringId)), Chars(row.charId));
  }
  for (const auto& [charId, strings] : twins) {
    SCOPED_TRACE(charId);
    EXPECT_EQ(strings.count(ToUtf8(ids.TypeIdToStringId(Chars(charId.c_str())))), 1u);
  }
}

TEST(TypeIdsTest, ConflictsGiveWhatRealPhotoshopGives) {
  TypeIds ids;
  EXPECT_EQ(ids.TypeIdToStringId(ids.StringIdToTypeId(L"green")), L"grain");
  EXPECT_EQ(ids.TypeIdToStringId(CharId("Pnt ")), L"paint");
  EXPECT_EQ(ids.TypeIdToStringId(CharId("Intr")), L"interfaceIconFrameDimmed");
  EXPECT_EQ(ids.StringIdToTypeId(L"target"), CharId("null"));
  EXPECT_EQ(ids.TypeIdToStringId(CharId("null")), L"null");
  EXPECT_EQ(ids.TypeIdToStringId(CharId("Trgt")), L"targetEnum");
}

TEST(TypeIdsTest, CharIdsWithoutStringFormAndStringOnlyIds) {
  TypeIds ids;
  EXPECT_EQ(ids.TypeIdToStringId(CharId("MrqA")), L"");
  EXPECT_EQ(TypeIds::TypeIdToCharId(CharId("MrqA")), L"MrqA");
  EXPECT_EQ(ids.IdToName(CharId("MrqA")), L"$MrqA");
  EXPECT_EQ(ids.NameToId(L"$MrqA"), CharId("MrqA"));
  EXPECT_EQ(ids.NameToId(L"$Grn "), ids.NameToId(L"grain"));
  // A string-only id gets a run-time number below the char ids, the same each time, its own, named back.
  const int32_t bounds = ids.StringIdToTypeId(L"bounds");
  EXPECT_NE(bounds, ids.StringIdToTypeId(L"menuBarInfo"));
  EXPECT_EQ(ids.StringIdToTypeId(L"bounds"), bounds);
  EXPECT_GT(bounds, 0);
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
  std::ifstream in(std::filesystem::path(OSTREL_SOURCE_DIR) /
                   "tests/simulator/data/extendscript_runtime_ids_sample.json");
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

// Through the Application object: typeIDToCharID of a run-time id is empty, charIDToTypeID of a long text fails.
TEST(TypeIdsTest, ApplicationRefusesLongCharIds) {
  auto ps = test::FromText("{}");
  test::Connected c(ps);
  EXPECT_EQ(test::Call(c.app, test::da::kTypeIDToCharID, {test::I4(c.S(L"targetLayers"))}).AsBstr(), L"");
  EXPECT_EQ(c.Name(c.C(L"Grn ")), L"grain");
  EXPECT_EQ(test::FailureCode([&] { c.C(L"currentToolOptions"); }), kDispEException);
}

}  // namespace
}  // namespace ostrel::sim
