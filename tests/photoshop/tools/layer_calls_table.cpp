// layer_calls_table: the automation calls of the layer questions that have a faster path, as first written
// (tests/photoshop/layer_reference.cpp) and as the library answers them now, side by side, on a generated
// 10-layer document (2 groups) and a generated 200-layer document (20 groups), as a Markdown table.
// `./dev calls-table` writes it into the README.
#include <iostream>
#include <string>
#include <vector>

#include "../layer_calls.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"

int main() {
  using ostrel::test::LayerCallsDocument;
  const std::vector<ostrel::test::DocumentShape> shapes = {
      {.layers = 10, .groups = 2, .background = true, .seed = 7, .randomSelection = false},
      {.layers = 200, .groups = 20, .background = true, .seed = 7, .randomSelection = false},
  };
  ostrel::DefaultParameters().Set(ostrel::EnTallyKey::kLogDirectory,
                                  ostrel::CurrentPlatform().files->TempDirectory() + L"ostrel/");
  try {
    std::vector<LayerCallsDocument> documents;
    for (const auto& shape : shapes) documents.emplace_back(shape);
    std::cout << "| export | arguments (10 layers; 200 layers) | reference, 10 | library, 10 | reference, 200 | library, 200 |\n"
              << "|---|---|---:|---:|---:|---:|\n";
    for (size_t row = 0; row < documents[0].Rows().size(); ++row) {
      const auto& small = documents[0].Rows()[row];
      const auto& large = documents[1].Rows()[row];
      std::cout << "| `" << small.name << "` | " << (small.arguments.empty() ? "" : "`" + small.arguments + "`; `" + large.arguments + "`")
                << " | " << small.referenceCalls << " | " << small.libraryCalls << " | " << large.referenceCalls << " | "
                << large.libraryCalls << " |\n";
    }
  } catch (const std::exception& error) {
    std::cerr << "layer_calls_table: " << error.what() << '\n';
    return 2;
  }
  return 0;
}
