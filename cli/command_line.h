// The command line of the ostrel tool, read with CLI11: the subcommands parse, call, lint and capture-windows, and
// the options
// that every command takes before or after its name.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "commands.h"

namespace ostrel::cli {

struct CommandLine {
  enum class Command { kParse, kCall, kLint, kCaptureWindows };
  Command command = Command::kParse;
  ParseOptions parse;
  CallOptions call;  // also holds --count-calls
  LintOptions lint;
  CaptureOptions capture;
  std::map<int, std::wstring> params;    // --param KEY=VALUE; a key given twice keeps its last value
  std::optional<std::string> photoshop;  // --photoshop SCENARIO.json
  std::optional<std::string> windows;    // --windows TREE.json
  std::optional<std::string> registry;   // --registry FILE.json
};

// Reads the words after the program's name. Nothing when a command is to run; otherwise the exit status with
// what to print in message: the help or the version (status 0, standard output), or what was wrong with the
// words, naming it (status 2, standard error).
std::optional<int> ReadCommandLine(const std::vector<std::string>& args, CommandLine& line, std::string& message);

// The whole tool: reads the command line, gives the library its parameters, installs the simulated Photoshop of
// --photoshop, the recorded window tree of --windows and the registry file of --registry, runs the command and
// writes back a registry it changed. Gives the exit status.
int RunOstrel(const std::vector<std::string>& args);

}  // namespace ostrel::cli
