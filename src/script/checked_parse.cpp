// The empty-name watch behind the lesson checker.
#include "script/checked_parse.h"

namespace ostrel {
namespace {

// The innermost open watch of this thread, or nullptr. Only a checker opens one, for the length of one line.
thread_local EmptyNameWatch* tCurrentWatch = nullptr;

}  // namespace

EmptyNameWatch::EmptyNameWatch() noexcept : m_outer(tCurrentWatch) { tCurrentWatch = this; }

EmptyNameWatch::~EmptyNameWatch() { tCurrentWatch = m_outer; }

std::wstring NamedByLookup(std::wstring name) {
  if (name.empty() && tCurrentWatch != nullptr) tCurrentWatch->Count();
  return name;
}

CheckedParse ParseScriptChecked(std::wstring_view line, tagVantoScript& script) {
  EmptyNameWatch watch;
  const int result = DispatchScript(SplitLine(line), script);
  return {result, watch.EmptyNames()};
}

}  // namespace ostrel
