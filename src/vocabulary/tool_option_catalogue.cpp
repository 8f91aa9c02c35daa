// The tool option catalogue: for every option id its owner tool, kind, descriptor key and unit.
#include "vocabulary/tool_option_catalogue.h"

#include <algorithm>
#include <iterator>


namespace ostrel {
namespace {

constexpr ToolOption kToolOptions[] = {
#define OSTREL_TOOL_OPTION(id, owner, kind, key, unit) {id, owner, kind, key, unit},
#include "vocabulary/tool_options.def"
};

constexpr bool IdsAscend() {
  return std::adjacent_find(std::begin(kToolOptions), std::end(kToolOptions),
                            [](const ToolOption& a, const ToolOption& b) { return a.nId >= b.nId; }) ==
         std::end(kToolOptions);
}

static_assert(std::size(kToolOptions) == 643, "the catalogue has 643 options");
static_assert(IdsAscend(), "the rows stand in ascending order of the ids, each id once");

}  // namespace

std::span<const ToolOption> ToolOptionCatalogue() noexcept { return kToolOptions; }

const ToolOption* FindToolOption(long long id) noexcept {
  const auto* it = std::lower_bound(std::begin(kToolOptions), std::end(kToolOptions), id,
                                    [](const ToolOption& option, long long wanted) { return option.nId < wanted; });
  return it != std::end(kToolOptions) && it->nId == id ? it : nullptr;
}

int ToolOptionOwner(long long id) noexcept {
  const ToolOption* option = FindToolOption(id);
  return option ? option->nOwner : -1;
}

int ToolOptionKind(long long id) noexcept {
  const ToolOption* option = FindToolOption(id);
  return option ? option->nKind : -1;
}

std::wstring ToolOptionKey(long long id) {
  const ToolOption* option = FindToolOption(id);
  return option ? option->szKey : L"";
}

std::wstring ToolOptionUnit(long long id) {
  const ToolOption* option = FindToolOption(id);
  return option ? option->szUnit : L"";
}

}  // namespace ostrel
