// Reading the tool's command line with CLI11, and running the command it names.
#include "command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <iostream>
#include <memory>
#include <sstream>

#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"
#include "platform/text.h"
#include "registry_file.h"

#if defined(OSTREL_CLI_SIMULATOR)
#include "simulator/photoshop.h"
#endif

namespace ostrel::cli {
namespace {

constexpr const char* kFooter =
    "Options may stand before or after the command; for call, every word after NAME that isn't one of these\n"
    "options (negative numbers and other words that start with '-' included) is an argument of the export, in\n"
    "order; after -- every word is.\n"
    "Lesson files are read as UTF-8 (with or without byte order mark), or as UTF-16LE when they start with its\n"
    "byte order mark; --encoding gbk reads code page 936. Bytes that aren't valid in the encoding are never\n"
    "replaced: lint reports their lines, parse refuses the file.\n"
    "Without --param 33=DIR (or OSTREL_TALLY_33) the daily log goes to <temp>/ostrel/Log/.\n";

// The options that every command takes, wherever they stand.
struct GlobalOptions {
  std::vector<std::string> params;
  std::optional<std::string> photoshop;
  std::optional<std::string> registry;
  bool bCountCalls = false;
  std::optional<std::string> windows;
};

// The key of KEY=VALUE when it is a whole number that fits an int.
std::optional<int> ParamKey(std::string_view pair) {
  const std::string_view key = pair.substr(0, pair.find('='));
  int value = 0;
  const auto [end, error] = std::from_chars(key.data(), key.data() + key.size(), value);
  if (key.empty() || error != std::errc() || end != key.data() + key.size()) return std::nullopt;
  return value;
}

// Empty when pair is KEY=VALUE with a whole number as key; otherwise what is wrong with it.
std::string CheckParam(const std::string& pair) {
  if (pair.find('=') == std::string::npos) return "wants KEY=VALUE, got '" + pair + "'";
  if (!ParamKey(pair)) return "the key of '" + pair + "' isn't a whole number";
  return {};
}

void AddGlobalOptions(CLI::App& app, GlobalOptions& options) {
  app.add_option("--param", options.params,
                 "a host parameter by its key (33: log directory, 66: Photoshop version name)")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false)
      ->check(CLI::Validator([](std::string& pair) { return CheckParam(pair); }, "", "param"));
  app.add_option_function<std::string>(
         "--photoshop", [&options](const std::string& file) { options.photoshop = file; },
         "run against the simulated Photoshop of a scenario")
      ->type_name("SCENARIO.json");
  app.add_option_function<std::string>(
         "--registry", [&options](const std::string& file) { options.registry = file; },
         "use the registry of a JSON file instead of the system's, and write back what the command changed")
      ->type_name("FILE.json");
  app.add_flag("--count-calls", options.bCountCalls, "call: add the export's automation calls to the answer");
  app.add_option_function<std::string>(
         "--windows", [&options](const std::string& file) { options.windows = file; },
         "run the window locator on a recorded window tree instead of the screen's windows")
      ->type_name("TREE.json");
}

void AddEncodingOption(CLI::App& command, LessonEncoding& encoding) {
  static const std::map<std::string, LessonEncoding> kEncodings = {
      {"utf-8", LessonEncoding::kUtf8}, {"utf-16le", LessonEncoding::kUtf16Le}, {"gbk", LessonEncoding::kGbk}};
  command
      .add_option("--encoding", encoding,
                  "read the lesson as utf-8, utf-16le or gbk (code page 936) rather than by its byte order mark")
      ->transform(CLI::CheckedTransformer(kEncodings, CLI::ignore_case));
}

// Gathers the options of every place they were given, in the order of the command line. False, with error set,
// for a scenario or a window tree given twice.
bool MergeOptions(const std::vector<const GlobalOptions*>& places, CommandLine& line, std::string& error) {
  for (const GlobalOptions* options : places) {
    for (const std::string& pair : options->params) {
      const size_t equals = pair.find('=');
      line.params[*ParamKey(pair)] = FromUtf8(pair.substr(equals + 1));  // checked by CheckParam
    }
    if (options->photoshop) {
      if (line.photoshop) {
        error = "--photoshop given more than once";
        return false;
      }
      line.photoshop = options->photoshop;
    }
    if (options->registry) {
      if (line.registry) {
        error = "--registry given more than once";
        return false;
      }
      line.registry = options->registry;
    }
    line.call.bCountCalls = line.call.bCountCalls || options->bCountCalls;
    if (options->windows) {
      if (line.windows) {
        error = "--windows given more than once";
        return false;
      }
      line.windows = options->windows;
    }
  }
  return true;
}

// A word that would be taken for an option: it starts with '-' and isn't "-" or a number.
bool LooksLikeOption(const std::string& word) {
  return word.size() > 1 && word[0] == '-' && !(word[1] >= '0' && word[1] <= '9') && word[1] != '.';
}

// The words after `call NAME`: our options among them are read into options, the rest are the export's
// arguments in their order.
std::vector<std::string> ReadCallArguments(std::vector<std::string> words, GlobalOptions& options) {
  CLI::App tail("", "call");
  tail.set_help_flag();  // -h and --help after NAME are the export's arguments
  tail.allow_windows_style_options(false);
  tail.allow_extras();
  AddGlobalOptions(tail, options);
  std::reverse(words.begin(), words.end());  // CLI11 takes the words last first
  tail.parse(words);
  std::vector<std::string> arguments = tail.remaining();
  const auto marker = std::find(arguments.begin(), arguments.end(), "--");  // ends our options, isn't an argument
  if (marker != arguments.end()) arguments.erase(marker);
  return arguments;
}

// The tool's commands and options, bound to the fields of a CommandLine and to the global options of each place.
struct ToolDefinition {
  CLI::App app{"ostrel: the command line face of OstrelCore for lesson authors and lesson player developers",
               "ostrel"};
  CLI::App* parse = nullptr;
  CLI::App* call = nullptr;
  CLI::App* lint = nullptr;
  CLI::App* capture = nullptr;
  GlobalOptions rootOptions, callOptions, tailOptions;  // before NAME of call, between call and NAME, after NAME
};

void Define(ToolDefinition& tool, CommandLine& line) {
  tool.app.allow_windows_style_options(false);  // a path such as /tmp/a.lesson is no /option, on Windows too
  tool.app.set_version_flag("--version", std::string("ostrel ") + OSTREL_VERSION);
  tool.app.require_subcommand(0, 1);  // one command: a second command's name is a word like any other
  tool.app.fallthrough();             // the options of every command also after the command's name
  tool.app.footer(kFooter);
  AddGlobalOptions(tool.app, tool.rootOptions);

  tool.parse = tool.app.add_subcommand(
      "parse", "turn every line of a lesson script into its result, title and sentence; - or none: standard input");
  tool.parse->add_flag("--json", line.parse.bJson, "print one JSON object per line");
  AddEncodingOption(*tool.parse, line.parse.encoding);
  tool.parse->add_option("FILE", line.parse.path, "the lesson file");

  tool.call = tool.app.add_subcommand(
      "call", "call one exported function after Ostrel_Init and print a JSON object with \"result\" and each "
              "out-parameter; an ARG that parses as JSON is taken as that value, anything else as a plain string");
  tool.call->fallthrough(false);  // NAME and every word after it are left for ReadCallWords
  tool.call->prefix_command();
  AddGlobalOptions(*tool.call, tool.callOptions);
  tool.call->add_flag("--list", line.call.bList, "list every callable export with its signature");
  tool.call->footer("ostrel call [OPTIONS] NAME [ARG...]: every word after NAME that isn't one of the options above "
                    "is an argument of the export, in order (after --, every word is).\n");

  tool.lint = tool.app.add_subcommand(
      "lint", "check lessons: report, with file and line, every line that isn't understood, has an unknown code or "
              "bytes that aren't valid in its encoding; exit 0 when clean, 1 when a line was reported, 2 when a "
              "file can't be read");
  tool.lint->add_flag("--json", line.lint.bJson, "print one JSON object with the findings and a summary");
  AddEncodingOption(*tool.lint, line.lint.encoding);
  tool.lint->add_option("FILE", line.lint.paths, "lesson files");

  tool.capture = tool.app.add_subcommand(
      "capture-windows", "write the live window tree of the running Photoshop (its main frame, the windows it owns "
                         "and its other top-level windows) as a recorded tree, for --windows; Windows only");
  tool.capture->add_option("FILE", line.capture.path, "where to write the tree; - or none: standard output");
}

// The words that `call` left: NAME, then the export's arguments among which our options may stand.
void ReadCallWords(ToolDefinition& tool, CommandLine& line) {
  const std::vector<std::string> words = tool.call->remaining();
  if (line.call.bList) {
    if (!words.empty()) throw CLI::ExtrasError({words.rbegin(), words.rend()});  // it lists them last first
    return;
  }
  if (words.empty()) throw CLI::ArgumentMismatch("call wants the NAME of an export (ostrel call --list)");
  if (LooksLikeOption(words[0])) throw CLI::ExtrasError({words[0]});
  line.call.name = words[0];
  line.call.words = ReadCallArguments({words.begin() + 1, words.end()}, tool.tailOptions);
}

}  // namespace

std::optional<int> ReadCommandLine(const std::vector<std::string>& args, CommandLine& line, std::string& message) {
  ToolDefinition tool;
  Define(tool, line);
  try {
    std::vector<std::string> words(args.rbegin(), args.rend());  // CLI11 takes the words last first
    tool.app.parse(words);
    if (tool.call->parsed()) ReadCallWords(tool, line);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {  // --help or --version
      std::ostringstream out, err;
      tool.app.exit(error, out, err);
      message = out.str();
      return 0;
    }
    message = std::string("ostrel: ") + error.what() + "\nRun ostrel --help for the commands and options.\n";
    return 2;
  }
  if (tool.parse->parsed()) line.command = CommandLine::Command::kParse;
  else if (tool.call->parsed()) line.command = CommandLine::Command::kCall;
  else if (tool.lint->parsed()) line.command = CommandLine::Command::kLint;
  else if (tool.capture->parsed()) line.command = CommandLine::Command::kCaptureWindows;
  else {
    message = tool.app.help();
    return 2;
  }
  std::string error;
  if (!MergeOptions({&tool.rootOptions, &tool.callOptions, &tool.tailOptions}, line, error)) {
    message = "ostrel: " + error + "\n";
    return 2;
  }
  return std::nullopt;
}

namespace {

// Gives the library the parameters of the command line; without a log directory from the host the daily log goes
// to <temp>/ostrel/ rather than beside the working directory.
void GiveParameters(const std::map<int, std::wstring>& params) {
  for (const auto& [key, value] : params) DefaultParameters().Set(static_cast<EnTallyKey>(key), value);
  if (CurrentPlatform().parameters->GetString(EnTallyKey::kLogDirectory).empty()) {
    const std::wstring temp = CurrentPlatform().files->TempDirectory();
    DefaultParameters().Set(EnTallyKey::kLogDirectory, temp + L"ostrel/");
  }
}

int RunCommand(const CommandLine& line) {
  switch (line.command) {
    case CommandLine::Command::kParse: return RunParseCommand(line.parse);
    case CommandLine::Command::kCall: return RunCallCommand(line.call);
    case CommandLine::Command::kLint: return RunLintCommand(line.lint);
    case CommandLine::Command::kCaptureWindows: return RunCaptureCommand(line.capture);
  }
  return 2;
}

}  // namespace

int RunOstrel(const std::vector<std::string>& args) {
  CommandLine line;
  std::string message;
  if (const std::optional<int> status = ReadCommandLine(args, line, message)) {
    (*status == 0 ? std::cout : std::cerr) << message;
    return *status;
  }
  GiveParameters(line.params);
  Platform platform;
  MemoryRegistry registry;
  if (line.registry) {
    std::string error;
    if (!LoadRegistryFile(std::filesystem::u8path(*line.registry), registry, error)) {
      std::cerr << "ostrel: --registry " << *line.registry << ": " << error << '\n';
      return 2;
    }
    platform.registry = &registry;
  }
  std::unique_ptr<RecordedWindows> windows;
  if (line.windows) {
    WindowTreeLoad load = LoadWindowTree(std::filesystem::u8path(*line.windows));
    if (!load.tree) {
      std::cerr << "ostrel: --windows " << load.error << '\n';
      return 2;
    }
    windows = std::make_unique<RecordedWindows>(std::move(*load.tree));
    platform.windows = windows.get();
    platform.screen = windows.get();
  }
#if defined(OSTREL_CLI_SIMULATOR)
  std::unique_ptr<sim::SimulatedPhotoshop> photoshop;
  if (line.photoshop) {
    try {
      photoshop = std::make_unique<sim::SimulatedPhotoshop>(
          sim::SimulatedPhotoshop::FromFile(std::filesystem::u8path(*line.photoshop)));
    } catch (const std::exception& error) {
      std::cerr << "ostrel: --photoshop " << *line.photoshop << ": " << error.what() << '\n';
      return 2;
    }
    platform.automation = photoshop.get();
  }
#else
  if (line.photoshop) {
    std::cerr << "ostrel: this build has no simulated Photoshop\n";
    return 2;
  }
#endif
  const std::string registryBefore = RegistryFileText(registry);
  int status = 0;
  {
    const ScopedPlatform scoped(platform);
    status = RunCommand(line);
  }
  if (line.registry && RegistryFileText(registry) != registryBefore) {
    std::string error;
    if (!SaveRegistryFile(std::filesystem::u8path(*line.registry), registry, error)) {
      std::cerr << "ostrel: --registry " << *line.registry << ": " << error << '\n';
      return 2;
    }
  }
  return status;
}

}  // namespace ostrel::cli
