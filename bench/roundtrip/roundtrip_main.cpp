// ostrel_roundtrip [--calls N] [--remote-calls N] [--runs N]
//
// What one automation call costs through real COM, and what that makes of an export: the simulated Photoshop of
// examples/photoshop/layers_and_group.json is served in this process by the test COM bridge, then from a second
// process as a local COM server (once from a single-threaded apartment with a message loop, as Photoshop's main
// thread serves its objects, once from the multithreaded apartment). Against each, four automation operations (two
// cheap property gets, a read of the Action Manager, the creation of an object) are timed one by one after a
// warm-up (N each in this process, the --remote-calls count across processes), and a few exports are run whole
// through the library (--runs times each) beside estimates from their automation calls, the calls among them that
// carry an object and the objects they create. The answers and counts of every export across processes must be
// those of the same export in this process. Prints two Markdown tables, which `./dev roundtrip` keeps in the
// README; exit status 1 when a server or an answer went wrong.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "com_bridge.h"
#include "export_runs.h"
#include "frame/dispids.h"
#include "local_server.h"
#include "object_tally.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/win32/com_automation.h"
#include "platform/win32/holders.h"
#include "simulator/photoshop.h"
#include "spread.h"

namespace {

using namespace ostrel;
using namespace ostrel::roundtrip;

constexpr const char* kScenarioName = "layers_and_group.json";
const char* const kExports[] = {"Ostrel_GetLayerInfo", "Ostrel_GetLayerID", "Ostrel_GetToolFeatures",
                                "Ostrel_GetLayerGroup"};

std::filesystem::path Scenario() {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / kScenarioName;
}

double NowMicroseconds() {
  static const double perMicrosecond = [] {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(frequency.QuadPart) / 1e6;
  }();
  LARGE_INTEGER now;
  QueryPerformanceCounter(&now);
  return static_cast<double>(now.QuadPart) / perMicrosecond;
}

// One operation timed call by call, after a tenth as many untimed calls.
Spread TimeOperation(const std::function<void()>& operation, int count) {
  for (int i = 0; i < count / 10 + 1; ++i) operation();
  std::vector<double> samples;
  samples.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) {
    const double start = NowMicroseconds();
    operation();
    samples.push_back(NowMicroseconds() - start);
  }
  return SpreadOf(std::move(samples));
}

// The operations timed, in the rows of the first table.
enum Operation { kVersionGet, kCountGet, kActionGet, kCreate, kOperationCount };

constexpr const char* kOperationNames[kOperationCount] = {
    "`version` of the application (a BSTR back)",
    "`count` of an ActionDescriptor (an I4 back)",
    "`executeActionGet` of the current layer's `name` (a reference there, a descriptor back, released)",
    "`CLSIDFromProgID` and `CoCreateInstance` of an ActionReference, released",
};

struct ExportFigures {
  ExportRun first;          // its answer and automation calls
  int64_t created = 0;      // the objects it created by ProgID, each a CoCreateInstance that the calls don't count
  int64_t objectCalls = 0;  // its calls that carry an object either way
  Spread time;
};

// What one server gave: the operations and the exports.
struct ServerFigures {
  std::string servedBy;
  Spread operations[kOperationCount];
  std::map<std::string, ExportFigures> exports;
};

// Creates the objects as the library does (CLSIDFromProgID, CoCreateInstance) and times the operations on them.
void TimeOperations(ServerFigures& figures, int count) {
  win32::ComAutomation com;
  const DispatchPtr application = com.Create(L"Photoshop.Application.130");
  const DispatchPtr descriptor = com.Create(L"Photoshop.ActionDescriptor.130");
  const DispatchPtr reference = com.Create(L"Photoshop.ActionReference.130");
  const auto id = [&](int32_t dispId, const wchar_t* name) {
    return Variant::I4(application->Invoke(dispId, InvokeKind::kMethod, {{Variant::Bstr(name)}}).AsI4());
  };
  const Variant put[] = {id(dispid::app::kStringIDToTypeID, L"property"), id(dispid::app::kStringIDToTypeID, L"name")};
  reference->Invoke(dispid::ref::kPutProperty, InvokeKind::kMethod, put);
  const Variant current[] = {id(dispid::app::kCharIDToTypeID, L"Lyr "), id(dispid::app::kCharIDToTypeID, L"Ordn"),
                             id(dispid::app::kCharIDToTypeID, L"Trgt")};
  reference->Invoke(dispid::ref::kPutEnumerated, InvokeKind::kMethod, current);
  const Variant target[] = {Variant::Dispatch(reference)};

  figures.operations[kVersionGet] =
      TimeOperation([&] { application->Invoke(dispid::app::kVersion, InvokeKind::kPropertyGet, {}); }, count);
  figures.operations[kCountGet] =
      TimeOperation([&] { descriptor->Invoke(dispid::desc::kCount, InvokeKind::kPropertyGet, {}); }, count);
  figures.operations[kActionGet] =
      TimeOperation([&] { application->Invoke(dispid::app::kExecuteActionGet, InvokeKind::kMethod, target); }, count);
  figures.operations[kCreate] = TimeOperation([&] { com.Create(L"Photoshop.ActionReference.130"); }, count);
}

// Connects the library and runs each export: once for its answer and calls, then runs times timed.
void TimeExports(ServerFigures& figures, cli::CountingAutomation& counter, const ObjectTally& tally, int runs) {
  if (Ostrel_Init() != 1) throw std::runtime_error("Ostrel_Init did not connect to " + figures.servedBy);
  for (const char* name : kExports) {
    const cli::CallEntry* entry = FindExport(name);
    if (!entry) throw std::runtime_error(std::string("no export ") + name);
    ExportFigures& export_ = figures.exports[name];
    const int64_t createdBefore = tally.Created();
    const int64_t objectCallsBefore = tally.ObjectCalls();
    export_.first = RunExport(*entry, counter);
    export_.created = tally.Created() - createdBefore;
    export_.objectCalls = tally.ObjectCalls() - objectCallsBefore;
    std::vector<double> samples;
    for (int i = 0; i < runs; ++i) {
      const double start = NowMicroseconds();
      RunExport(*entry, counter);
      samples.push_back(NowMicroseconds() - start);
    }
    export_.time = SpreadOf(std::move(samples));
  }
  Ostrel_UnInit();
}

// The figures of a server in a second process. Throws when it doesn't start or doesn't end cleanly.
ServerFigures TimeAcrossProcesses(ServerApartment apartment, const std::string& servedBy, int count,
                                  cli::CountingAutomation* counter, const ObjectTally& tally, int runs) {
  ServerFigures figures;
  figures.servedBy = servedBy;
  std::wstring error;
  std::optional<LocalServer> server = LocalServer::Start(ServerBesideThisProgram(), Scenario(), apartment, 600, error);
  if (!server)
    throw std::runtime_error("the local server (" + servedBy + "): " + std::string(error.begin(), error.end()));
  TimeOperations(figures, count);
  if (counter) TimeExports(figures, *counter, tally, runs);
  const DWORD exit = server->Stop();
  if (exit != kServerClean) {
    const std::wstring why = DescribeServerExit(exit);
    throw std::runtime_error("the local server (" + servedBy + "): " + std::string(why.begin(), why.end()));
  }
  return figures;
}

std::string Row(const std::vector<std::string>& cells) {
  std::string row = "|";
  for (const std::string& cell : cells) row += " " + cell + " |";
  return row;
}

void PrintOperationTable(const std::vector<const ServerFigures*>& servers) {
  std::cout << Row({"automation call", "served by", "calls timed", "median", "10th to 90th percentile",
                    "99th percentile", "mean"})
            << "\n|---|---|---:|---:|---:|---:|---:|\n";
  for (int operation = 0; operation < kOperationCount; ++operation) {
    for (const ServerFigures* server : servers) {
      const Spread& s = server->operations[operation];
      std::cout << Row({kOperationNames[operation], server->servedBy, std::to_string(s.count),
                        FormatMicroseconds(s.median), FormatMicroseconds(s.p10) + " to " + FormatMicroseconds(s.p90),
                        FormatMicroseconds(s.p99), FormatMicroseconds(s.mean)})
                << "\n";
    }
  }
}

// An export's estimate: its automation calls times the median of a property get; in full, the expected sum of its
// calls: those that carry no object at the mean of a get, those that carry one at the mean of executeActionGet,
// and its creations at the mean of a creation.
double Estimate(const ExportFigures& export_, const ServerFigures& server, bool full) {
  if (!full) return static_cast<double>(export_.first.calls) * server.operations[kVersionGet].median;
  const auto times = [&](int64_t count, Operation operation) {
    return static_cast<double>(count) * server.operations[operation].mean;
  };
  return times(export_.first.calls - export_.objectCalls, kVersionGet) + times(export_.objectCalls, kActionGet) +
         times(export_.created, kCreate);
}

void PrintExportTable(const ServerFigures& inProcess, const ServerFigures& crossProcess) {
  std::cout << Row({std::string("export on `") + kScenarioName + "`", "arguments", "automation calls",
                    "calls with an object", "objects created", "in-process: estimate in full", "in-process: measured",
                    "cross-process: calls × median get", "cross-process: estimate in full", "cross-process: measured"})
            << "\n|---|---|---:|---:|---:|---:|---:|---:|---:|---:|\n";
  for (const char* name : kExports) {
    const ExportFigures& here = inProcess.exports.at(name);
    const ExportFigures& there = crossProcess.exports.at(name);
    std::string arguments;
    for (const cli::CallArg& arg : FindExport(name)->sampleArgs) {
      arguments += (arguments.empty() ? "" : " ") + cli::RenderJson(arg.value);
    }
    std::cout << Row({std::string("`") + name + "`", arguments.empty() ? "" : "`" + arguments + "`",
                      std::to_string(there.first.calls), std::to_string(there.objectCalls),
                      std::to_string(there.created), FormatMicroseconds(Estimate(here, inProcess, true)),
                      FormatMicroseconds(here.time.median), FormatMicroseconds(Estimate(there, crossProcess, false)),
                      FormatMicroseconds(Estimate(there, crossProcess, true)), FormatMicroseconds(there.time.median)})
              << "\n";
  }
}

// The answers and calls across processes are those in this process.
bool SameAnswers(const ServerFigures& inProcess, const ServerFigures& crossProcess) {
  bool same = true;
  for (const char* name : kExports) {
    const ExportRun& here = inProcess.exports.at(name).first;
    const ExportRun& there = crossProcess.exports.at(name).first;
    if (!here.ran || !there.ran || here.answer != there.answer || here.calls != there.calls ||
        inProcess.exports.at(name).created != crossProcess.exports.at(name).created ||
        inProcess.exports.at(name).objectCalls != crossProcess.exports.at(name).objectCalls) {
      std::cerr << "ostrel_roundtrip: " << name << " answers differently across processes:\n  in-process    ("
                << here.calls << " calls) " << here.answer << "\n  cross-process (" << there.calls << " calls) "
                << there.answer << "\n";
      same = false;
    }
  }
  return same;
}

int Run(int count, int remoteCount, int runs) {
  const win32::ComInit com(COINIT_MULTITHREADED);
  ProcessParameters parameters;
  parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2019");
  win32::ComAutomation comAutomation;
  ObjectTally tally(comAutomation);
  cli::CountingAutomation counter(tally);
  const ScopedPlatform platform(Platform{.automation = &counter, .parameters = &parameters});

  ServerFigures inProcess;
  inProcess.servedBy = "this process: the test COM bridge";
  {
    sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(Scenario());
    const testing::ComBridge bridge(photoshop, testing::kProgIds130, CLSCTX_INPROC_SERVER);
    if (!bridge.AllRegistered()) throw std::runtime_error("the in-process bridge could not register its classes");
    TimeOperations(inProcess, count);
    TimeExports(inProcess, counter, tally, runs);
  }
  const ServerFigures singleThreaded = TimeAcrossProcesses(
      ServerApartment::kSingleThreaded, "another process: a single-threaded apartment and its message loop",
      remoteCount, &counter, tally, runs);
  const ServerFigures multithreaded =
      TimeAcrossProcesses(ServerApartment::kMultithreaded, "another process: the multithreaded apartment", remoteCount,
                          nullptr, tally, runs);

  PrintOperationTable({&inProcess, &singleThreaded, &multithreaded});
  std::cout << "\n";
  PrintExportTable(inProcess, singleThreaded);
  std::cout << "\nThe exports' times are the medians of " << runs << " runs each. \"calls × median get\" is the"
            << " automation calls times the median of `version`; \"in full\" is the expected sum of the calls, those"
            << " that carry an object at the mean of `executeActionGet`, the rest at the mean of `version`, and the"
            << " creations at the mean of a creation, in this process and from the single-threaded apartment of the"
            << " other process. Across processes a get costs "
            << static_cast<int>(
                   singleThreaded.operations[kVersionGet].median / inProcess.operations[kVersionGet].median + 0.5)
            << " times, a creation "
            << static_cast<int>(singleThreaded.operations[kCreate].median / inProcess.operations[kCreate].median + 0.5)
            << " times what they cost in one process.\n";
  return SameAnswers(inProcess, singleThreaded) ? 0 : 1;
}

int ArgumentAfter(int& i, int argc, char** argv) {
  if (i + 1 >= argc) throw std::invalid_argument(std::string(argv[i]) + " needs a number");
  const int value = std::atoi(argv[++i]);
  if (value < 1) throw std::invalid_argument(std::string(argv[i - 1]) + " needs a number above 0");
  return value;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    int count = 20000, remoteCount = 2000, runs = 11;
    for (int i = 1; i < argc; ++i) {
      if (std::strcmp(argv[i], "--calls") == 0) {
        count = ArgumentAfter(i, argc, argv);
      } else if (std::strcmp(argv[i], "--remote-calls") == 0) {
        remoteCount = ArgumentAfter(i, argc, argv);
      } else if (std::strcmp(argv[i], "--runs") == 0) {
        runs = ArgumentAfter(i, argc, argv);
      } else {
        std::cerr << "usage: ostrel_roundtrip [--calls N] [--remote-calls N] [--runs N]\n";
        return 2;
      }
    }
    return Run(count, remoteCount, runs);
  } catch (const std::exception& failure) {
    std::cerr << "ostrel_roundtrip: " << failure.what() << "\n";
    return 1;
  }
}
