// The live window tree backend on a few real windows of another thread: the descendant lists, what GetParent
// answers for an owned pop-up, the point test over a label and over a hidden panel, the whole-title search, the
// combo box messages, and exceptions in the enumeration callback.
#include "platform/win32/win32_windows.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "window_thread.h"

namespace ostrel {
namespace {

using win32::ToHandle;
using win32::ToHwnd;

constexpr wchar_t kFrameClass[] = L"OstrelBackendTestFrame";

// The frame (100,100)-(500,400) and what it holds, topmost first:
//   label   Static "标签"       (110,110)-(200,130)
//   panel   hidden plain window (110,150)-(300,300), holding the field Edit "12.5" (120,160)-(200,180), shown
//   combo   ComboBox [甲, 乙, 丙] with 乙 selected (310,110)-(450,130)
// and an owned pop-up (600,100)-(700,200) titled "弹出".
class Win32WindowTreeTest : public testing::Test {
 protected:
  void SetUp() override {
    m_thread.Run([&] {
      WNDCLASSEXW windowClass{};
      windowClass.cbSize = sizeof windowClass;
      windowClass.lpfnWndProc = &DefWindowProcW;
      windowClass.hInstance = GetModuleHandleW(nullptr);
      windowClass.lpszClassName = kFrameClass;
      RegisterClassExW(&windowClass);
      frame = Make(kFrameClass, L"框架", WS_POPUP, {100, 100, 500, 400}, nullptr);
      label = Make(L"Static", L"标签", WS_CHILD | WS_VISIBLE, {10, 10, 100, 30}, frame);
      panel = Make(kFrameClass, L"", WS_CHILD, {10, 50, 200, 200}, frame);
      field = Make(L"Edit", L"12.5", WS_CHILD | WS_VISIBLE, {10, 10, 90, 30}, panel);
      combo = Make(L"ComboBox", L"", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, {210, 10, 350, 200}, frame);
      for (const wchar_t* item : {L"甲", L"乙", L"丙"}) {
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
      }
      SendMessageW(combo, CB_SETCURSEL, 1, 0);
      popup = Make(kFrameClass, L"弹出", WS_POPUP, {600, 100, 700, 200}, frame);
      // Topmost first among the children: the label, the panel, the combo box.
      for (HWND child : {combo, panel, label}) {
        SetWindowPos(child, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
      }
      // Shown without being activated: under Wine an activated window takes seconds to go away.
      for (HWND topLevel : {frame, popup}) {
        SetWindowPos(topLevel, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
      }
    });
  }
  void TearDown() override {
    m_thread.Run([&] { DestroyWindow(frame); });
  }

  static HWND Make(const wchar_t* className, const wchar_t* title, DWORD style, RECT rect, HWND parent) {
    HWND made = CreateWindowExW(0, className, title, style, rect.left, rect.top, rect.right - rect.left,
                                rect.bottom - rect.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!made) throw std::runtime_error("CreateWindowExW failed");
    return made;
  }

  test::WindowThread m_thread;
  win32::Win32WindowTree m_tree;
  HWND frame = nullptr, label = nullptr, panel = nullptr, field = nullptr, combo = nullptr, popup = nullptr;
};

TEST_F(Win32WindowTreeTest, DescendantsInZOrderEachFollowedByItsOwnAndTheVisibleOnesApart) {
  std::vector<WindowHandle> list = {7, 8, 9};  // an earlier answer never stays in the list
  ASSERT_TRUE(m_tree.GetDescendants(ToHandle(frame), false, list));
  EXPECT_EQ(list, (std::vector<WindowHandle>{ToHandle(label), ToHandle(panel), ToHandle(field), ToHandle(combo)}));
  ASSERT_TRUE(m_tree.GetDescendants(ToHandle(frame), true, list));  // the field is shown, but its panel isn't
  EXPECT_EQ(list, (std::vector<WindowHandle>{ToHandle(label), ToHandle(combo)}));
  EXPECT_FALSE(m_tree.GetDescendants(0, false, list));
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(m_tree.FindDescendantByClass(ToHandle(frame), L"Edit"), ToHandle(field));
  EXPECT_EQ(m_tree.FindChild(ToHandle(frame), L"Edit"), 0u);  // only a direct child counts
  EXPECT_EQ(m_tree.FindChild(0, kFrameClass), ToHandle(popup));  // the desktop's children: the top-level windows
}

TEST_F(Win32WindowTreeTest, ParentIsTheHolderOfAChildAndTheOwnerOfAPopup) {
  EXPECT_EQ(m_tree.ParentOf(ToHandle(field)), ToHandle(panel));
  EXPECT_EQ(m_tree.ParentOf(ToHandle(popup)), ToHandle(frame));
  EXPECT_EQ(m_tree.ParentOf(ToHandle(frame)), 0u);
  EXPECT_FALSE(m_tree.IsVisible(ToHandle(field)));
  EXPECT_TRUE(m_tree.IsVisible(ToHandle(popup)));
  WindowRect rect{1, 2, 3, 4};
  EXPECT_FALSE(m_tree.RectOf(0, rect));
  EXPECT_EQ(rect.left + rect.top + rect.right + rect.bottom, 10);  // left as it was
  ASSERT_TRUE(m_tree.RectOf(ToHandle(field), rect));
  EXPECT_EQ(rect.left, 120);
  EXPECT_EQ(rect.bottom, 180);
}

TEST_F(Win32WindowTreeTest, PointTestFindsTheDeepestShownWindowOfAnotherThreadLabelsIncluded) {
  EXPECT_EQ(m_tree.WindowAt(150, 120), ToHandle(label));  // a label of another thread isn't see-through
  EXPECT_EQ(m_tree.WindowAt(150, 170), ToHandle(frame));  // the field's panel is hidden
  EXPECT_EQ(m_tree.WindowAt(499, 399), ToHandle(frame));
  EXPECT_EQ(m_tree.WindowAt(650, 150), ToHandle(popup));
}

TEST_F(Win32WindowTreeTest, TitlesMatchWholeAndEmptyMatchesOnlyEmpty) {
  const std::wstring whole = L"弹出", part = L"弹", empty;
  EXPECT_EQ(m_tree.FindTopLevel(kFrameClass, nullptr), ToHandle(popup));  // the owned pop-up lies above its owner
  EXPECT_EQ(m_tree.FindTopLevel(kFrameClass, &whole), ToHandle(popup));
  EXPECT_EQ(m_tree.FindTopLevel(kFrameClass, &part), 0u);
  EXPECT_EQ(m_tree.FindTopLevel(kFrameClass, &empty), 0u);
}

TEST_F(Win32WindowTreeTest, TextClassAndComboBoxAnswersThroughMessages) {
  EXPECT_EQ(m_tree.TextOf(ToHandle(label)), L"标签");
  EXPECT_EQ(m_tree.TextOf(ToHandle(combo)), L"乙");  // a drop-down list shows its selected item
  EXPECT_EQ(m_tree.ClassOf(ToHandle(combo)), L"ComboBox");
  EXPECT_EQ(m_tree.ClassOf(0), L"");
  EXPECT_EQ(m_tree.ComboBoxCount(ToHandle(combo)), 3);
  EXPECT_EQ(m_tree.ComboBoxSelection(ToHandle(combo)), 1);
  EXPECT_EQ(m_tree.ComboBoxCount(ToHandle(field)), 0);  // any other window leaves the message unanswered
  EXPECT_EQ(m_tree.ComboBoxSelection(ToHandle(field)), 0);
  ASSERT_TRUE(m_tree.SetText(ToHandle(field), L"七十五"));
  EXPECT_EQ(m_tree.TextOf(ToHandle(field)), L"七十五");
  EXPECT_TRUE(m_tree.GiveFocus(ToHandle(field)));
  EXPECT_TRUE(m_tree.PressEnter(ToHandle(field)));
  EXPECT_FALSE(m_tree.PressEnter(0));
}

TEST_F(Win32WindowTreeTest, AnExceptionInTheCallbackStopsTheEnumerationAndComesOutAfterIt) {
  int visited = 0;
  EXPECT_THROW(win32::ForEachDescendant(frame,
                                        [&](HWND) -> bool {
                                          if (++visited == 2) throw std::runtime_error("out of memory");
                                          return true;
                                        }),
               std::runtime_error);
  EXPECT_EQ(visited, 2);
}

TEST(WindowHandleTest, HandlesAreCutToThirtyTwoBitsAndSignExtendedBack) {
  EXPECT_EQ(ToHandle(reinterpret_cast<HWND>(static_cast<uintptr_t>(0x00010234))), 0x00010234u);
  EXPECT_EQ(reinterpret_cast<intptr_t>(ToHwnd(0xFFFF1234u)), static_cast<intptr_t>(static_cast<int32_t>(0xFFFF1234u)));
  EXPECT_EQ(ToHwnd(0), nullptr);
}

}  // namespace
}  // namespace ostrel
