// ProgIDs by the scenario's versions, and the system's texts of result codes.
#include <gtest/gtest.h>

#include "platform/text.h"
#include "sim_test_support.h"
#include "simulator/photoshop.h"

namespace ostrel::sim {
namespace {

using namespace test;

int32_t CreateCode(SimulatedPhotoshop& ps, const std::wstring& progId) {
  return FailureCode([&] { ps.Create(progId); });
}

TEST(ConnectionTest, OnlyReachableVersionsCanBeCreated) {
  auto ps = Example("only_130.json");
  for (const wchar_t* kind : {L"Application", L"ActionDescriptor", L"ActionReference"}) {
    const std::wstring prefix = std::wstring(L"Photoshop.") + kind + L".";
    SCOPED_TRACE(ToUtf8(prefix));
    EXPECT_EQ(CreateCode(ps, prefix + L"130"), 0);
    for (const wchar_t* other : {L"110", L"120", L"140", L"150", L"13", L"1300"}) {
      EXPECT_EQ(CreateCode(ps, prefix + other), kCoEClassString);
    }
  }
  EXPECT_EQ(CreateCode(ps, L"photoshop.application.130"), 0);  // ProgIDs ignore case
  EXPECT_EQ(CreateCode(ps, L"Photoshop.Application"), 0);
  EXPECT_EQ(CreateCode(ps, L"Photoshop.Document.130"), kCoEClassString);
  EXPECT_EQ(ps.CreatedVersion(), 130);
  EXPECT_EQ(ps.LiveObjects(), 0);
  // Installed but not starting is an execution failure.
  auto nothing = Example("nothing_reachable.json");
  EXPECT_EQ(CreateCode(nothing, L"Photoshop.Application.150"), kCoEServerExecFailure);
  EXPECT_EQ(CreateCode(nothing, L"Photoshop.Application.110"), kCoEClassString);
  EXPECT_EQ(CreateCode(nothing, L"Photoshop.Application"), kCoEClassString);
}

TEST(ConnectionTest, VersionFollowsTheVersionCreated) {
  auto ps = FromText(R"({"versions": [110, 140]})");
  EXPECT_EQ(Get(ps.Create(L"Photoshop.Application.140"), da::kVersion).AsBstr(), L"21.0.0");
  EXPECT_EQ(Get(ps.Create(L"Photoshop.Application.110"), da::kVersion).AsBstr(), L"18.0.0");
}

TEST(ConnectionTest, InitializeAndErrorTexts) {
  auto ps = FromText("{}");
  EXPECT_EQ(ps.Initialize(), kSOk);
  EXPECT_EQ(ps.Initialize(), 1);  // S_FALSE: already initialized
  EXPECT_EQ(ps.ErrorMessage(kSOk), L"The operation completed successfully.");
  EXPECT_EQ(ps.ErrorMessage(kCoEClassString), L"Invalid class string");
  EXPECT_EQ(ps.ErrorMessage(kCoEServerExecFailure), L"Server execution failed");
  EXPECT_EQ(ps.ErrorMessage(kDispEException), L"Exception occurred.");
  for (int32_t code : {kDispENotFound, kEFail}) {
    EXPECT_FALSE(ps.ErrorMessage(code).empty());
    EXPECT_EQ(ps.ErrorMessage(code).find_first_of(L"\r\n"), std::wstring::npos);
  }
}

}  // namespace
}  // namespace ostrel::sim
