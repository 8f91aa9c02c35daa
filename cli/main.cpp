// ostrel: the command line face of OstrelCore for lesson authors and lesson player developers.
#include <iostream>
#include <string>
#include <vector>

#include "commands.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/text.h"

#if defined(OSTREL_CLI_SIMULATOR)
#include <memory>

#include "simulator/photoshop.h"
#endif

namespace {

constexpr const char* kUsage =
    "usage: ostrel COMMAND [ARGS]\n"
    "\n"
    "commands:\n"
    "  parse [--json] [FILE]     turn every line of a lesson script (UTF-8; - or none: standard input) into\n"
    "                            its result, title and sentence; --json prints one JSON object per line\n"
    "  call NAME [ARG...]        call one exported function after Ostrel_Init and print a JSON object with\n"
    "                            \"result\" and each out-parameter; an ARG that parses as JSON is taken as\n"
    "                            that value, anything else as a plain string\n"
    "  call --list               list every callable export with its signature\n"
    "  lint [--json] [FILE...]   check lessons (- or none: standard input): report, with file and line, every\n"
    "                            line that isn't understood and every line with an unknown code; exit 0\n"
    "                            when clean, 1 when a line was reported, 2 when a file can't be read\n"
    "  --help                    this text\n"
    "  --version                 the library's version\n"
    "\n"
    "options (before or after the command):\n"
    "  --param KEY=VALUE         give the library a host parameter by its key, e.g. --param 33=/tmp/logs/\n"
    "                            (33: log directory, 66: Photoshop version name); the environment variable\n"
    "                            OSTREL_TALLY_<KEY> does the same. Without key 33 the daily log goes to\n"
    "                            <temp>/ostrel/Log/.\n"
    "  --photoshop SCENARIO.json run against the simulated Photoshop of the scenario (see simulator/README.md);\n"
    "                            without it the library finds no Photoshop and runs unconnected\n";

// Takes "--photoshop FILE" out of args and installs the simulated Photoshop of that scenario for the rest of
// the process. False (with a message naming the place of the mistake) when the scenario can't be loaded.
bool TakeSimulator(std::vector<std::string>& args) {
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] != "--photoshop") continue;
    if (i + 1 >= args.size()) {
      std::cerr << "ostrel: --photoshop wants a scenario file\n";
      return false;
    }
#if defined(OSTREL_CLI_SIMULATOR)
    static std::unique_ptr<ostrel::sim::SimulatedPhotoshop> photoshop;
    static std::unique_ptr<ostrel::ScopedPlatform> platform;
    try {
      photoshop = std::make_unique<ostrel::sim::SimulatedPhotoshop>(
          ostrel::sim::SimulatedPhotoshop::FromFile(std::filesystem::u8path(args[i + 1])));
    } catch (const std::exception& error) {
      std::cerr << "ostrel: " << error.what() << '\n';
      return false;
    }
    platform = std::make_unique<ostrel::ScopedPlatform>(ostrel::Platform{.automation = photoshop.get()});
    args.erase(args.begin() + static_cast<std::ptrdiff_t>(i), args.begin() + static_cast<std::ptrdiff_t>(i + 2));
    return true;
#else
    std::cerr << "ostrel: this build has no simulated Photoshop\n";
    return false;
#endif
  }
  return true;
}

// Takes every "--param KEY=VALUE" out of args and gives it to the library's parameters. False on a bad one.
bool TakeParameters(std::vector<std::string>& args) {
  for (size_t i = 0; i < args.size();) {
    if (args[i] != "--param") {
      ++i;
      continue;
    }
    const std::string pair = i + 1 < args.size() ? args[i + 1] : "";
    const size_t equals = pair.find('=');
    if (equals == std::string::npos || equals == 0) {
      std::cerr << "ostrel: --param wants KEY=VALUE, got '" << pair << "'\n";
      return false;
    }
    const int key = ostrel::WToI(ostrel::FromUtf8(pair.substr(0, equals)));
    ostrel::DefaultParameters().Set(static_cast<ostrel::EnTallyKey>(key), ostrel::FromUtf8(pair.substr(equals + 1)));
    args.erase(args.begin() + static_cast<std::ptrdiff_t>(i), args.begin() + static_cast<std::ptrdiff_t>(i + 2));
  }
  ostrel::IParameters& parameters = *ostrel::CurrentPlatform().parameters;
  if (parameters.GetString(ostrel::EnTallyKey::kLogDirectory).empty()) {
    const std::wstring temp = ostrel::CurrentPlatform().files->TempDirectory();
    ostrel::DefaultParameters().Set(ostrel::EnTallyKey::kLogDirectory, temp + L"ostrel/");
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (!TakeParameters(args) || !TakeSimulator(args)) return 2;
  if (args.empty()) {
    std::cerr << kUsage;
    return 2;
  }
  const std::string command = args[0];
  args.erase(args.begin());
  if (command == "--help" || command == "-h" || command == "help") {
    std::cout << kUsage;
    return 0;
  }
  if (command == "--version") {
    std::cout << "ostrel " << OSTREL_VERSION << '\n';
    return 0;
  }
  if (command == "parse") return ostrel::cli::RunParseCommand(args);
  if (command == "call") return ostrel::cli::RunCallCommand(args);
  if (command == "lint") return ostrel::cli::RunLintCommand(args);
  std::cerr << "ostrel: unknown command " << command << "\n\n" << kUsage;
  return 2;
}
