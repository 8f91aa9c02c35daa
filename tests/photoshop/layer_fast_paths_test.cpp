// The layer questions that the library answers with fewer calls, compared with the reference (the questions as
// first written, layer_reference.h) export by export: on every example scenario and on generated documents, for
// every index of the stack and beyond it, and with a failure at every call of the library's answer.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "frame/guard.h"
#include "generated_documents.h"
#include "layer_calls.h"
#include "layer_reference.h"
#include "../support/sanitized.h"
#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"
#include "platform/text.h"

namespace ostrel {
namespace {

std::string Show(int value) { return std::to_string(value); }
std::string Show(int result, const std::vector<int>& values) {
  std::ostringstream text;
  text << result << " [";
  for (int v : values) text << v << ' ';
  return text.str() + "]";
}

// One question, asked of the library and of the reference; failure is the library row's failure default.
struct Question {
  std::string what;
  std::function<std::string()> library;
  std::function<std::string()> reference;
  std::string failure;
};

// Every question of the faster paths about the connected document, over indexes from -1 to two past the top,
// the search bound, offsets both ways, and every name of the stack besides some that aren't there.
// With few, only some of them: the lowest and highest indexes, one between, and steps of -1 and 2.
std::vector<Question> QuestionsAbout(int top, const std::set<std::wstring>& names, bool few = false) {
  std::vector<Question> questions;
  const auto add = [&](std::string what, std::function<std::string()> library, std::function<std::string()> reference,
                       std::string failure) {
    questions.push_back({std::move(what), std::move(library), std::move(reference), std::move(failure)});
  };
  std::vector<int> indexes = {-1, 0, 998, 999, 1000};
  for (int i = 1; i <= top + 2; ++i) indexes.push_back(i);
  if (few) indexes = {-1, 1, 2, top / 2, top - 1, top, top + 1};
  for (int i : indexes) {
    const std::string at = "(" + std::to_string(i) + ")";
    add("Ostrel_GetLayerGroupHierarchy" + at, [i] { return Show(Ostrel_GetLayerGroupHierarchy(i)); },
        [i] { return Show(reference::GetLayerGroupHierarchy(i)); }, "-1");
    add("Ostrel_GetLayerGroup" + at, [i] { return Show(Ostrel_GetLayerGroup(i)); },
        [i] { return Show(reference::GetLayerGroup(i)); }, "-1");
    add("Ostrel_IsLayerVisible" + at, [i] { return Show(Ostrel_IsLayerVisible(i)); },
        [i] { return Show(reference::IsLayerVisible(i)); }, "0");
    for (int offset : few ? std::vector<int>{-1, 2} : std::vector<int>{-2, -1, 0, 1, 3}) {
      add("Ostrel_LayerIndexOffset(" + std::to_string(i) + ", " + std::to_string(offset) + ")",
          [i, offset] { return Show(Ostrel_LayerIndexOffset(i, offset)); },
          [i, offset] { return Show(reference::LayerIndexOffset(i, offset)); }, "-1");
    }
  }
  add("Ostrel_GetTopLayerIndex", [] { return Show(Ostrel_GetTopLayerIndex()); },
      [] { return Show(reference::GetTopLayerIndex()); }, "-1");
  std::set<std::wstring> asked = names;
  asked.insert({L"", L"nowhere", L"图层 1 "});
  if (few) asked = {names.empty() ? L"" : *names.begin(), names.empty() ? L"" : *names.rbegin(), L"nowhere"};
  for (const std::wstring& name : asked) {
    add("Ostrel_LayerNameToIndex(" + ToUtf8(name) + ")", [name] { return Show(Ostrel_LayerNameToIndex(name)); },
        [name] { return Show(reference::LayerNameToIndex(name)); }, "-1");
  }
  add("Ostrel_GetSelectLayerID",
      [] {
        std::vector<int> ids{7};
        const int result = Ostrel_GetSelectLayerID(ids);
        return Show(result, ids);
      },
      [] {
        std::vector<int> ids{7};
        const int result = reference::GetSelectLayerID(ids);
        return Show(result, ids);
      },
      "0 []");  // the failure default, the vector as the failure left it: emptied, nothing appended yet
  return questions;
}

struct Document {
  std::string name;
  sim::Scenario scenario;
};

std::vector<Document> Documents() {
  std::vector<Document> documents;
  for (const char* file : {"nested_groups.json", "layers_and_group.json", "only_130.json", "menus_zh.json"}) {
    documents.push_back({file, sim::LoadScenarioFile(test::ExamplesDir() / file)});
  }
  const uint32_t generated = test::kSanitized ? 4 : 12;
  for (uint32_t seed = 1; seed <= generated; ++seed) {
    const test::DocumentShape shape{.layers = 6 + static_cast<int>(seed % 4) * 2, .groups = 2 + static_cast<int>(seed % 3),
                                    .background = seed % 3 != 0, .seed = seed};
    documents.push_back({"generated seed " + std::to_string(seed),
                         sim::ParseScenario(test::GeneratedDocument(shape), test::ExamplesDir(), "generated.json")});
  }
  return documents;
}

class LayerFastPathsTest : public ::testing::Test {
 protected:
  void Connect(const sim::Scenario& scenario) {
    Ostrel_UnInit();
    m_platform.reset();
    m_photoshop = std::make_unique<sim::SimulatedPhotoshop>(scenario);
    m_platform = std::make_unique<ScopedPlatform>(Platform{.automation = m_photoshop.get()});
    ASSERT_EQ(Ostrel_Init(), 1);
  }
  void TearDown() override { Ostrel_UnInit(); }

  // The top index and the names of the connected document, as the reference reads them.
  std::pair<int, std::set<std::wstring>> Stack() {
    std::vector<tagLayerInfo> layers;
    reference::GetLayerInfo(layers);
    std::set<std::wstring> names;
    for (const tagLayerInfo& layer : layers) names.insert(layer.strName);
    return {reference::GetTopLayerIndex(), names};
  }

  std::unique_ptr<sim::SimulatedPhotoshop> m_photoshop;
  std::unique_ptr<ScopedPlatform> m_platform;
};

TEST_F(LayerFastPathsTest, EveryAnswerEqualsTheReferences) {
  for (const Document& document : Documents()) {
    SCOPED_TRACE(document.name);
    Connect(document.scenario);
    const auto [top, names] = Stack();
    for (const Question& question : QuestionsAbout(top, names)) {
      EXPECT_EQ(question.library(), question.reference()) << question.what;
    }
  }
}

TEST_F(LayerFastPathsTest, UnconnectedAnswersAreTheReferences) {
  Ostrel_UnInit();
  for (const Question& question : QuestionsAbout(3, {L"图层 1"})) {
    EXPECT_EQ(question.library(), question.reference()) << question.what;
  }
}

// With the n-th call of the library's answer failing, once or from then on: the failure default, the clean answer,
// or an answer built on an inner question's default (which the reference would give after the same failure), and
// no simulated object left behind.
TEST_F(LayerFastPathsTest, AFailureAtAnyCallGivesTheDefaultOrTheCleanAnswer) {
  std::vector<Document> documents = Documents();
  documents.resize(std::min<size_t>(documents.size(), 6));
  documents.erase(documents.begin() + 1, documents.begin() + 4);  // nested_groups.json and two generated ones
  for (const Document& document : documents) {
    SCOPED_TRACE(document.name);
    Connect(document.scenario);
    const auto [top, names] = Stack();
    for (const Question& question : QuestionsAbout(top, names, true)) {
      m_photoshop->ResetCalls();
      const int liveBefore = m_photoshop->LiveObjects();
      const std::string clean = question.library();
      const int64_t calls = m_photoshop->Calls();
      for (const sim::FaultMode mode : {sim::FaultMode::kTransient, sim::FaultMode::kPersistent}) {
        // Every call once (under a sanitizer some sixty-four spread over the answer); from then on, some sixteen
        // calls spread over the answer (each needs a fresh connection), the first and the last among them.
        const int64_t spread = mode == sim::FaultMode::kTransient ? (test::kSanitized ? 64 : calls) : 16;
        const int64_t stride = std::max<int64_t>(1, calls / spread);
        for (int64_t n = 1; n <= calls; n = (n < calls && n + stride > calls) ? calls : n + stride) {
          // A failure once leaves the connection as it was (the questions only read); one from then on needs a
          // fresh one for the next run.
          if (mode == sim::FaultMode::kPersistent) Connect(document.scenario);
          m_photoshop->FailCall(n, mode);
          const long long absorbedBefore = InnerFailuresAbsorbed();
          const std::string answer = question.library();
          const bool absorbed = InnerFailuresAbsorbed() != absorbedBefore;
          if (answer != question.failure && answer != clean && !absorbed) {
            ADD_FAILURE() << question.what << " with call " << n << (mode == sim::FaultMode::kTransient ? " once" : " on")
                          << " failing: " << answer << ", clean " << clean;
          }
          EXPECT_TRUE(m_photoshop->FaultFired()) << question.what << " call " << n;
          EXPECT_EQ(m_photoshop->LiveObjects(), liveBefore) << question.what << " call " << n;
        }
      }
      Connect(document.scenario);
    }
  }
}

// The calls that users feel: on a 200-layer document with 20 groups the enclosing group of the lowest layer inside a
// group takes at most three times the calls of the list itself (the reference takes hundreds of times more),
// and every question of the README's second calls table gives the reference's answer there.
TEST(LayerCallsTest, OnTwoHundredLayersTheGroupTakesAtMostThreeTimesTheListsCalls) {
  const test::LayerCallsDocument document(
      {.layers = 200, .groups = 20, .background = true, .seed = 7, .randomSelection = false});
  const auto& list = document.RowOf("Ostrel_GetLayerID");
  const auto& group = document.RowOf("Ostrel_GetLayerGroup");
  EXPECT_NE(group.libraryAnswer, "-1");  // the layer asked is inside a group
  EXPECT_LE(group.libraryCalls, 3 * list.libraryCalls);
  EXPECT_GT(group.referenceCalls, 100 * list.referenceCalls);
  for (const auto& row : document.Rows()) {
    EXPECT_EQ(row.libraryAnswer, row.referenceAnswer) << row.name;
    EXPECT_LE(row.libraryCalls, row.referenceCalls) << row.name;
    // The questions that need one number of each layer: a few times the list's calls.
    EXPECT_LE(row.libraryCalls, 3 * list.libraryCalls) << row.name;
  }
}

}  // namespace
}  // namespace ostrel
