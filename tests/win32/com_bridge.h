// Serves the objects of any automation backend (the simulated Photoshop, a fake) as real COM objects: a class
// factory per ProgID registered in-process with CoRegisterClassObject, the ProgID's CLSID written under
// HKEY_CLASSES_ROOT, and every object reached through a real IDispatch::Invoke with real VARIANTs and BSTRs.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/automation.h"

namespace ostrel::testing {

// The ProgIDs of version 130 (Photoshop CC 2019), the three that a bridge registers for a simulated Photoshop.
inline const std::vector<std::wstring> kProgIds130 = {L"Photoshop.Application.130", L"Photoshop.ActionDescriptor.130",
                                                      L"Photoshop.ActionReference.130"};

class ComBridge {
 public:
  // Registers each ProgID as a COM class whose instances come from backend->Create(progId), for the contexts
  // given (a server of its own process registers for CLSCTX_LOCAL_SERVER only). Any other Photoshop ProgID
  // registered by an earlier run is removed first.
  ComBridge(IAutomation& backend, const std::vector<std::wstring>& progIds,
            DWORD contexts = CLSCTX_LOCAL_SERVER | CLSCTX_INPROC_SERVER);
  ~ComBridge();
  ComBridge(const ComBridge&) = delete;
  ComBridge& operator=(const ComBridge&) = delete;

  // Whether every ProgID was written and its class factory registered.
  bool AllRegistered() const;

  // How many bridge objects (IDispatch wrappers and factories) are alive in this process.
  static long LiveObjects();
  // The thread on which the last call reached a bridge object: the caller's own when the caller is in the
  // apartment that registered the bridge, a thread of that apartment when the call came through a proxy.
  static DWORD LastServingThread();

 private:
  struct Registration {
    std::wstring progId;
    DWORD cookie = 0;
  };
  std::vector<Registration> m_registrations;
  bool m_allRegistered = true;
};

// Removes every Photoshop.* ProgID key under HKEY_CLASSES_ROOT.
void RemovePhotoshopProgIds();

}  // namespace ostrel::testing
