// Module lifecycle: Ostrel_Init builds the vocabulary tables and connects; Ostrel_UnInit lets go of Photoshop.
#include "frame/lifecycle.h"

#include <algorithm>
#include <iterator>

#include "frame/connection.h"
#include "platform/portable/portable_backends.h"
#include "vocabulary/layer_filter_table.h"
#include "vocabulary/tool_table.h"
#include "vocabulary/top_menu_table.h"

namespace ostrel {

int InitLibrary() {
  BuildToolTable();  // whether or not Photoshop can be reached
  BuildTopMenuTable();
  BuildLayerFilterTable();
  return ConnectPhotoshop();
}

void UnInitLibrary() { ReleasePhotoshop(); }

namespace {

// The keys the library asks its host for.
constexpr EnTallyKey kKnownKeys[] = {
    EnTallyKey::kCameraRawMainTabImages, EnTallyKey::kCameraRawSubTabImages, EnTallyKey::kLogDirectory,
    EnTallyKey::kBarSizesFile,           EnTallyKey::kPhotoshopVersionName,
};

bool IsKnownKey(int key) noexcept {
  return std::find(std::begin(kKnownKeys), std::end(kKnownKeys), static_cast<EnTallyKey>(key)) !=
         std::end(kKnownKeys);
}

}  // namespace

int SetHostParameter(int key, const wchar_t* value) {
  if (!IsKnownKey(key)) return 0;  // a key the library never asks for: nothing to set
  if (value == nullptr) {
    DefaultParameters().Erase(static_cast<EnTallyKey>(key));
  } else {
    DefaultParameters().Set(static_cast<EnTallyKey>(key), value);
  }
  return 1;
}

}  // namespace ostrel
