// Script lines and the steps they give, checked through the dispatcher on a record with old content.
#pragma once

#include <gtest/gtest.h>

#include <span>
#include <string>

#include "ostrel/script.h"
#include "platform/text.h"

namespace ostrel::test_support {

struct LineCase {
  const wchar_t* line;
  int result;
  const wchar_t* title;
  const wchar_t* detail;
};

inline void ExpectSteps(std::span<const LineCase> cases) {
  for (const LineCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.line));
    tagVantoScript script{L"old", L"old"};
    EXPECT_EQ(Ostrel_ParseScript(std::wstring(c.line), script), c.result);
    EXPECT_EQ(script.strTitle, c.title);
    EXPECT_EQ(script.strDetail, c.detail);
  }
}

}  // namespace ostrel::test_support
