// OstrelCore: the whole exported interface.
#pragma once

#include "ostrel/export.h"
#include "ostrel/lifecycle.h"
#include "ostrel/script.h"
#include "ostrel/tool_options.h"
#include "ostrel/tools.h"
