// The backends of the system the library was built for. On Windows they are the real automation (COM), the
// system's code page converter, ini files through the profile functions, the registry and the clock; elsewhere
// the portable backends stay in place.
#pragma once

#include "platform/platform.h"

namespace ostrel {

// Replaces the members of platform for which this system has backends of its own.
void InstallSystemBackends(Platform& platform);

}  // namespace ostrel
