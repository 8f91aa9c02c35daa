// The example lesson of layers and menus: every line of it is a step the library understands, with every
// place of its sentence filled and every name it looks up known to its table.
#include <gtest/gtest.h>

#include <string>

#include "lesson.h"
#include "ostrel/OstrelCore.h"
#include "platform/text.h"

namespace ostrel::cli {
namespace {

TEST(ExampleLessons, LayersAndMenusLessonIsUnderstoodLineByLine) {
  Ostrel_Init();
  const auto lines = ReadLesson(OSTREL_EXAMPLES_DIR "/lessons/layers_and_menus.lesson");
  ASSERT_TRUE(lines.has_value());
  EXPECT_GE(lines->size(), 62u);  // at least one line for each LAYER sub-command
  for (const std::wstring& line : *lines) {
    SCOPED_TRACE(ToUtf8(line));
    tagVantoScript script;
    EXPECT_EQ(Ostrel_ParseScript(line, script), 1);
    EXPECT_FALSE(script.strTitle.empty());
    EXPECT_EQ(script.strDetail.find(L"%s"), std::wstring::npos);
    EXPECT_EQ(script.strDetail.find(L"%%"), std::wstring::npos);
    EXPECT_EQ(script.strDetail.find(L"【】"), std::wstring::npos);  // no lookup came back empty
    EXPECT_EQ(script.strDetail.find(L"[]"), std::wstring::npos);
  }
}

}  // namespace
}  // namespace ostrel::cli
