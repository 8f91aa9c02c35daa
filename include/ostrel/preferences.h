// Photoshop's preferences: the interface language of the running Photoshop.
#pragma once

#include <string>

#include "ostrel/export.h"

// The interface language of the running Photoshop ("zh_CN", "en_US", ...); "" when not connected and on failure.
OSTREL_API std::wstring Ostrel_GetUiLanguage() noexcept;
