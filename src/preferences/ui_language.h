// The interface language of the running Photoshop. Runs connected, under the connection's lock; a failed call
// throws to the export boundary, which gives "".
#pragma once

#include <string>

namespace ostrel {

std::wstring RunningUiLanguage();

}  // namespace ostrel
