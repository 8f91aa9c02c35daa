// Type ids: char ids and their string twins name the same number, the string given back is Photoshop's, and
// string-only ids get run-time numbers of their own.
#include "simulator/type_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/text.h"
#include "sim_test_support.h"
#include "simulator/value_json.h"

namespace ostrel::sim {
namespace {

int32_t Chars(const char* text) {
  return *TypeIds::CharIdToTypeId(FromUtf8(text));
}

// ---- The collected id data --------------------------------------------------------------------------------

// The folder of the collected id data: beside the clone, in shared/ (CI has it there too).
std::filesystem::path IdDataDir() {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / ".." / "shared" / "realdata" / "ids";
}

std::vector<std::string> SplitTabs(const std::string& line) {
  std::vector<std::string> columns;
  size_t start = 0;
  for (size_t tab; (tab = line.find('\t', start)) != std::string::npos; start = tab + 1) {
    columns.push_back(line.substr(start, tab - start));
  }
  columns.push_back(line.substr(start));
  return columns;
}

// The rows of a table of the data folder. Comments start with "#", but so do char ids such as "#Pxl": a row is a
// line whose first column has four characters and that has more than one column.
std::vector<std::vector<std::string>> DataRows(const char* file) {
  std::ifstream in(IdDataDir() / file);
  EXPECT_TRUE(in) << "the id data is missing: " << (IdDataDir() / file).string();
  std::vector<std::vector<std::string>> rows;
  for (std::string line; std::getline(in, line);) {
    std::vector<std::string> columns = SplitTabs(line);
    if (columns.size() > 1 && columns[0].size() == 4) rows.push_back(std::move(columns));
  }
  return rows;
}

// What the data says about one char id.
struct CharIdFacts {
  std::set<std::string> stringIds;  // empty: the char id has no string id
  std::string observed;             // the string typeIDToStringID gives in real Photoshop, where observed
};

// Every char id of the data with its string ids, Camera Raw's own descriptor keys left out (they are no type ids
// of Photoshop's, and the simulator doesn't serve them).
std::map<std::string, CharIdFacts> CharIdData() {
  std::map<std::string, CharIdFacts> facts;
  for (const auto& row : DataRows("charid_stringid.tsv")) {
    if (row.size() < 3 || row[2] == "alchemist-cameraraw") continue;
    CharIdFacts& fact = facts[row[0]];
    if (!row[1].empty()) fact.stringIds.insert(row[1]);
  }
  for (const auto& row : DataRows("conflicts.tsv")) {
    if (row.size() > 3 && !row[3].empty() && row[3] != "?") facts[row[0]].observed = row[3];
  }
  return facts;
}

// Every pair of the data, both ways: each string id names its char id's number (not a run-time number, not
// another char id's); a char id gives back its one string id, the one real Photoshop was seen to give where it
// has several, one of its own otherwise, and "" where it has none.
TEST(TypeIdsDataTest, EveryPairNamesOneNumberBothWays) {
  const std::map<std::string, CharIdFacts> data = CharIdData();
  ASSERT_GT(data.size(), 1500u);
  TypeIds ids;
  size_t pairs = 0, observed = 0;
  for (const auto& [charId, fact] : data) {
    SCOPED_TRACE("'" + charId + "'");
    const int32_t id = Chars(charId.c_str());
    for (const std::string& stringId : fact.stringIds) {
      EXPECT_EQ(ids.StringIdToTypeId(FromUtf8(stringId)), id) << stringId;
      ++pairs;
    }
    const std::string back = ToUtf8(ids.TypeIdToStringId(id));
    if (!fact.observed.empty()) {
      EXPECT_EQ(back, fact.observed);
      ++observed;
    } else if (fact.stringIds.empty()) {
      EXPECT_EQ(back, "");
    } else {
      EXPECT_EQ(fact.stringIds.count(back), 1u) << back;
    }
    EXPECT_EQ(ToUtf8(TypeIds::TypeIdToCharId(id)), charId);
  }
  EXPECT_GT(pairs, 1800u);
  EXPECT_GE(observed, 12u);
}

// The table serves what the data holds and nothing else: every row of it is a pair of the data, and it has as many
// rows as the data has pairs (and char ids without a string id).
TEST(TypeIdsDataTest, TheTableHoldsThePairsOfTheDataAndNoOthers) {
  struct Row {
    const char* charId;
    const char* stringId;
  };
  constexpr Row kRows[] = {
#define OSTREL_SIM_TYPE_ID(charId, stringId, answer) {charId, stringId},
#include "simulator/type_ids.def"
#undef OSTREL_SIM_TYPE_ID
  };
  const std::map<std::string, CharIdFacts> data = CharIdData();
  size_t dataRows = 0;
  for (const auto& [charId, fact] : data) dataRows += std::max<size_t>(fact.stringIds.size(), 1);
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::string("'") + row.charId + "' " + row.stringId);
    const auto fact = data.find(row.charId);
    ASSERT_NE(fact, data.end());
    EXPECT_TRUE(*row.stringId == '\0' ? fact->second.stringIds.empty() : fact->second.stringIds.count(row.stringId));
  }
  EXPECT_EQ(std::size(kRows), dataRows);
}

// A string id without a char id gets a run-time number below the char ids, its own, with no char form, and the
// number names it back.
TEST(TypeIdsDataTest, StringIdsWithoutACharIdGetRunTimeNumbers) {
  std::ifstream in(IdDataDir() / "stringids_without_charid.txt");
  ASSERT_TRUE(in) << "the id data is missing: " << IdDataDir().string();
  TypeIds ids;
  std::set<int32_t> numbers;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    SCOPED_TRACE(line);
    const int32_t id = ids.StringIdToTypeId(FromUtf8(line));
    EXPECT_GT(id, 0);
    EXPECT_LT(id, kFirstCharId);
    EXPECT_TRUE(numbers.insert(id).second) << "a number of its own";
    EXPECT_EQ(ToUtf8(ids.TypeIdToStringId(id)), line);
    EXPECT_EQ(TypeIds::TypeIdToCharId(id), L"");
  }
  EXPECT_GT(numbers.size(), 3000u);
}

TEST(TypeIdsTest, CharIdsWithoutStringFormAndStringOnlyIds) {
  TypeIds ids;
  EXPECT_EQ(ids.TypeIdToStringId(CharId("MrqA")), L"");
  EXPECT_EQ(TypeIds::TypeIdToCharId(CharId("MrqA")), L"MrqA");
  EXPECT_EQ(ids.IdToName(CharId("MrqA")), L"$MrqA");
  EXPECT_EQ(ids.NameToId(L"$MrqA"), CharId("MrqA"));
  EXPECT_EQ(ids.NameToId(L"$Grn "), ids.NameToId(L"grain"));
  const int32_t bounds = ids.StringIdToTypeId(L"bounds");  // a run-time number, the same each time
  EXPECT_EQ(ids.StringIdToTypeId(L"bounds"), bounds);
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
