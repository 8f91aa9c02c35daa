// Starting and stopping the local COM server process of the simulated Photoshop.
#include "local_server.h"

#include <atomic>
#include <vector>

namespace ostrel::roundtrip {
namespace {

// A tag no other client of this machine uses at the same time: the process id and a count within the process.
std::wstring NewTag() {
  static std::atomic<unsigned> next{0};
  return std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++next);
}

std::wstring Quoted(const std::wstring& text) {
  return L"\"" + text + L"\"";
}

}  // namespace

std::wstring ServerEventName(const std::wstring& tag, const wchar_t* which) {
  return L"Local\\ostrel-photoshop-server-" + tag + L"-" + which;
}

std::optional<LocalServer> LocalServer::Start(const std::filesystem::path& serverExe,
                                              const std::filesystem::path& scenario, ServerApartment apartment,
                                              DWORD deadlineSeconds, std::wstring& error, DWORD readyTimeoutMs,
                                              DWORD clientProcessId) {
  LocalServer server;
  const std::wstring tag = NewTag();
  // Both events exist before the server starts, so that neither side can miss the other's signal.
  const Handle ready(CreateEventW(nullptr, TRUE, FALSE, ServerEventName(tag, L"ready").c_str()));
  server.m_stop = Handle(CreateEventW(nullptr, TRUE, FALSE, ServerEventName(tag, L"stop").c_str()));
  if (!ready || !server.m_stop) {
    error = L"CreateEventW failed (" + std::to_wstring(GetLastError()) + L")";
    return std::nullopt;
  }
  std::wstring commandLine = Quoted(serverExe.wstring()) + L" " + Quoted(scenario.wstring()) + L" " + tag + L" " +
                             std::to_wstring(clientProcessId ? clientProcessId : GetCurrentProcessId()) + L" " +
                             std::to_wstring(deadlineSeconds) +
                             (apartment == ServerApartment::kSingleThreaded ? L" sta" : L" mta");
  std::vector<wchar_t> writable(commandLine.begin(), commandLine.end());
  writable.push_back(L'\0');
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(serverExe.wstring().c_str(), writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &process)) {
    error = L"cannot start " + serverExe.wstring() + L" (" + std::to_wstring(GetLastError()) + L")";
    return std::nullopt;
  }
  const Handle thread(process.hThread);
  server.m_process = Handle(process.hProcess);
  server.m_processId = process.dwProcessId;

  const HANDLE waitFor[] = {ready.Get(), server.m_process.Get()};
  const DWORD wait = WaitForMultipleObjects(2, waitFor, FALSE, readyTimeoutMs);
  if (wait == WAIT_OBJECT_0) return server;
  if (wait == WAIT_OBJECT_0 + 1) {
    const DWORD code = server.WaitForExit(0);
    error = L"the server exited before it was ready: " + DescribeServerExit(code);
  } else {
    server.WaitForExit(0);  // terminates it
    error = L"the server was not ready within " + std::to_wstring(readyTimeoutMs) + L" ms";
  }
  return std::nullopt;
}

LocalServer::~LocalServer() {
  if (m_process) Stop();
}

DWORD LocalServer::Stop(DWORD timeoutMs) {
  if (m_exitCode) return *m_exitCode;
  if (m_stop) SetEvent(m_stop.Get());
  return WaitForExit(timeoutMs);
}

DWORD LocalServer::WaitForExit(DWORD timeoutMs) {
  if (m_exitCode) return *m_exitCode;
  if (!m_process) return kServerKilled;
  DWORD code = kServerKilled;
  if (WaitForSingleObject(m_process.Get(), timeoutMs) == WAIT_OBJECT_0) {
    if (!GetExitCodeProcess(m_process.Get(), &code)) code = kServerKilled;
  } else {
    TerminateProcess(m_process.Get(), kServerKilled);
    WaitForSingleObject(m_process.Get(), 5000);
  }
  m_exitCode = code;
  m_process.Reset();
  return code;
}

std::filesystem::path ServerBesideThisProgram() {
  std::vector<wchar_t> name(MAX_PATH);
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    if (length < name.size()) {
      return std::filesystem::path(std::wstring(name.data(), length)).parent_path() / L"ostrel_photoshop_server.exe";
    }
    name.resize(name.size() * 2);
  }
}

std::wstring DescribeServerExit(DWORD code) {
  switch (code) {
    case kServerClean:
      return L"stopped cleanly";
    case kServerUsage:
      return L"bad command line";
    case kServerNoScenario:
      return L"the scenario could not be read";
    case kServerNoRegistration:
      return L"the classes could not be registered";
    case kServerDeadline:
      return L"its deadline passed";
    case kServerObjectsAlive:
      return L"objects were still alive when it was stopped";
    case kServerClientGone:
      return L"its client ended without stopping it";
    case kServerWaitFailed:
      return L"waiting for its events failed";
    case kServerKilled:
      return L"terminated: it did not exit in time";
    default:
      return L"exit code " + std::to_wstring(code);
  }
}

}  // namespace ostrel::roundtrip
