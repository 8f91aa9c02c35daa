// ostrel_photoshop_server SCENARIO.json TAG CLIENT_PID DEADLINE_SECONDS sta|mta
//
// The simulated Photoshop of a scenario served from a process of its own, as a local COM server: the ProgIDs of
// version 130 under HKEY_CLASSES_ROOT and their class factories registered with CoRegisterClassObject for local
// servers, so that a client's CLSIDFromProgID and CoCreateInstance reach it across processes and every
// IDispatch::Invoke travels through the system's RPC and oleaut32's marshalling of IDispatch. With "sta" the calls
// are served by a single-threaded apartment and its message loop, as Photoshop's main thread serves them; with "mta"
// by the RPC threads of the multithreaded apartment.
//
// It signals the event named by ServerEventName(TAG, "ready") once registered, and ends when the "stop" event is
// set, when the client's process ends or when the deadline passes, whichever comes first. Its exit code
// (local_server.h) says which, and whether every object it served had been released when it was stopped.
#include <objbase.h>
#include <shellapi.h>
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <exception>
#include <memory>
#include <optional>
#include <string>

#include "com_bridge.h"
#include "local_server.h"
#include "simulator/photoshop.h"

namespace {

using ostrel::roundtrip::Handle;
using namespace ostrel::roundtrip;

void DispatchWaitingMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

// Serves calls (the message loop answers those that reach a single-threaded apartment) until the client stops the
// server, the client ends or the deadline passes.
ServerExit Serve(HANDLE stop, HANDLE client, ULONGLONG deadline) {
  const HANDLE handles[] = {stop, client};
  const DWORD count = client ? 2 : 1;
  for (;;) {
    const ULONGLONG now = GetTickCount64();
    if (now >= deadline) return kServerDeadline;
    const DWORD wait = MsgWaitForMultipleObjectsEx(count, handles, static_cast<DWORD>(deadline - now), QS_ALLINPUT,
                                                   MWMO_INPUTAVAILABLE);
    if (wait == WAIT_OBJECT_0) return kServerClean;
    if (wait == WAIT_OBJECT_0 + 1 && client) return kServerClientGone;
    if (wait == WAIT_OBJECT_0 + count) {
      DispatchWaitingMessages();
      continue;
    }
    if (wait == WAIT_TIMEOUT) return kServerDeadline;
    return kServerWaitFailed;
  }
}

// After the classes are revoked, the releases of the client's last references may still be on their way: they
// are served for a moment before the objects still alive count as leaked.
bool AllReleased(const ostrel::sim::SimulatedPhotoshop& photoshop, ULONGLONG graceMs) {
  const ULONGLONG until = GetTickCount64() + graceMs;
  for (;;) {
    DispatchWaitingMessages();
    if (photoshop.LiveObjects() == 0 && ostrel::testing::ComBridge::LiveObjects() == 0) return true;
    if (GetTickCount64() >= until) return false;
    MsgWaitForMultipleObjectsEx(0, nullptr, 20, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

int Run(int argc, wchar_t** argv) {
  if (argc != 6) {
    std::fwprintf(stderr, L"usage: ostrel_photoshop_server SCENARIO.json TAG CLIENT_PID DEADLINE_SECONDS sta|mta\n");
    return kServerUsage;
  }
  const std::wstring tag = argv[2];
  const DWORD clientId = static_cast<DWORD>(std::wcstoul(argv[3], nullptr, 10));
  const ULONGLONG deadline = GetTickCount64() + 1000ULL * std::wcstoul(argv[4], nullptr, 10);
  const std::wstring apartment = argv[5];
  if (apartment != L"sta" && apartment != L"mta") {
    std::fwprintf(stderr, L"ostrel_photoshop_server: the apartment is sta or mta, not %ls\n", apartment.c_str());
    return kServerUsage;
  }
  const Handle ready(OpenEventW(EVENT_MODIFY_STATE, FALSE, ServerEventName(tag, L"ready").c_str()));
  const Handle stop(OpenEventW(SYNCHRONIZE, FALSE, ServerEventName(tag, L"stop").c_str()));
  if (!ready || !stop) {
    std::fwprintf(stderr, L"ostrel_photoshop_server: no events for the tag %ls\n", tag.c_str());
    return kServerUsage;
  }
  const Handle client(OpenProcess(SYNCHRONIZE, FALSE, clientId));  // none: only the deadline ends a lost server

  const ostrel::win32::ComInit com(apartment == L"sta" ? COINIT_APARTMENTTHREADED : COINIT_MULTITHREADED);
  if (FAILED(com.Result())) return kServerNoRegistration;
  std::optional<ostrel::sim::SimulatedPhotoshop> photoshop;
  try {
    photoshop.emplace(ostrel::sim::SimulatedPhotoshop::FromFile(argv[1]));
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "ostrel_photoshop_server: %s\n", failure.what());
    return kServerNoScenario;
  }
  ServerExit reason = kServerClean;
  {
    ostrel::testing::ComBridge bridge(*photoshop, ostrel::testing::kProgIds130, CLSCTX_LOCAL_SERVER);
    if (!bridge.AllRegistered()) return kServerNoRegistration;
    SetEvent(ready.Get());
    reason = Serve(stop.Get(), client.Get(), deadline);
  }
  if (reason == kServerClean && !AllReleased(*photoshop, 1000)) reason = kServerObjectsAlive;
  return reason;
}

}  // namespace

int main() {
  int argc = 0;
  wchar_t** argv = CommandLineToArgvW(GetCommandLineW(), &argc);
  const ostrel::win32::LocalMemory arguments(argv);
  if (!argv) return kServerUsage;
  try {
    return Run(argc, argv);
  } catch (...) {  // nothing the server does throws by design; a surprise ends it as a failed wait would
    return kServerWaitFailed;
  }
}
