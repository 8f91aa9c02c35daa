// The checked parse behind the lesson checker: which understood lines name something a vocabulary doesn't know.
#include "script/checked_parse.h"

#include <gtest/gtest.h>

#include "ostrel/OstrelCore.h"
#include "script_test_support.h"

namespace ostrel {
namespace {

struct CheckedCase {
  const wchar_t* line;
  bool emptyName;
};

// An understood line holds an empty vocabulary name exactly when one of its codes is unknown; free text that
// happens to be empty is no empty name. One unknown code for every row that looks a name up.
constexpr CheckedCase kCases[] = {
    {L"TOOL,5", false},
    {L"TOOL,69", true},  // no tool 69
    {L"CANVAS,5", true},
    {L"CANVAS_MENU,15", true},
    {L"SHORTCUT_KEY,42", true},
    {L"VERBOSE,1,", false},  // an empty gradient name is recorded text, not a lookup
    {L"VERBOSE,3,8,", false},  // the section is unknown but the control is found
    {L"VERBOSE,3,99,7", true},
    {L"VERBOSE,4,2048", true},
    {L"VERBOSE,5,99", true},
    {L"VERBOSE,10,15", true},
    {L"VERBOSE,20,0,5", true},
    {L"LAYER,4,99", true},  // unknown blend mode
    {L"LAYER,6,75", false},
    {L"LAYER,18,99,7", true},  // unknown menu entry in the title
    {L"FILE,2,a,9", true},  // unknown file type
    {L"ADJUST_LAYER,99", true},
    {L"REF_LINE,0,5", false},
    {L"TOOLL,5", false},  // not understood
};

TEST(CheckedParseTest, CountsEmptyNamesOfTheRowsAndGivesWhatTheExportGives) {
  Ostrel_Init();
  for (const CheckedCase& c : kCases) {
    SCOPED_TRACE(ToUtf8(c.line));
    tagVantoScript checked{L"old", L"old"};
    const CheckedParse parse = ParseScriptChecked(c.line, checked);
    EXPECT_EQ(parse.nEmptyNames > 0, c.emptyName);
    EXPECT_EQ(test_support::ParseLine(c.line),
              (test_support::Parsed{parse.nResult, checked.strTitle, checked.strDetail}));
  }
}

TEST(CheckedParseTest, OnlyTheInnermostOpenWatchCounts) {
  EXPECT_EQ(NamedByLookup(L""), L"");  // no watch: nothing to count, nothing breaks
  EmptyNameWatch outer;
  EXPECT_EQ(NamedByLookup(L"名字"), L"名字");
  NamedByLookup(L"");
  {
    EmptyNameWatch inner;
    NamedByLookup(L"");
    NamedByLookup(L"");
    EXPECT_EQ(inner.EmptyNames(), 2);
  }
  NamedByLookup(L"");
  EXPECT_EQ(outer.EmptyNames(), 2);
}

}  // namespace
}  // namespace ostrel
