// The library used from several threads at once, as a lesson player does: a timer polls Ostrel_IsServiceIdle while
// the UI thread parses lines, looks words up and reads Photoshop, and Ostrel_Init and Ostrel_UnInit come and go.
// Under ThreadSanitizer (./dev test --tsan) a data race here fails the run; everywhere the answers must stay right.
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "frame/connection.h"
#include "frame/guard.h"
#include "ostrel/OstrelCore.h"
#include "photoshop/action_manager.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

constexpr int kRounds = 150;

std::filesystem::path Scenario(const char* name) {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / name;
}

// A read of the current layer's name through the Action Manager, at the boundary every Photoshop export uses.
std::wstring CurrentLayerName() {
  return GuardedPhotoshop<std::wstring>(
      [] {
        const COleDispatchDriver layer = am::ReadCurrentLayer(L"name");
        return am::GetString(layer, am::StringId(L"name"));
      },
      []() noexcept { return std::wstring(); }, []() noexcept { return std::wstring(); });
}

// What each kind of worker counts as wrong; every counter must stay 0.
struct Failures {
  std::atomic<int> lookups{0}, parses{0}, idles{0}, reads{0};
};

void LookUp(Failures& failures) {
  for (int i = 0; i < kRounds; ++i) {
    tagTopMenuInfo info;
    if (Ostrel_ToolIndexToNameCN(EnToolIndex{72}) != L"对象选择工具" ||
        Ostrel_ToolNameENToIndex(L"RefineEdgeTool") != EnToolIndex{70} ||
        Ostrel_TopMenuIndexToName(EnTopMenuIndex{0}, info) != 1 || info.strMenu1.empty() ||
        Ostrel_LayerFilterNameToIndex(Ostrel_LayerFilterIndexToName(EnLayerFilter{0})) != EnLayerFilter{0}) {
      ++failures.lookups;
    }
  }
}

void Parse(Failures& failures) {
  for (int i = 0; i < kRounds; ++i) {
    tagVantoScript script;
    if (Ostrel_ParseScript(std::wstring(L"TOOL,72"), script) != 1 || script.strDetail != L"选择工具：对象选择工具") {
      ++failures.parses;
    }
  }
}

// Connected or not at this moment, the idle check answers 0 or 1 and never anything else.
void PollIdle(Failures& failures) {
  for (int i = 0; i < kRounds; ++i) {
    const int idle = Ostrel_IsServiceIdle();
    if (idle != 0 && idle != 1) ++failures.idles;
  }
}

// Connected, the read gives the active layer's name; unconnected, the empty string. Nothing else.
void ReadLayer(Failures& failures, const std::wstring& activeLayer) {
  for (int i = 0; i < kRounds; ++i) {
    const std::wstring name = CurrentLayerName();
    if (!name.empty() && name != activeLayer) ++failures.reads;
  }
}

void ConnectAndRelease() {
  for (int i = 0; i < kRounds / 10; ++i) {
    Ostrel_Init();
    std::this_thread::yield();
    Ostrel_UnInit();
  }
}

TEST(ThreadsTest, LookupsParsesIdleChecksReadsAndReconnectsRunTogether) {
  sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(Scenario("layers_and_group.json"));
  ScopedPlatform platform(Platform{.automation = &photoshop});
  ASSERT_EQ(Ostrel_Init(), 1);
  const std::wstring activeLayer = CurrentLayerName();
  ASSERT_FALSE(activeLayer.empty());

  Failures failures;
  std::vector<std::thread> threads;
  threads.emplace_back(LookUp, std::ref(failures));
  threads.emplace_back(Parse, std::ref(failures));
  threads.emplace_back(PollIdle, std::ref(failures));
  threads.emplace_back(PollIdle, std::ref(failures));
  threads.emplace_back(ReadLayer, std::ref(failures), std::cref(activeLayer));
  threads.emplace_back(ConnectAndRelease);
  threads.emplace_back(ConnectAndRelease);
  for (std::thread& thread : threads) thread.join();

  EXPECT_EQ(failures.lookups, 0);
  EXPECT_EQ(failures.parses, 0);
  EXPECT_EQ(failures.idles, 0);
  EXPECT_EQ(failures.reads, 0);
  Ostrel_UnInit();
  EXPECT_EQ(photoshop.LiveObjects(), 0);  // every object of every read and connection was let go
}

// Two threads running the first Ostrel_Init at once build each table exactly once, and a lookup that started
// before sees either nothing or the whole table, never a half-built one.
TEST(ThreadsTest, TablesBuiltByConcurrentInitsAreWholeAndSingle) {
  std::atomic<bool> sawPartial{false};
  std::thread reader([&] {
    for (int i = 0; i < kRounds; ++i) {
      const std::wstring name = Ostrel_ToolIndexToNameCN(EnToolIndex{72});
      if (!name.empty() && name != L"对象选择工具") sawPartial = true;
    }
  });
  std::thread first([] { Ostrel_Init(); });
  std::thread second([] { Ostrel_Init(); });
  first.join();
  second.join();
  reader.join();
  EXPECT_FALSE(sawPartial);
  EXPECT_EQ(Ostrel_ToolNameENToIndex(L"RefineEdgeTool"), EnToolIndex{70});
  Ostrel_UnInit();
}

}  // namespace
}  // namespace ostrel
