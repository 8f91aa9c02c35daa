// The checked parse behind the lesson checker: which understood lines name something a vocabulary doesn't know.
#include "script/checked_parse.h"

#include <gtest/gtest.h>

#include "ostrel/OstrelCore.h"
#include "platform/text.h"

namespace ostrel {
namespace {

struct CheckedCase {
  const wchar_t* line;
  int result;
  bool emptyName;
};

// An understood line holds an empty vocabulary name exactly when one of its codes is unknown; free text that
// happens to be empty is no empty name.
constexpr CheckedCase kCases[] = {
    {L"TOOL,5", 1, false},
    {L"TOOL,69", 1, true},           // no tool 69
    {L"TOOL,-1", 1, false},          // the no-tool row has a name
    {L"CANVAS,2303", 1, false},
    {L"CANVAS,5", 1, true},
    {L"CANVAS_MENU,15", 1, true},
    {L"CANVAS_MENU,58", 1, false},
    {L"CANVAS_SUBMIT", 1, false},
    {L"SHORTCUT_KEY,42", 1, true},
    {L"SHORTCUT_KEY,107", 1, false},
    {L"VERBOSE,1,", 1, false},       // an empty gradient name is recorded text, not a lookup
    {L"VERBOSE,3,8,", 1, false},     // the section is unknown but the control is found
    {L"VERBOSE,3,99,7", 1, true},
    {L"VERBOSE,4,2048", 1, true},
    {L"VERBOSE,5,99", 1, true},
    {L"VERBOSE,10,15", 1, true},
    {L"VERBOSE,20,0,5", 1, true},
    {L"VERBOSE,20,1", 1, false},
    {L"LAYER,4,1", 1, false},
    {L"LAYER,4,99", 1, true},        // unknown blend mode
    {L"LAYER,6,75", 1, false},
    {L"LAYER,18,99,7", 1, true},     // unknown menu entry in the title
    {L"FILE,2,a,1", 1, false},
    {L"FILE,2,a,9", 1, true},        // unknown file type
    {L"ADJUST_LAYER,99", 1, true},
    {L"REF_LINE,0,5", 1, false},
    {L"TOOLL,5", 0, false},
    {L"LAYER,5,1", 0, false},
};

TEST(CheckedParseTest, CountsEmptyNamesOfTheRows) {
  Ostrel_Init();
  for (const CheckedCase& c : kCases) {
    SCOPED_TRACE(ToUtf8(c.line));
    tagVantoScript checked, plain;
    const CheckedParse parse = ParseScriptChecked(c.line, checked);
    EXPECT_EQ(parse.nResult, c.result);
    EXPECT_EQ(parse.nEmptyNames > 0, c.emptyName);
    // The checked parse gives what the export gives.
    EXPECT_EQ(Ostrel_ParseScript(std::wstring(c.line), plain), parse.nResult);
    EXPECT_EQ(plain.strTitle, checked.strTitle);
    EXPECT_EQ(plain.strDetail, checked.strDetail);
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
