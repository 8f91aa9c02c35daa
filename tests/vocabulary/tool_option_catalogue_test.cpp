// The tool option catalogue: invariants over all its rows, the exports against the rows, and the odd rows.
#include "vocabulary/tool_option_catalogue.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <string>

#include "ostrel/tool_options.h"
#include "table_test_support.h"
#include "vocabulary/tool_table.h"

namespace ostrel {
namespace {

constexpr int kFreeTransformOwner = 69;
constexpr int kShapeOwners[] = {47, 48, 59, 60, 61, 62, 63, 64};

TEST(ToolOptionCatalogue, OwnersAreToolsOfTheTableFreeTransformOrNone) {
  BuildToolTable();
  std::set<int> unowned;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    if (option.nOwner == -1) unowned.insert(option.nId);
    if (option.nOwner == -1 || option.nOwner == kFreeTransformOwner) continue;
    EXPECT_FALSE(ToolNameEN(option.nOwner).empty()) << "owner " << option.nOwner << " is no tool";
  }
  EXPECT_EQ(unowned, (std::set<int>{519, 520, 3050})) << "the aspect fields and option 3050";
}

// Kinds 31 to 44 are the shape fill and stroke run of the pen and shape tools, once each per tool: at the start
// of a block of 50 the geometry mode, then the run in the order of the kinds, but for five ids placed elsewhere.
TEST(ToolOptionCatalogue, PenAndShapeToolsHoldTheFillAndStrokeRunOnce) {
  const std::set<int> elsewhere = {2113, 2114, 2262, 2263, 2264};
  std::map<int, std::map<int, int>> idOfKind;  // owner -> kind -> id
  for (const ToolOption& option : ToolOptionCatalogue()) {
    if (option.nKind < 31 || option.nKind > 44) continue;
    EXPECT_TRUE(idOfKind[option.nOwner].emplace(option.nKind, option.nId).second) << option.nId;
  }
  EXPECT_EQ(idOfKind.size(), std::size(kShapeOwners));
  for (int owner : kShapeOwners) {
    SCOPED_TRACE(owner);
    ASSERT_EQ(idOfKind[owner].size(), 14u);
    const int start = idOfKind[owner][31] - 1;
    EXPECT_EQ(start % 50, 0);
    EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{start}), 1) << "geometry mode at the start";
    for (const auto& [kind, id] : idOfKind[owner]) {
      EXPECT_TRUE(id == start + kind - 30 || elsewhere.count(id)) << "kind " << kind;
    }
  }
}

// Kinds run from 0 to 45 and units are from four; one key means one field, so it has one unit wherever it
// stands ("radius" alone names three fields).
TEST(ToolOptionCatalogue, KindsUnitsAndKeys) {
  const std::set<std::wstring> units = {L"", L"像素", L"%", L"点"};
  std::set<int> kinds;
  std::map<std::wstring, std::wstring> unitOfKey;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    kinds.insert(option.nKind);
    EXPECT_EQ(units.count(option.szUnit), 1u);
    const std::wstring key = option.szKey;
    if (key.empty() || key == L"radius") continue;
    const auto [it, fresh] = unitOfKey.emplace(key, option.szUnit);
    EXPECT_EQ(it->second, option.szUnit) << "key " << ToUtf8(key);
  }
  EXPECT_EQ(kinds.size(), 46u);
  EXPECT_EQ(*kinds.begin(), 0);
  EXPECT_EQ(*kinds.rbegin(), 45);
}

// Every number gives its row's owner, kind, key and unit, or the defaults where it has no row. The fingerprint
// catches a changed letter or number, or rows that swapped places.
TEST(ToolOptionCatalogue, ExportsAnswerEveryRowAndDefaultsElsewhere) {
  EXPECT_EQ(test_support::RowsFingerprint(ToolOptionCatalogue(), &ToolOption::nId, &ToolOption::nOwner,
                                          &ToolOption::nKind, &ToolOption::szKey, &ToolOption::szUnit),
            0x7d7616d277506736ULL);
  std::map<int, const ToolOption*> byId;
  for (const ToolOption& option : ToolOptionCatalogue()) byId[option.nId] = &option;
  for (int n = -60; n <= 3200; ++n) {
    SCOPED_TRACE(n);
    const ToolOption* option = byId.count(n) ? byId[n] : nullptr;
    EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures{n}), option ? option->nOwner : -1);
    EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{n}), option ? option->nKind : -1);
    EXPECT_EQ(Ostrel_ToolFeaturesToStringID(static_cast<unsigned>(n)), option ? option->szKey : L"");
    EXPECT_EQ(Ostrel_GetToolFeaturesValueUnits(EnToolFeatures{n}), option ? option->szUnit : L"");
  }
  for (int n : {INT_MIN, INT_MAX}) {
    EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures{n}), -1);
    EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{n}), -1);
  }
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(UINT_MAX), L"");
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(0x80000000u + 51u), L"") << "no truncation to 31 bits";
}

TEST(ToolOptionCatalogue, OddRowsAndTheSetterThatDoesNothing) {
  EXPECT_EQ(FindToolOption(555), nullptr) << "block 550 jumps from 554 to 556";
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(53), L"AspV") << "53 and 55 are both a width";
  EXPECT_EQ(Ostrel_GetToolFeaturesValueUnits(EnToolFeatures{2904}), L"%") << "the rotation's unit as given";
  EXPECT_EQ(Ostrel_SetToolFeatures(EnToolFeatures{51}, 10), 1);
  EXPECT_EQ(Ostrel_SetToolFeatures(EnToolFeatures{-1}, 0), 1);
}

struct OptionCase {
  int id;
  int owner;
  int kind;
  const wchar_t* key;
  const wchar_t* unit;
};

// Options checked by value through the four lookups: the first and last ids, ids after a gap, ids outside their
// owner's block, and the odd keys and units.
constexpr OptionCase kOptions[] = {
    {0, 0, 0, L"AtSl", L""},                       // the first id
    {3, 0, 3, L"", L""},
    {50, 2, 3, L"selectionEnum", L""},             // after the gap 4-49
    {55, 2, 4, L"FxdW", L"像素"},                  // a width twice in a block under two keys
    {404, 9, 5, L"angle", L"%"},                   // an angle whose unit is %, as given
    {519, -1, 4, L"aspectWidth", L""},             // a key and a kind but no owner
    {556, 12, 2, L"", L""},                        // after 555, which is no option
    {1008, 23, 9, L"name", L""},
    {2113, 60, 43, L"", L""},                      // the rounded rectangle's, in the block of 46
    {2225, 48, 15, L"FrPT", L"像素"},
    {2264, 59, 44, L"", L""},                      // the rectangle's, in the block of 53
    {2465, 59, 4, L"strokeStyleLineWidth", L"像素"},  // after the gap 2462-2464
    {2513, 60, 4, L"strokeStyleLineWidth", L"像素"},  // two places earlier than in the other blocks
    {2800, 67, 4, L"angle", L"%"},                 // the zoom tool's, in the block where 66 would be
    {2904, 69, 4, L"", L"%"},                      // free transform, a rotation in %
    {3002, 58, 14, L"", L""},
    {3050, -1, 45, L"", L""},                      // the last id
};

TEST(ToolOptionCatalogue, OptionsByValue) {
  EXPECT_EQ(ToolOptionCatalogue().size(), 643u);
  for (const OptionCase& c : kOptions) {
    SCOPED_TRACE(c.id);
    const EnToolFeatures id{c.id};
    EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(id), c.owner);
    EXPECT_EQ(Ostrel_GetToolFeaturesType(id), c.kind);
    EXPECT_EQ(Ostrel_ToolFeaturesToStringID(static_cast<unsigned>(c.id)), c.key);
    EXPECT_EQ(Ostrel_GetToolFeaturesValueUnits(id), c.unit);
  }
}

}  // namespace
}  // namespace ostrel
