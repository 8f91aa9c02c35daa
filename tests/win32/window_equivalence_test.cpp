// The recorded model against real windows: every tree is built as real windows on a thread of their own, and
// every query of the window tree interface is asked of both, on every window, and must give the same window
// (mapped) and the same answer.
#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/portable/recorded_windows.h"
#include "platform/text.h"
#include "platform/win32/win32_windows.h"
#include "real_windows.h"
#include "window_trees.h"

namespace ostrel {
namespace {

using test::NamedTree;
using test::RealWindows;

std::string Rect(const WindowRect& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
         std::to_string(rect.bottom);
}

// The two sides of one tree, and the comparisons of their answers.
class BothSides {
 public:
  BothSides(test::WindowThread& thread, const NamedTree& named)
      : model(named.tree), real(thread, named.tree), places(test::PlacesOf(named.tree)) {}

  std::string Name(WindowHandle recorded) const {
    if (recorded == 0) return "the null handle";
    const auto place = places.find(recorded);
    return place == places.end() ? "hwnd " + std::to_string(recorded) : place->second;
  }
  // The real answer, as a recorded handle: a window that wasn't built from the tree fails here.
  void ExpectSameWindow(WindowHandle fromModel, WindowHandle fromReal, const std::string& what) const {
    const std::optional<WindowHandle> mapped = real.RecordedOf(fromReal);
    ASSERT_TRUE(mapped.has_value()) << what << ": Windows answered a window not built from the tree";
    EXPECT_EQ(*mapped, fromModel) << what << ": the model gives " << Name(fromModel) << ", Windows " << Name(*mapped);
  }
  void ExpectSameList(const std::vector<WindowHandle>& fromModel, const std::vector<WindowHandle>& fromReal,
                      const std::string& what) const {
    std::vector<WindowHandle> mapped;
    for (WindowHandle window : fromReal) mapped.push_back(real.RecordedOf(window).value_or(0xFFFFFFFFu));
    EXPECT_EQ(mapped, fromModel) << what;
  }

  RecordedWindows model;
  RealWindows real;
  win32::Win32WindowTree live;
  std::unordered_map<WindowHandle, std::string> places;
};

std::set<std::wstring> ClassesOf(const std::vector<RecordedWindow>& windows, std::set<std::wstring> into = {}) {
  for (const RecordedWindow& window : windows) {
    into.insert(window.className);
    into = ClassesOf(window.children, std::move(into));
  }
  return into;
}

// The text with the case of every ASCII letter turned over: Windows compares window titles and class names
// without regard to case.
std::wstring OtherCase(std::wstring text) {
  for (wchar_t& c : text) {
    if (c >= L'a' && c <= L'z') {
      c = static_cast<wchar_t>(c - L'a' + L'A');
    } else if (c >= L'A' && c <= L'Z') {
      c = static_cast<wchar_t>(c - L'A' + L'a');
    }
  }
  return text;
}

class WindowEquivalenceTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { s_trees = new std::vector<NamedTree>(test::TreesToBuild()); }
  static void TearDownTestSuite() {
    delete s_trees;
    s_trees = nullptr;
  }
  static std::vector<NamedTree>* s_trees;
  test::WindowThread m_thread;
};
std::vector<NamedTree>* WindowEquivalenceTest::s_trees = nullptr;

TEST_F(WindowEquivalenceTest, EveryExampleTreeIsThere) {
  // The particular cases and at least one example tree: a missing folder must not pass as "nothing to compare".
  EXPECT_GE(s_trees->size(), 2u);
}

TEST_F(WindowEquivalenceTest, EachQueryOnEachWindowGivesTheSameAnswer) {
  for (const NamedTree& named : *s_trees) {
    SCOPED_TRACE(named.name);
    BothSides both(m_thread, named);
    const std::set<std::wstring> classes = ClassesOf(named.tree.windows);
    std::vector<WindowHandle> handles = both.real.RecordedHandles();
    handles.push_back(0);
    for (WindowHandle window : handles) {
      const WindowHandle live = both.real.RealOf(window);
      const std::string name = both.Name(window);
      both.ExpectSameWindow(both.model.ParentOf(window), both.live.ParentOf(live), "GetParent of " + name);
      EXPECT_EQ(both.model.IsVisible(window), both.live.IsVisible(live)) << "IsWindowVisible of " << name;
      WindowRect fromModel{-1, -1, -1, -1}, fromReal{-1, -1, -1, -1};
      EXPECT_EQ(both.model.RectOf(window, fromModel), both.live.RectOf(live, fromReal)) << name;
      EXPECT_EQ(Rect(fromModel), Rect(fromReal)) << "GetWindowRect of " << name;
      EXPECT_EQ(both.model.ClassOf(window), both.live.ClassOf(live)) << "class of " << name;
      EXPECT_EQ(both.model.TextOf(window), both.live.TextOf(live)) << "WM_GETTEXT of " << name;
      EXPECT_EQ(both.model.ComboBoxCount(window), both.live.ComboBoxCount(live)) << "CB_GETCOUNT of " << name;
      EXPECT_EQ(both.model.ComboBoxSelection(window), both.live.ComboBoxSelection(live)) << "CB_GETCURSEL of " << name;
      for (bool visibleOnly : {false, true}) {
        std::vector<WindowHandle> modelList = {1}, realList = {1};
        EXPECT_EQ(both.model.GetDescendants(window, visibleOnly, modelList),
                  both.live.GetDescendants(live, visibleOnly, realList));
        both.ExpectSameList(modelList, realList,
                            (visibleOnly ? "visible descendants of " : "descendants of ") + name);
      }
      for (const std::wstring& className : classes) {
        const std::string what = " " + ToUtf8(className) + " of " + name;
        both.ExpectSameWindow(both.model.FindChild(window, className), both.live.FindChild(live, className),
                              "FindWindowExW" + what);
        both.ExpectSameWindow(both.model.FindDescendantByClass(window, className),
                              both.live.FindDescendantByClass(live, className), "first descendant" + what);
      }
    }
  }
}

TEST_F(WindowEquivalenceTest, TopLevelSearchesMatchTitlesWhole) {
  for (const NamedTree& named : *s_trees) {
    SCOPED_TRACE(named.name);
    BothSides both(m_thread, named);
    std::set<std::wstring> titles = {L""};
    for (const RecordedWindow& window : named.tree.windows) {
      titles.insert(window.title);
      titles.insert(OtherCase(window.title));
      if (!window.title.empty()) titles.insert(window.title.substr(0, window.title.size() - 1));  // a part
    }
    std::set<std::wstring> classes = ClassesOf(named.tree.windows);
    for (const std::wstring& className : ClassesOf(named.tree.windows)) classes.insert(OtherCase(className));
    for (const std::wstring& className : classes) {
      const std::string what = "FindWindowW " + ToUtf8(className);
      both.ExpectSameWindow(both.model.FindTopLevel(className, nullptr), both.live.FindTopLevel(className, nullptr),
                            what + " with any title");
      for (const std::wstring& title : titles) {
        both.ExpectSameWindow(both.model.FindTopLevel(className, &title), both.live.FindTopLevel(className, &title),
                              what + " \"" + ToUtf8(title) + "\"");
      }
    }
  }
}

TEST_F(WindowEquivalenceTest, PointTestGivesTheSameWindowAllOverTheScreenAndAtEveryEdge) {
  constexpr int32_t kStep = 20;
  for (const NamedTree& named : *s_trees) {
    SCOPED_TRACE(named.name);
    BothSides both(m_thread, named);
    std::vector<std::pair<int32_t, int32_t>> points;
    for (int32_t y = 0; y < 1080; y += kStep) {
      for (int32_t x = 0; x < 1920; x += kStep) points.emplace_back(x, y);
    }
    for (WindowHandle window : both.real.RecordedHandles()) {
      WindowRect rect;
      both.model.RectOf(window, rect);
      for (int32_t dx : {-1, 0}) {
        for (int32_t dy : {-1, 0}) {
          points.emplace_back(rect.left + dx + 1, rect.top + dy + 1);  // just inside and just outside each corner
          points.emplace_back(rect.right + dx, rect.bottom + dy);
        }
      }
    }
    // Wine can restack an owned pop-up while the points are tried: then the order is restored and all are tried
    // again.
    std::vector<std::string> mismatches;
    for (int attempt = 0; attempt < 3; ++attempt) {
      both.real.Rearrange();
      mismatches.clear();
      for (const auto& [x, y] : points) {
        const std::optional<WindowHandle> fromReal = both.real.RecordedOf(both.live.WindowAt(x, y));
        const WindowHandle fromModel = both.model.WindowAt(x, y);
        if (fromReal == fromModel) continue;
        mismatches.push_back("WindowFromPoint(" + std::to_string(x) + ", " + std::to_string(y) + "): the model gives " +
                             both.Name(fromModel) + ", Windows " +
                             (fromReal ? both.Name(*fromReal) : "a window not built from the tree"));
      }
      if (mismatches.empty() || both.real.TopLevelOrderHolds()) break;
    }
    for (size_t i = 0; i < mismatches.size() && i < 10; ++i) ADD_FAILURE() << mismatches[i];
    EXPECT_TRUE(mismatches.empty());
  }
}

TEST_F(WindowEquivalenceTest, SettingTextChangesWhatBothRead) {
  for (const NamedTree& named : *s_trees) {
    SCOPED_TRACE(named.name);
    BothSides both(m_thread, named);
    for (WindowHandle window : both.real.RecordedHandles()) {
      if (both.model.ClassOf(window) != L"Edit") continue;
      const std::wstring text = L"改过 " + std::to_wstring(window);
      EXPECT_EQ(both.model.SetText(window, text), both.live.SetText(both.real.RealOf(window), text));
      EXPECT_EQ(both.model.TextOf(window), both.live.TextOf(both.real.RealOf(window))) << both.Name(window);
      EXPECT_EQ(both.model.GiveFocus(window), both.live.GiveFocus(both.real.RealOf(window)));
      EXPECT_EQ(both.model.PressEnter(window), both.live.PressEnter(both.real.RealOf(window)));
    }
  }
}

}  // namespace
}  // namespace ostrel
