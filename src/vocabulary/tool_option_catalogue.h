// The tool option catalogue as the rest of the library sees it: constant rows, one per option id.
#pragma once

#include <span>
#include <string>

#include "ostrel/tool_options.h"

namespace ostrel {

// One option of the tool options bar.
struct ToolOption {
  int nId;                // EnToolFeatures
  int nOwner;             // EnToolIndex of the owner tool; -1 for none, 69 for free transform
  int nKind;              // EnToolFearuesType
  const wchar_t* szKey;   // key of the value in the tool options descriptor; empty if it can't be read
  const wchar_t* szUnit;  // unit shown behind the value; empty for none
};

// Every option, in ascending order of the ids.
std::span<const ToolOption> ToolOptionCatalogue() noexcept;

// The option with this id, or nullptr. The id is wide enough for both a signed and an unsigned 32-bit argument.
const ToolOption* FindToolOption(long long id) noexcept;

// The lookups of the exports: -1 or the empty string for a number that is no option.
int ToolOptionOwner(long long id) noexcept;
int ToolOptionKind(long long id) noexcept;
std::wstring ToolOptionKey(long long id);
std::wstring ToolOptionUnit(long long id);

// Writing an option isn't offered: the request is taken and ignored, and the answer is 1.
inline int IgnoreToolOptionWrite(int /*id*/, int /*value*/) noexcept { return 1; }

}  // namespace ostrel
