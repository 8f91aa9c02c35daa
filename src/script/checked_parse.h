// Parsing a line for a lesson checker: the dispatcher's result together with the number of vocabulary names in
// the sentence that came back empty, so that a checker can tell "understood, but a code of the line is unknown"
// from the rows themselves instead of guessing it from the sentence's text.
#pragma once

#include <string>
#include <string_view>

#include "ostrel/script.h"
#include "script/rows.h"

namespace ostrel {

// Every name that a row takes from a vocabulary lookup and puts into its record passes through here. It hands
// the name back unchanged; while an EmptyNameWatch is open on this thread, an empty name is also counted.
std::wstring NamedByLookup(std::wstring name);

// Counts the empty names of the rows run on this thread while it lives. Watches nest: only the innermost
// counts. Outside every watch NamedByLookup does nothing but hand the name back.
class EmptyNameWatch {
 public:
  EmptyNameWatch() noexcept;
  ~EmptyNameWatch();
  EmptyNameWatch(const EmptyNameWatch&) = delete;
  EmptyNameWatch& operator=(const EmptyNameWatch&) = delete;

  int EmptyNames() const noexcept { return m_nEmptyNames; }
  void Count() noexcept { ++m_nEmptyNames; }

 private:
  int m_nEmptyNames = 0;
  EmptyNameWatch* m_outer;
};

struct CheckedParse {
  int nResult;      // what Ostrel_ParseScript gives for the line
  int nEmptyNames;  // vocabulary names in the record that came back empty
};

// Splits the line and runs the dispatcher on it, as Ostrel_ParseScript does, watching for empty names.
CheckedParse ParseScriptChecked(std::wstring_view line, tagVantoScript& script);

}  // namespace ostrel
