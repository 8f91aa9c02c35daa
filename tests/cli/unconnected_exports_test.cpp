// Every export, run with its sample arguments (which must fit its signature) while the library isn't connected,
// makes no automation call, and every export that talks to Photoshop gives the unconnected answer of its row in
// the export table. The rows come from the table itself, so a new export is checked as soon as it has its row.
#include <gtest/gtest.h>

#include <string>

#include "calls.h"
#include "ostrel/OstrelCore.h"
#include "photoshop_rows.h"
#include "platform/platform.h"
#include "platform/portable/recorded_windows.h"
#include "platform/text.h"
#include "simulator/photoshop.h"

namespace ostrel::cli {
namespace {

std::filesystem::path Scenario(const char* name) {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / name;
}

// Runs every export but Ostrel_Init once; gives the names of those that made automation calls, and checks the
// answer of each Photoshop export.
std::vector<std::string> ExportsThatCalled(sim::SimulatedPhotoshop& photoshop) {
  std::vector<std::string> called;
  for (const CallEntry& entry : AllCalls()) {
    if (entry.name == "Ostrel_Init") continue;
    SCOPED_TRACE(entry.signature);
    photoshop.ResetCalls();
    Json answer;
    std::string error;
    EXPECT_TRUE(entry.invoke(entry.sampleArgs, answer, error)) << error;  // the samples fit
    if (photoshop.Calls() != 0) called.push_back(entry.name);
    const auto unconnected = UnconnectedAnswers().find(entry.name);
    if (entry.talksToPhotoshop && unconnected != UnconnectedAnswers().end()) {
      EXPECT_EQ(RenderJson(answer["result"]), unconnected->second) << RenderJson(answer);
    }
  }
  return called;
}

TEST(UnconnectedExportsTest, BeforeInitAndAfterUnInitNothingReachesPhotoshop) {
  ASSERT_FALSE(UnconnectedAnswers().empty());
  sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(Scenario("layers_and_group.json"));
  ScopedPlatform platform(Platform{.automation = &photoshop});
  Ostrel_UnInit();
  EXPECT_EQ(ExportsThatCalled(photoshop), std::vector<std::string>{});
  EXPECT_TRUE(photoshop.Journal().empty());
  ASSERT_EQ(Ostrel_Init(), 1);
  Ostrel_UnInit();
  EXPECT_EQ(photoshop.LiveObjects(), 0);  // nothing is left alive either
  EXPECT_EQ(ExportsThatCalled(photoshop), std::vector<std::string>{});
}

// Connected, the same Photoshop exports do reach Photoshop: the unconnected answer above is not simply what they
// always give. The windows are those of a document with the rulers off, which Ostrel_SetRulers switches on (with
// no canvas it has nothing to ask Photoshop).
TEST(UnconnectedExportsTest, ConnectedThePhotoshopExportsCallPhotoshop) {
  sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(Scenario("layers_and_group.json"));
  WindowTreeLoad windowTree =
      LoadWindowTree(std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "windows" / "rulers_off.json");
  ASSERT_TRUE(windowTree.tree) << windowTree.error;
  RecordedWindows windows(std::move(*windowTree.tree));
  ScopedPlatform platform(Platform{.automation = &photoshop, .windows = &windows, .screen = &windows});
  ASSERT_EQ(Ostrel_Init(), 1);
  for (const CallEntry& entry : AllCalls()) {
    if (!entry.talksToPhotoshop) continue;
    SCOPED_TRACE(entry.signature);
    photoshop.ResetCalls();
    Json answer;
    std::string error;
    EXPECT_TRUE(entry.invoke(entry.sampleArgs, answer, error)) << error;
    EXPECT_GT(photoshop.Calls(), 0);
  }
  Ostrel_UnInit();
}

TEST(ParameterNamesTest, NamesComeFromTheTablesParameterLists) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"()", {}},
      {"(int key, const wchar_t* value)", {"key", "value"}},
      {"(std::wstring line, std::vector<std::wstring>& items)", {"line", "items"}},
      {"(std::vector<std::wstring> items, tagVantoScript& script)", {"items", "script"}},
      {"(EnAdjustLayer nAdjust, int nValue)", {"nAdjust", "nValue"}},
  };
  for (const auto& [list, names] : cases) EXPECT_EQ(ParameterNames(list), names) << list;
}

}  // namespace
}  // namespace ostrel::cli
