// Script lines as a lesson player hands them over: every text line of the input through Ostrel_ParseScript and
// through the lesson checker's parse and the parse of its split items, which must agree with it on the result and
// the record.
#include <cstdint>

#include "fuzz_support.h"
#include "ostrel/script.h"
#include "script/checked_parse.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ostrel::fuzz::InitLibraryOnce();
  const std::wstring text = ostrel::fuzz::Text(ostrel::fuzz::Bytes(data, size));
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find(L'\n', start);
    if (end == std::wstring::npos) end = text.size();
    const std::wstring line = text.substr(start, end - start);
    tagVantoScript exported{L"stale", L"stale"};
    const int result = Ostrel_ParseScript(line, exported);
    if (result != 0 && result != 1) ostrel::fuzz::Broken("Ostrel_ParseScript gave neither 0 nor 1");
    // A line not understood may still leave part of the record set, where its row says so (VERBOSE,20 with an
    // unknown step keeps its title, LAYER,13 with an unknown lock its title and first word), so only the result
    // is checked here; the other parses must agree with it on the record.
    tagVantoScript checked;
    const ostrel::CheckedParse parse = ostrel::ParseScriptChecked(line, checked);  // throws: a finding
    if (parse.nResult != result || checked.strTitle != exported.strTitle || checked.strDetail != exported.strDetail) {
      ostrel::fuzz::Broken("the lesson checker's parse differs from Ostrel_ParseScript");
    }
    std::vector<std::wstring> items;
    Ostrel_ParseItem(line, items);
    tagVantoScript fromItems;
    if (Ostrel_ParseScript(items, fromItems) != result || fromItems.strDetail != exported.strDetail) {
      ostrel::fuzz::Broken("parsing the items differs from parsing the line");
    }
    start = end + 1;
  }
  return 0;
}
