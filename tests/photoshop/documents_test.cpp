// The document, history and application reads and commands against the simulated Photoshop: the numbering of
// history positions, sizes cut towards zero, what "none" looks like, and what the list readers do to the
// caller's vector.
#include "photoshop/documents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>

#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "connected_photoshop.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

class DocumentsTest : public test::ConnectedPhotoshopTest {
 protected:
  sim::DocumentState& Document() { return m_photoshop->state().documents.front(); }
};

TEST_F(DocumentsTest, HistoryPositionsCountFromOne) {
  Connect();
  const int count = Ostrel_GetHistoryCount();
  ASSERT_GE(count, 2);
  std::vector<std::wstring> names;
  ASSERT_EQ(Ostrel_GetHistoryList(names), 1);
  ASSERT_EQ(names.size(), static_cast<size_t>(count));
  EXPECT_EQ(Ostrel_GetHistoryName(1), names.front());
  EXPECT_EQ(Ostrel_GetHistoryName(count), names.back());
  EXPECT_EQ(Ostrel_GetHistoryName(0), L"");
  EXPECT_EQ(Ostrel_GetHistoryName(count + 1), L"");

  EXPECT_EQ(Ostrel_JumpHistory(0), 0);
  EXPECT_EQ(Ostrel_JumpHistory(1), 1);
  EXPECT_EQ(Ostrel_GetCurrentHistoryIndex(), 1);
  EXPECT_EQ(Ostrel_GetCurrentHistoryName(), names.front());
  EXPECT_EQ(Ostrel_JumpHistory(count), 1);
  EXPECT_EQ(Ostrel_GetCurrentHistoryIndex(), count);
}

TEST_F(DocumentsTest, WithoutADocumentNoneComesBack) {
  Connect("only_130.json");
  EXPECT_EQ(Ostrel_GetDocumentCount(), 0);  // a real count: there are none
  EXPECT_EQ(Ostrel_GetHistoryCount(), -1);  // no history to count
  EXPECT_EQ(Ostrel_GetCurrentHistoryIndex(), -1);
  EXPECT_EQ(Ostrel_GetCurrentDocumentName(), L"");
  const tagSIZE size = Ostrel_GetCurrentCanvasSize();
  EXPECT_EQ(size.cx, 0);
  EXPECT_EQ(size.cy, 0);
  std::vector<std::wstring> names{L"stale"};
  EXPECT_EQ(Ostrel_GetHistoryList(names), 0);
  EXPECT_TRUE(names.empty());  // emptied before anything else
  std::wstring source = L"stale";
  EXPECT_EQ(Ostrel_GetHistroryBrushSource(source), 0);
  EXPECT_EQ(source, L"");
}

TEST_F(DocumentsTest, UnconnectedTheHistoryIsEmptiedAndTheWorkspacesKept) {
  Ostrel_UnInit();
  std::vector<std::wstring> history{L"stale"}, workspaces{L"kept"};
  EXPECT_EQ(Ostrel_GetHistoryList(history), 0);
  EXPECT_TRUE(history.empty());
  EXPECT_EQ(Ostrel_GetWorkspaceList(workspaces), 0);
  EXPECT_EQ(workspaces, std::vector<std::wstring>{L"kept"});  // emptied only once the list is read
}

TEST_F(DocumentsTest, CanvasSizesAreCutTowardsZero) {
  Connect();
  const std::pair<double, double> cases[] = {{800.9, 600.2}, {1.999, 0.5}, {2100, 1500}};
  for (const auto& [width, height] : cases) {
    Document().width = width;
    Document().height = height;
    const tagSIZE size = Ostrel_GetCurrentCanvasSize();
    EXPECT_EQ(size.cx, static_cast<long>(width)) << width;
    EXPECT_EQ(size.cy, static_cast<long>(height)) << height;
  }
}

// "No such element" in a Chinese Photoshop means the document has no history brush source: 1 and no name. The
// same answer in English, or any other failure, is 0.
TEST_F(DocumentsTest, HistoryBrushSourceWithoutASourceDependsOnTheLanguage) {
  Connect();
  Document().historyBrushSource = 0;
  std::wstring name = L"stale";
  m_photoshop->state().language = L"zh_CN";
  EXPECT_EQ(Ostrel_GetHistroryBrushSource(name), 1);
  EXPECT_EQ(name, L"");
  m_photoshop->state().language = L"en_US";
  EXPECT_EQ(Ostrel_GetHistroryBrushSource(name), 0);
  Document().historyBrushSource = 1;
  EXPECT_EQ(Ostrel_GetHistroryBrushSource(name), 1);
  EXPECT_EQ(name, Ostrel_GetHistoryName(1));
}

TEST_F(DocumentsTest, WorkspaceListKeepsTheVectorWhenTheReadFailsFirst) {
  Connect();
  std::vector<std::wstring> names{L"kept"};
  m_photoshop->FailMember("executeActionGet");
  EXPECT_EQ(Ostrel_GetWorkspaceList(names), 0);
  EXPECT_EQ(names, std::vector<std::wstring>{L"kept"});
  m_photoshop->ClearFaults();
  EXPECT_EQ(Ostrel_GetWorkspaceList(names), 1);
  EXPECT_FALSE(names.empty());
  EXPECT_EQ(std::count(names.begin(), names.end(), L"kept"), 0);
}

TEST_F(DocumentsTest, SelectionFollowsTheDocument) {
  Connect();
  Document().selection = std::array<double, 4>{1, 2, 30, 40};
  EXPECT_EQ(OSTREL_IsSelection(), 1);
  Document().selection.reset();
  EXPECT_EQ(OSTREL_IsSelection(), 0);
}

}  // namespace
}  // namespace ostrel
