// The one connection to Photoshop: the application object, the ProgID strings of the version reached, and the
// connecting and releasing steps of Ostrel_Init and Ostrel_UnInit.
#pragma once

#include <string>

#include "frame/dispatch_driver.h"

namespace ostrel {

// The application object; empty when not connected.
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
void ReleasePhotoshop() noexcept;

}  // namespace ostrel
