// `ostrel call NAME [ARG...]` and `ostrel call --list`: any export, by its exported name, after Ostrel_Init.
#include <iostream>

#include "calls.h"
#include "commands.h"
#include "ostrel/lifecycle.h"

namespace ostrel::cli {

int RunCallCommand(const std::vector<std::string>& args) {
  if (args.empty()) {
    std::cerr << "usage: ostrel call NAME [ARG...] | ostrel call --list\n";
    return 2;
  }
  if (args[0] == "--list") {
    for (const CallEntry& entry : AllCalls()) std::cout << entry.signature << '\n';
    return 0;
  }
  Ostrel_Init();
  std::string answer, error;
  const int status = RunCall(args[0], std::vector<std::string>(args.begin() + 1, args.end()), answer, error);
  Ostrel_UnInit();
  if (status != 0) {
    std::cerr << "ostrel call: " << error << '\n';
    return 2;
  }
  std::cout << answer << '\n';
  return 0;
}

}  // namespace ostrel::cli
