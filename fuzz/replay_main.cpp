// A main for the harnesses without libFuzzer: runs the harness once on every file named, and on every file of
// every folder named (a path that isn't there is skipped), so that the seeds and the kept findings run in every build's test suite.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

int RunFile(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "cannot read %s\n", file.string().c_str());
    return 1;
  }
  const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  int failures = 0, inputs = 0;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path path = argv[i];
    if (!std::filesystem::exists(path)) continue;  // a harness without kept findings has no folder for them
    if (!std::filesystem::is_directory(path)) {
      failures += RunFile(path);
      ++inputs;
      continue;
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
      if (!entry.is_regular_file()) continue;
      failures += RunFile(entry.path());
      ++inputs;
    }
  }
  std::printf("%d inputs run\n", inputs);
  return failures == 0 && inputs > 0 ? 0 : 1;
}
