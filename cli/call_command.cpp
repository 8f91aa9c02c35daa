// `ostrel call NAME [ARG...]` and `ostrel call --list`: any export, by its exported name, after Ostrel_Init.
#include <iostream>
#include <optional>

#include "calls.h"
#include "commands.h"
#include "counting_automation.h"
#include "ostrel/lifecycle.h"
#include "platform/platform.h"

namespace ostrel::cli {

int RunCallCommand(const CallOptions& options) {
  if (options.bList) {
    for (const CallEntry& entry : AllCalls()) std::cout << ListLine(entry) << '\n';
    return 0;
  }
  // The counter goes in before Ostrel_Init, so that the application object that the connection keeps is one of
  // its objects; the calls of Ostrel_Init itself are not the export's and are dropped.
  std::optional<CountingAutomation> counter;
  std::optional<ScopedPlatform> counting;
  if (options.bCountCalls) {
    counter.emplace(*CurrentPlatform().automation);
    counting.emplace(Platform{.automation = &*counter});
  }
  Ostrel_Init();
  if (counter) counter->ResetCalls();
  Json answer;
  std::string error;
  const int status = RunCall(options.name, options.words, answer, error);
  if (status == 0 && counter) answer["automationCalls"] = counter->Calls();
  Ostrel_UnInit();
  if (status != 0) {
    std::cerr << "ostrel call: " << error << '\n';
    return 2;
  }
  std::cout << RenderJson(answer) << '\n';
  return 0;
}

}  // namespace ostrel::cli
