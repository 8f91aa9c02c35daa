// Scenario files of the simulated Photoshop: a mistake must come back as a ScenarioError and nothing else; a
// scenario that loads is connected to, and one Photoshop export (chosen by the input's hash) runs on it with its
// sample arguments and leaves no simulated object alive.
#include <cstdint>
#include <functional>

#include "calls.h"
#include "fuzz_support.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace {

// Descriptor files that a scenario names are looked for beside the example scenarios, where the real
// descriptors are (examples/photoshop/realdata/).
const std::filesystem::path kExamples = std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostrel::fuzz::InitLibraryOnce();
  const std::string_view text = ostrel::fuzz::Bytes(data, size);
  std::optional<ostrel::sim::Scenario> scenario;
  try {
    scenario.emplace(ostrel::sim::ParseScenario(text, kExamples, "fuzzed.json"));
  } catch (const ostrel::sim::ScenarioError& error) {
    if (std::string_view(error.what()).rfind("fuzzed.json", 0) != 0) ostrel::fuzz::Broken("an error without its place");
    return 0;
  }
  const std::vector<ostrel::cli::CallEntry>& calls = ostrel::cli::AllCalls();
  const ostrel::cli::CallEntry& entry = calls[std::hash<std::string_view>{}(text) % calls.size()];
  ostrel::sim::SimulatedPhotoshop photoshop(std::move(*scenario));
  {
    ostrel::ScopedPlatform platform(ostrel::Platform{.automation = &photoshop});
    Ostrel_Init();
    ostrel::cli::Json answer;
    std::string error;
    entry.invoke(entry.sampleArgs, answer, error);
    Ostrel_UnInit();
  }
  ostrel::fuzz::ResetHostParameters();  // whatever the call set, so that no input changes the next
  if (photoshop.LiveObjects() != 0) ostrel::fuzz::Broken("a simulated object left alive");
  return 0;
}
