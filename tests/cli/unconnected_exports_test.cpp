// Every callable export, run with its sample arguments (which must fit its signature) while the library isn't
// connected, makes no automation call: the connection is tested before anything reaches Photoshop.
#include <gtest/gtest.h>

#include "calls.h"
#include "ostrel/lifecycle.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace ostrel::cli {
namespace {

std::filesystem::path Scenario(const char* name) {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / name;
}

// Runs every export but Ostrel_Init once and gives the names of those that made automation calls.
std::vector<std::string> ExportsThatCalled(sim::SimulatedPhotoshop& photoshop) {
  std::vector<std::string> called;
  for (const CallEntry& entry : AllCalls()) {
    if (entry.name == "Ostrel_Init") continue;
    photoshop.ResetCalls();
    Json answer;
    std::string error;
    EXPECT_TRUE(entry.invoke(entry.sampleArgs, answer, error)) << entry.signature << ": " << error;  // samples fit
    if (photoshop.Calls() != 0) called.push_back(entry.name);
  }
  return called;
}

TEST(UnconnectedExportsTest, BeforeInitAndAfterUnInitNothingReachesPhotoshop) {
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

}  // namespace
}  // namespace ostrel::cli
