// Off Windows the portable backends are the system's backends.
#if !defined(_WIN32)
#include "platform/system_backends.h"

namespace ostrel {

void InstallSystemBackends(Platform&) {}

}  // namespace ostrel
#endif
