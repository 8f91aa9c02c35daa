// The one connection to Photoshop: the application object, the ProgID strings of the version reached, and the
// connecting and releasing steps of Ostrel_Init and Ostrel_UnInit.
#pragma once

#include <mutex>
#include <string>

#include "frame/dispatch_driver.h"

namespace ostrel {

// The lock of the connection state (the application object and the ProgID strings). Connecting, releasing, the
// idle check and every read or command of Photoshop hold it, so a lesson player may poll Ostrel_IsServiceIdle from
// a timer thread while its UI thread reads. Recursive, so that one export may run another's body.
std::recursive_mutex& ConnectionMutex() noexcept;

// The application object; empty when not connected. Used under ConnectionMutex().
COleDispatchDriver& Application() noexcept;
inline bool IsConnected() noexcept { return !Application().IsEmpty(); }

// The ProgIDs from which every ActionDescriptor and ActionReference is made, and the application's.
const std::wstring& ApplicationProgID() noexcept;
const std::wstring& DescriptorProgID() noexcept;
const std::wstring& ReferenceProgID() noexcept;

// The version code ("110" to "150") of a version name; "110" for any name not in the table.
std::wstring VersionCodeOf(const std::wstring& versionName);

// Connects, trying the named version first and then every version in order, in two passes at the most.
// 1 if connected afterwards, else 0. Logs its steps.
int ConnectPhotoshop();

// Lets go of the connection, if any.
void ReleasePhotoshop();

// 1 if Photoshop answers a call now: its visibility reads true, or its version reads non-empty; else 0, with a
// log line. Called connected, under ConnectionMutex(); a failed read throws to the caller.
int ServiceIdle();

}  // namespace ostrel
