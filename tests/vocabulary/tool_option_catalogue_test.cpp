// The tool option catalogue: invariants over all its rows, the exports against the rows, and the odd rows.
#include "vocabulary/tool_option_catalogue.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <string>

#include "ostrel/tool_options.h"
#include "platform/text.h"
#include "vocabulary/tool_table.h"

namespace ostrel {
namespace {

constexpr int kFreeTransformOwner = 69;
constexpr int kShapeOwners[] = {47, 48, 59, 60, 61, 62, 63, 64};

// Ids that lie outside the block of 50 of their owner.
const std::set<int> kIdsOutsideTheirBlock = {2113, 2114, 2262, 2263, 2264, 2800, 2801, 2802};

// The block of 50 that holds most of an owner's ids.
std::map<int, int> HomeBlocks() {
  std::map<int, std::map<int, int>> counts;  // owner -> block -> ids
  for (const ToolOption& option : ToolOptionCatalogue()) ++counts[option.nOwner][option.nId / 50];
  std::map<int, int> home;
  for (const auto& [owner, blocks] : counts) {
    int best = -1;
    for (const auto& [block, count] : blocks) {
      if (best < 0 || count > blocks.at(best)) best = block;
    }
    home[owner] = best;
  }
  return home;
}

TEST(ToolOptionCatalogue, EveryOwnerIsAToolOfTheTableOrFreeTransform) {
  BuildToolTable();
  std::set<int> owners;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    owners.insert(option.nOwner);
    if (option.nOwner == -1 || option.nOwner == kFreeTransformOwner) continue;
    EXPECT_FALSE(ToolNameEN(option.nOwner).empty()) << "owner " << option.nOwner << " is no tool";
  }
  // The tools without options are exactly those that own nothing.
  const std::set<int> withoutOptions = {1, 15, 17, 40, 49, 50, 51, 52, 66, 68, 70, 71, 72};
  for (const tagToolInfo& tool : ToolTable()) {
    if (tool.nIndex < 0) continue;
    SCOPED_TRACE(tool.nIndex);
    EXPECT_NE(owners.count(tool.nIndex), withoutOptions.count(tool.nIndex));
  }
}

TEST(ToolOptionCatalogue, OnlyTheAspectFieldsAndOption3050HaveNoOwner) {
  std::set<int> unowned;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    if (option.nOwner == -1) unowned.insert(option.nId);
  }
  EXPECT_EQ(unowned, (std::set<int>{519, 520, 3050}));
}

// Catches an owner or an id transposed between two blocks.
TEST(ToolOptionCatalogue, IdsLieInTheirOwnersBlockOfFifty) {
  const std::map<int, int> home = HomeBlocks();
  for (const ToolOption& option : ToolOptionCatalogue()) {
    if (option.nOwner == -1) continue;
    SCOPED_TRACE(option.nId);
    EXPECT_EQ(option.nId / 50 != home.at(option.nOwner), kIdsOutsideTheirBlock.count(option.nId) == 1);
  }
  // Blocks follow the tool numbers, but for the late blocks of 57, 58 and free transform.
  int lastBlock = -1;
  std::set<int> blocks;
  for (const auto& [owner, block] : home) {
    if (owner == -1) continue;
    EXPECT_TRUE(blocks.insert(block).second) << "two owners share the block " << block;
    if (owner == 57 || owner == 58 || owner == kFreeTransformOwner) continue;
    EXPECT_GT(block, lastBlock) << "owner " << owner;
    lastBlock = block;
  }
  EXPECT_EQ(home.at(57), 2950 / 50);
  EXPECT_EQ(home.at(58), 3000 / 50);
  EXPECT_EQ(home.at(kFreeTransformOwner), 2900 / 50);
}

// Kinds 31 to 44 are the shape fill and stroke run of the pen and shape tools, once each per tool.
TEST(ToolOptionCatalogue, PenAndShapeToolsHoldTheFillAndStrokeRunOnce) {
  std::map<int, std::map<int, int>> idOfKind;  // owner -> kind -> id
  for (const ToolOption& option : ToolOptionCatalogue()) {
    if (option.nKind < 31 || option.nKind > 44) continue;
    SCOPED_TRACE(option.nId);
    EXPECT_TRUE(idOfKind[option.nOwner].emplace(option.nKind, option.nId).second);
  }
  EXPECT_EQ(idOfKind.size(), std::size(kShapeOwners));
  const std::map<int, int> home = HomeBlocks();
  for (int owner : kShapeOwners) {
    SCOPED_TRACE(owner);
    ASSERT_EQ(idOfKind[owner].size(), 14u);
    for (const auto& [kind, id] : idOfKind[owner]) {
      if (kIdsOutsideTheirBlock.count(id)) continue;
      EXPECT_EQ(id, home.at(owner) * 50 + kind - 30) << "kind " << kind;
    }
    EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{home.at(owner) * 50}), 1) << "geometry mode at the start";
  }
  EXPECT_EQ(idOfKind[59][42], 2262);
  EXPECT_EQ(idOfKind[60][43], 2113);
}

TEST(ToolOptionCatalogue, KindsRunFromZeroTo45AndUnitsAreFromTheFourUnits) {
  const std::set<std::wstring> units = {L"", L"像素", L"%", L"点"};
  std::set<int> kinds;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    kinds.insert(option.nKind);
    EXPECT_EQ(units.count(option.szUnit), 1u);
  }
  EXPECT_EQ(kinds.size(), 46u);
  EXPECT_EQ(*kinds.begin(), 0);
  EXPECT_EQ(*kinds.rbegin(), 45);
}

// One key means one field, so it has one unit wherever it stands; "radius" alone names three fields.
TEST(ToolOptionCatalogue, AKeySharedByOptionsHasOneUnit) {
  std::map<std::wstring, std::wstring> unitOfKey;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    const std::wstring key = option.szKey;
    if (key.empty() || key == L"radius") continue;
    SCOPED_TRACE(option.nId);
    const auto [it, fresh] = unitOfKey.emplace(key, option.szUnit);
    EXPECT_EQ(it->second, option.szUnit) << "key " << ToUtf8(key);
  }
  EXPECT_EQ(unitOfKey.at(L"diameter"), L"像素");
  EXPECT_EQ(unitOfKey.at(L"size"), L"点");
  EXPECT_EQ(unitOfKey.at(L"opacity"), L"%");
}

TEST(ToolOptionCatalogue, ExportsAnswerEveryRow) {
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    const EnToolFeatures id{option.nId};
    EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(id), option.nOwner);
    EXPECT_EQ(Ostrel_GetToolFeaturesType(id), option.nKind);
    EXPECT_EQ(Ostrel_ToolFeaturesToStringID(static_cast<unsigned>(option.nId)), option.szKey);
    EXPECT_EQ(Ostrel_GetToolFeaturesValueUnits(id), option.szUnit);
  }
}

TEST(ToolOptionCatalogue, NumbersThatAreNoOptionGiveTheDefaults) {
  std::set<int> ids;
  for (const ToolOption& option : ToolOptionCatalogue()) ids.insert(option.nId);
  int misses = 0;
  for (int n = -60; n <= 3200; ++n) {
    if (ids.count(n)) continue;
    SCOPED_TRACE(n);
    ++misses;
    EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures{n}), -1);
    EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{n}), -1);
    EXPECT_EQ(Ostrel_ToolFeaturesToStringID(static_cast<unsigned>(n)), L"");
    EXPECT_EQ(Ostrel_GetToolFeaturesValueUnits(EnToolFeatures{n}), L"");
  }
  EXPECT_EQ(misses, 3261 - 643);
  for (int n : {INT_MIN, INT_MAX}) {
    EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures{n}), -1);
    EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{n}), -1);
  }
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(UINT_MAX), L"");
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(0x80000000u + 51u), L"") << "no truncation to 31 bits";
}

TEST(ToolOptionCatalogue, OddRows) {
  EXPECT_EQ(FindToolOption(555), nullptr) << "block 550 jumps from 554 to 556";
  EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{519}), 4);
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(520), L"aspectHeight");
  EXPECT_EQ(Ostrel_GetToolFeaturesType(EnToolFeatures{3050}), 45);
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(3050), L"");
  EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures{2800}), 67);
  EXPECT_EQ(Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures{2906}), kFreeTransformOwner);
  EXPECT_EQ(Ostrel_GetToolFeaturesValueUnits(EnToolFeatures{2904}), L"%") << "the rotation's unit as given";
  EXPECT_EQ(Ostrel_GetToolFeaturesValueUnits(EnToolFeatures{2900}), L"像素") << "a unit without a key";
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(2513), L"strokeStyleLineWidth");
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(53), L"AspV") << "53 and 55 are both a width";
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(55), L"FxdW");
  EXPECT_EQ(Ostrel_ToolFeaturesToStringID(2174), L"MspT") << "case of a char id kept";
  EXPECT_EQ(Ostrel_SetToolFeatures(EnToolFeatures{51}, 10), 1);
  EXPECT_EQ(Ostrel_SetToolFeatures(EnToolFeatures{-1}, 0), 1);
}

}  // namespace
}  // namespace ostrel
