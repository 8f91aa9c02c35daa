// ostrel: the command line face of OstrelCore for lesson authors and lesson player developers.
#include <iostream>
#include <string>
#include <vector>

#include "commands.h"

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
    "  --version                 the library's version\n";

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
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
