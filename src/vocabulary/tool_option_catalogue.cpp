// The tool option catalogue: for every option id its owner tool, kind, descriptor key and unit.
#include "vocabulary/tool_option_catalogue.h"

#include <algorithm>
#include <iterator>

#include "frame/guard.h"

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

using ostrel::Guarded;

OSTREL_API EnToolIndex Ostrel_ToolFeaturesIDToToolIndex(EnToolFeatures nID) noexcept {
  return Guarded(EnToolIndex{-1}, [&] { return EnToolIndex{ostrel::ToolOptionOwner(nID)}; });
}

OSTREL_API EnToolFearuesType Ostrel_GetToolFeaturesType(EnToolFeatures nID) noexcept {
  return Guarded(EnToolFearuesType{-1}, [&] { return EnToolFearuesType{ostrel::ToolOptionKind(nID)}; });
}

OSTREL_API std::wstring Ostrel_ToolFeaturesToStringID(unsigned int nID) noexcept {
  return Guarded(std::wstring(), [&] { return ostrel::ToolOptionKey(nID); });
}

OSTREL_API std::wstring Ostrel_GetToolFeaturesValueUnits(EnToolFeatures nID) noexcept {
  return Guarded(std::wstring(), [&] { return ostrel::ToolOptionUnit(nID); });
}

OSTREL_API int Ostrel_SetToolFeatures(EnToolFeatures, int) noexcept {
  return Guarded(1, [] { return 1; });
}
