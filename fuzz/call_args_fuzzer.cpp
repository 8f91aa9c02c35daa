// `ostrel call`'s arguments: the first two bytes (little endian) pick the export, and by their lowest bit whether a
// simulated Photoshop of layers_and_group.json is connected; the rest is the command line words after the name,
// one per line. Words
// go through the same JSON-or-text reading and signature matching as on the command line, and the answer is
// rendered as the CLI prints it.
#include <cstdint>
#include <optional>

#include "calls.h"
#include "fuzz_support.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace {

const ostrel::sim::Scenario& LayersAndGroup() {
  static const ostrel::sim::Scenario scenario =
      ostrel::sim::LoadScenarioFile(std::filesystem::path(OSTREL_SOURCE_DIR) / "examples/photoshop/layers_and_group.json");
  return scenario;
}

std::vector<std::string> Words(std::string_view bytes) {
  std::vector<std::string> words;
  if (bytes.empty()) return words;
  size_t start = 0;
  while (true) {
    const size_t end = bytes.find('\n', start);
    words.emplace_back(bytes.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start));
    if (end == std::string_view::npos) return words;
    start = end + 1;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  ostrel::fuzz::InitLibraryOnce();
  const std::vector<ostrel::cli::CallEntry>& calls = ostrel::cli::AllCalls();
  const unsigned pick = data[0] | (data[1] << 8);
  const std::string name = calls[(pick >> 1) % calls.size()].name;
  const std::vector<std::string> words = Words(ostrel::fuzz::Bytes(data + 2, size - 2));

  std::optional<ostrel::sim::SimulatedPhotoshop> photoshop;
  if (pick & 1) photoshop.emplace(LayersAndGroup());
  ostrel::Platform platform;
  if (photoshop) platform.automation = &*photoshop;
  {
    ostrel::ScopedPlatform scoped(platform);
    if (photoshop) Ostrel_Init();
    std::string answer, error;
    if (ostrel::cli::RunCall(name, words, answer, error) == 0 && answer.empty()) {
      ostrel::fuzz::Broken("a call that ran printed nothing");
    }
    Ostrel_UnInit();
  }
  ostrel::fuzz::ResetHostParameters();  // whatever a call set, so that no input changes the next
  if (photoshop && photoshop->LiveObjects() != 0) ostrel::fuzz::Broken("a simulated object left alive");
  return 0;
}
