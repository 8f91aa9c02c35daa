#include "layer_calls.h"

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "layer_reference.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "simulator/photoshop.h"
#include "simulator/scenario.h"

namespace ostrel::test {
namespace {

// The calls of one question against a fresh Photoshop of the scenario, Ostrel_Init's not counted; Create is no
// Invoke and isn't counted either.
int64_t CountCalls(const sim::Scenario& scenario, const std::function<std::string()>& ask, std::string& answer) {
  sim::SimulatedPhotoshop photoshop(scenario);
  const ScopedPlatform platform(Platform{.automation = &photoshop});
  if (Ostrel_Init() != 1) throw std::runtime_error("no connection to the generated document");
  photoshop.ResetCalls();
  answer = ask();
  const int64_t calls = photoshop.Calls() - photoshop.Calls("Create");
  Ostrel_UnInit();
  return calls;
}

std::string Ids(int result, const std::vector<int>& ids) {
  std::string text = std::to_string(result) + ":";
  for (int id : ids) text += " " + std::to_string(id);
  return text;
}

}  // namespace

LayerCallsDocument::LayerCallsDocument(const DocumentShape& shape) {
  const sim::Scenario scenario =
      sim::ParseScenario(GeneratedDocument(shape), std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop",
                         "generated.json");
  // The arguments, from the document as the reference reads it.
  std::vector<tagLayerInfo> layers;
  std::string unused;
  int nested = -1;
  std::wstring lastName;
  CountCalls(scenario, [&] {
    reference::GetLayerInfo(layers);
    return std::string();
  }, unused);
  for (const tagLayerInfo& layer : layers) {
    if (layer.nHierarchy >= 1 && !layer.bGroup && (nested == -1 || layer.nIndex < nested)) nested = layer.nIndex;
  }
  if (!layers.empty()) lastName = layers.back().strName;
  const int id = layers.empty() ? -1 : layers.back().nID;

  struct Question {
    std::string name, arguments;
    std::function<std::string()> library, reference;
  };
  const auto n = [](int v) { return std::to_string(v); };
  const std::vector<Question> questions = {
      {"Ostrel_GetLayerID", "", [&] { std::vector<tagLayerInfo> l; return n(Ostrel_GetLayerID(l)) + ":" + n(static_cast<int>(l.size())); },
       [&] { std::vector<tagLayerInfo> l; return n(reference::GetLayerID(l)) + ":" + n(static_cast<int>(l.size())); }},
      {"Ostrel_LayerIDToIndex", n(id), [&] { return n(Ostrel_LayerIDToIndex(id)); }, [&] { return n(reference::LayerIDToIndex(id)); }},
      {"Ostrel_GetLayerGroupHierarchy", n(nested), [&] { return n(Ostrel_GetLayerGroupHierarchy(nested)); },
       [&] { return n(reference::GetLayerGroupHierarchy(nested)); }},
      {"Ostrel_GetLayerGroup", n(nested), [&] { return n(Ostrel_GetLayerGroup(nested)); }, [&] { return n(reference::GetLayerGroup(nested)); }},
      {"Ostrel_IsLayerVisible", n(nested), [&] { return n(Ostrel_IsLayerVisible(nested)); }, [&] { return n(reference::IsLayerVisible(nested)); }},
      {"Ostrel_LayerIndexOffset", n(nested) + " 1", [&] { return n(Ostrel_LayerIndexOffset(nested, 1)); },
       [&] { return n(reference::LayerIndexOffset(nested, 1)); }},
      {"Ostrel_GetTopLayerIndex", "", [&] { return n(Ostrel_GetTopLayerIndex()); }, [&] { return n(reference::GetTopLayerIndex()); }},
      {"Ostrel_LayerNameToIndex", "\"" + ToUtf8(lastName) + "\"", [&] { return n(Ostrel_LayerNameToIndex(lastName)); },
       [&] { return n(reference::LayerNameToIndex(lastName)); }},
      {"Ostrel_GetSelectLayerID", "", [&] { std::vector<int> ids; const int r = Ostrel_GetSelectLayerID(ids); return Ids(r, ids); },
       [&] { std::vector<int> ids; const int r = reference::GetSelectLayerID(ids); return Ids(r, ids); }},
  };
  for (const Question& question : questions) {
    Row row;
    row.name = question.name;
    row.arguments = question.arguments;
    row.referenceCalls = CountCalls(scenario, question.reference, row.referenceAnswer);
    row.libraryCalls = CountCalls(scenario, question.library, row.libraryAnswer);
    m_rows.push_back(std::move(row));
  }
}

const LayerCallsDocument::Row& LayerCallsDocument::RowOf(const std::string& name) const {
  const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](const Row& r) { return r.name == name; });
  if (found == m_rows.end()) throw std::out_of_range(name);
  return *found;
}

}  // namespace ostrel::test
