// The simulated Photoshop served from a second process, as a local COM server, the way the real Photoshop serves
// its objects to the lesson player: the client starts ostrel_photoshop_server, which registers the ProgIDs of
// version 130 with CoRegisterClassObject(CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE) and serves every call through
// Wine's (or Windows') RPC until the client stops it, the client's process ends or its deadline passes.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

#include "platform/win32/holders.h"

namespace ostrel::roundtrip {

// The server's exit codes.
enum ServerExit : DWORD {
  kServerClean = 0,           // stopped by its client, and every object it served had been released
  kServerUsage = 2,           // a bad command line
  kServerNoScenario = 3,      // the scenario could not be read
  kServerNoRegistration = 4,  // COM or the registry refused the classes
  kServerDeadline = 5,        // nobody stopped it before its deadline
  kServerObjectsAlive = 6,    // stopped while its client still held objects
  kServerClientGone = 7,      // the client's process ended without stopping it
  kServerWaitFailed = 8,      // waiting for its events failed
  kServerKilled = 9,          // it didn't stop in time and was terminated (set by the client, not the server)
};

// The apartment that serves the calls: a single-threaded one with a message loop, as Photoshop's main thread, or
// the multithreaded one.
enum class ServerApartment { kSingleThreaded, kMultithreaded };

// The names of the two events by which a client and its server meet: "ready" (the classes are registered) and
// "stop" (the client is done). The tag makes them the client's own.
std::wstring ServerEventName(const std::wstring& tag, const wchar_t* which);

// Handles of events and processes, closed by their owner.
using Handle = win32::UniqueAny<HANDLE, &CloseHandle>;

// One running server process. Going out of scope stops it.
class LocalServer {
 public:
  // Starts the server executable on a scenario and waits until it has registered its classes (readyTimeoutMs at
  // most). The server ends itself after deadlineSeconds, or when the client's process ends (this process unless
  // clientProcessId names another). Nothing, with the reason in error, when it fails to start,
  // exits first or isn't ready in time (a late one is terminated).
  static std::optional<LocalServer> Start(const std::filesystem::path& serverExe, const std::filesystem::path& scenario,
                                          ServerApartment apartment, DWORD deadlineSeconds, std::wstring& error,
                                          DWORD readyTimeoutMs = 20000, DWORD clientProcessId = 0);
  LocalServer(LocalServer&&) noexcept = default;
  LocalServer& operator=(LocalServer&&) noexcept = default;
  ~LocalServer();

  // Tells the server that the client is done and waits for it to exit, terminating it after timeoutMs. Gives its
  // exit code (a ServerExit); a second call gives the same.
  DWORD Stop(DWORD timeoutMs = 10000);
  // Waits for the server to exit by itself, without telling it to stop, and gives its exit code; kServerKilled
  // when it was still running after timeoutMs (it is terminated then).
  DWORD WaitForExit(DWORD timeoutMs);
  // The server's process id while it runs.
  DWORD ProcessId() const noexcept { return m_processId; }

 private:
  LocalServer() = default;
  Handle m_process;
  Handle m_stop;
  DWORD m_processId = 0;
  std::optional<DWORD> m_exitCode;
};

// The server executable beside the running one (both are built into the same folder).
std::filesystem::path ServerBesideThisProgram();

// A server's exit code in words, for messages.
std::wstring DescribeServerExit(DWORD code);

}  // namespace ostrel::roundtrip
