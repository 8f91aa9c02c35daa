// Recorded window trees: the file form with its mistakes, and the answers of the backend over the model.
#include "platform/portable/recorded_windows.h"

#include <gtest/gtest.h>

#include "../support/png_files.h"
#include "platform/text.h"

namespace ostrel {
namespace {

// A frame with an owned pop-up above it, a hidden panel and overlapping children.
constexpr const char* kTree = R"({"comment": "test", "screen": {"width": 800, "height": 600},
 "windows": [
  {"hwnd": 50, "class": "PSFloatc", "rect": [100, 100, 300, 300], "owner": 10, "children": [
    {"hwnd": 51, "class": "PSViewC", "rect": [100, 100, 300, 300]}]},
  {"hwnd": 10, "class": "Photoshop", "title": "Adobe Photoshop CC 2019", "rect": [0, 0, 800, 600], "children": [
    {"hwnd": 20, "class": "OWL.Dock", "rect": [500, 0, 800, 600], "visible": false, "children": [
      {"hwnd": 21, "class": "Edit", "title": "12", "rect": [500, 0, 600, 20]}]},
    {"hwnd": 30, "class": "PSViewC", "rect": [0, 0, 800, 600], "children": [
      {"hwnd": 31, "class": "ComboBox", "title": "锐利", "rect": [10, 10, 90, 30], "items": ["无", "锐利"],
       "selected": 1},
      {"hwnd": 32, "class": "Static", "title": "宽度:", "rect": [10, 10, 40, 30], "visible": false}]}]},
  {"hwnd": 70, "class": "#32770", "title": "存储为", "rect": [800, 0, 840, 40], "owner": 60},
  {"hwnd": 60, "class": "PSFloatC", "title": "渐变编辑器", "rect": [0, 0, 50, 50], "visible": false}]})";

RecordedWindows Loaded() {
  WindowTreeLoad load = ParseWindowTree(kTree);
  EXPECT_TRUE(load.tree) << load.error;
  return RecordedWindows(std::move(*load.tree));
}

TEST(RecordedWindows, AnswersAsWindowsDoes) {
  RecordedWindows windows = Loaded();
  // The owner is the parent of an owned top-level window; a plain top-level window has none.
  EXPECT_EQ(windows.ParentOf(50), 10u);
  EXPECT_EQ(windows.ParentOf(51), 50u);
  EXPECT_EQ(windows.ParentOf(10), 0u);
  // Visible: the window and all its parents, not its owner.
  EXPECT_TRUE(windows.IsVisible(31));
  EXPECT_FALSE(windows.IsVisible(21));  // its parent is hidden
  EXPECT_FALSE(windows.IsVisible(60));
  EXPECT_TRUE(windows.IsVisible(70));  // its owner is hidden
  EXPECT_EQ(windows.ParentOf(70), 60u);
  EXPECT_EQ(windows.WindowAt(810, 20), 70u);
  EXPECT_FALSE(windows.IsVisible(0));
  // Descendants: z-order, each window followed by its own.
  std::vector<WindowHandle> list = {999};
  EXPECT_TRUE(windows.GetDescendants(10, false, list));
  EXPECT_EQ(list, (std::vector<WindowHandle>{20, 21, 30, 31, 32}));
  EXPECT_TRUE(windows.GetDescendants(10, true, list));
  EXPECT_EQ(list, (std::vector<WindowHandle>{30, 31}));
  EXPECT_FALSE(windows.GetDescendants(0, false, list));
  EXPECT_TRUE(list.empty());
  // The point test: the deepest visible window, topmost first; hidden windows are passed over.
  EXPECT_EQ(windows.WindowAt(150, 150), 51u);
  EXPECT_EQ(windows.WindowAt(20, 20), 31u);
  EXPECT_EQ(windows.WindowAt(550, 10), 30u);
  EXPECT_EQ(windows.WindowAt(300, 300), 30u);  // right and bottom lie one past
  EXPECT_EQ(windows.WindowAt(900, 10), 0u);
  // Searches by class and title.
  const std::wstring empty, title = L"渐变编辑器";
  EXPECT_EQ(windows.FindTopLevel(L"PSFloatC", nullptr), 50u);
  EXPECT_EQ(windows.FindTopLevel(L"PSFloatC", &empty), 50u);
  EXPECT_EQ(windows.FindTopLevel(L"PSFloatC", &title), 60u);
  const std::wstring part = L"渐变", otherCase = L"adobe photoshop cc 2019";
  EXPECT_EQ(windows.FindTopLevel(L"PSFloatC", &part), 0u);
  EXPECT_EQ(windows.FindTopLevel(L"photoshop", &otherCase), 10u);
  EXPECT_EQ(windows.FindChild(10, L"Edit"), 0u);  // only direct children
  EXPECT_EQ(windows.FindDescendantByClass(10, L"Edit"), 21u);
  EXPECT_EQ(windows.FindDescendantByClass(0, L"Edit"), 0u);
  // Combo boxes and text.
  EXPECT_EQ(windows.ComboBoxCount(31), 2);
  EXPECT_EQ(windows.ComboBoxSelection(31), 1);
  EXPECT_EQ(windows.ComboBoxSelection(21), 0);
  EXPECT_EQ(windows.TextOf(31), L"锐利");
  EXPECT_TRUE(windows.SetText(21, L"30"));
  EXPECT_EQ(windows.TextOf(21), L"30");
  // The messages the windows received, in order; one to a handle the tree doesn't have goes nowhere.
  EXPECT_FALSE(windows.SetText(999, L"1"));
  EXPECT_FALSE(windows.PressEnter(0));
  EXPECT_TRUE(windows.GiveFocus(31));
  EXPECT_EQ(windows.Received(), (std::vector<ReceivedMessage>{{21, kSetTextMessage, 0, L"30"},
                                                              {31, kSetFocusMessage, 0, L""}}));
  WindowRect rect{1, 2, 3, 4};
  EXPECT_FALSE(windows.RectOf(0, rect));
  EXPECT_EQ(rect.left + rect.top + rect.right + rect.bottom, 10);
  int32_t width = 0, height = 0;
  windows.ScreenSize(width, height);
  EXPECT_EQ(width * 10000 + height, 8000600);
}

TEST(RecordedWindows, WrittenTreeReadsBackTheSame) {
  RecordedWindows windows = Loaded();
  const std::string text = WriteWindowTree(windows.Tree());
  WindowTreeLoad again = ParseWindowTree(text);
  ASSERT_TRUE(again.tree) << again.error << "\n" << text;
  EXPECT_EQ(WriteWindowTree(*again.tree), text);
  EXPECT_EQ(again.tree->windows[1].children[1].children[0].items[1], L"锐利");
  EXPECT_EQ(again.tree->windows[0].owner, 10u);
  EXPECT_FALSE(again.tree->windows[3].visible);
}

struct Mistake {
  const char* text;
  const char* error;  // must be part of the error
};

constexpr Mistake kMistakes[] = {
    {R"({"windows": [{"hwnd": 1, "class": "A"}, {"hwnd": 1, "class": "B"}]})",
     "windows[1] (hwnd 1): the handle is already used"},
    {R"({"windows": [{"hwnd": 1, "class": "A", "children": [{"hwnd": 2, "title": "x"}]}]})",
     "windows[0].children[0] (hwnd 2): \"class\" is missing"},
    {R"({"windows": [{"hwnd": 1, "class": "A", "owner": 7}]})", "windows[0] (hwnd 1): the owner 7 isn't"},
    {R"({"windows": [{"hwnd": 1, "class": "A", "children": [{"hwnd": 2, "class": "B"}]}, {"hwnd": 3,
      "class": "C", "owner": 2}]})",
     "windows[1] (hwnd 3): the owner 2 isn't a top-level window"},
    {R"({"windows": [{"hwnd": 1, "class": "A", "children": [{"hwnd": 2, "class": "B", "owner": 1}]}]})",
     "windows[0].children[0] (hwnd 2): \"owner\" is only for a top-level window"},
    {R"({"windows": [{"hwnd": 0, "class": "A"}]})", "windows[0]: \"hwnd\" must be a window handle"},
    {R"({"windows": [{"class": "A"}]})", "windows[0]: \"hwnd\" is missing"},
    {R"({"windows": [{"hwnd": 4, "class": "A", "rect": [0, 0, 10]}]})", "windows[0] (hwnd 4): \"rect\" must be"},
    {R"({"windows": [{"hwnd": 4, "class": "A", "visble": false}]})", "windows[0] (hwnd 4): unknown key \"visble\""},
    {R"({"windows": [{"hwnd": 4, "class": "Edit", "items": ["a"]}]})", "\"items\" is only for a ComboBox"},
    {R"({"windows": [{"hwnd": 4, "class": "ComboBox", "items": ["a"], "selected": 1}]})",
     "(hwnd 4): \"selected\" must be -1 or the number of one of the 1 items"},
    {"{\"windows\": [\n  {\"hwnd\": 4, \"class\": \"A\",}]}", "line 2, column 28: not JSON"},
    {R"({"windows": {}})", "\"windows\" must be the list"},
    {R"({"windows": [{"hwnd": 1, "class": "A"}, {"hwnd": 2, "class": "B", "owner": 1}]})",
     "windows[1] (hwnd 2): an owned window must stand above its owner 1"},
    {R"({"windows": [{"hwnd": 4, "class": "ComboBox", "title": "x", "items": ["a", "b"], "selected": 1}]})",
     "(hwnd 4): a ComboBox's \"title\" is the item it shows: \"b\""},
    // Coordinates as window messages carry them, 16-bit signed; a screen's size from 0.
    {R"({"windows": [{"hwnd": 4, "class": "A", "rect": [-32768, 0, 32768, 10]}]})",
     "windows[0] (hwnd 4): \"rect\" right must be a whole number from -32768 to 32767"},
    {R"({"windows": [{"hwnd": 4, "class": "A", "rect": [-32769, 0, 0, 10]}]})", "\"rect\" left must be"},
    {R"({"screen": {"width": 1920, "height": -1}, "windows": []})", "screen: a size can't be negative"},
    {R"({"screen": {"width": 40000, "height": 10}, "windows": []})", "screen: \"width\" must be a whole number from"},
    // A number beyond a double is valid JSON that can't be held: its place, not an exception.
    {"{\"windows\": [{\"hwnd\": 4,\n \"class\": \"A\", \"rect\": [0, 1e999, 0, 0]}]}",
     "line 2, column 28: the number 1e999 is too large to read"},
    {R"({"screenshot": "", "windows": []})", "screenshot: must be the path of a PNG file"},
    {R"({"screenshot": 3, "windows": []})", "screenshot: must be the path of a PNG file"},
    {R"({"screenshots": "a.png", "windows": []})", "unknown key \"screenshots\""},
};

TEST(RecordedWindows, MistakesAreNamedByTheirPlace) {
  for (const Mistake& mistake : kMistakes) {
    SCOPED_TRACE(mistake.text);
    const WindowTreeLoad load = ParseWindowTree(mistake.text);
    EXPECT_FALSE(load.tree);
    EXPECT_NE(load.error.find(mistake.error), std::string::npos) << load.error;
  }
  const WindowTreeLoad missing = LoadWindowTree("/nonexistent/tree.json");
  EXPECT_FALSE(missing.tree);
  EXPECT_EQ(missing.error, "/nonexistent/tree.json: no such file");
}

// The screenshot is found from the tree file's folder, written back as it was given, read once, and a tree
// without one (or with one that can't be read) finds no image.
TEST(RecordedWindows, TheScreenshotIsTheScreenOfTheImageSearch) {
  const std::filesystem::path folder = test_support::FreshFolder("recorded_screenshot");
  const RgbImage screen = test_support::Texture(64, 48, 3);
  test_support::WritePng(folder / "shots" / "screen.png", screen);
  test_support::WritePng(folder / "patch.png", test_support::Cut(screen, 20, 10, 8, 6));
  const std::string text =
      R"({"screen": {"width": 60, "height": 40}, "screenshot": "shots/screen.png", "windows": []})";
  test_support::WriteFile(folder / "tree.json", text);
  WindowTreeLoad load = LoadWindowTree(folder / "tree.json");
  ASSERT_TRUE(load.tree) << load.error;
  EXPECT_EQ(load.tree->screenshot, "shots/screen.png");
  EXPECT_NE(WriteWindowTree(*load.tree).find(R"("screenshot": "shots/screen.png")"), std::string::npos);
  const std::u8string patchName = (folder / "patch.png").u8string();
  const std::wstring patch = FromUtf8(std::string(patchName.begin(), patchName.end()));
  RecordedWindows windows(std::move(*load.tree));
  WindowRect found;
  EXPECT_EQ(windows.FindImage(patch, WindowRect{0, 0, 60, 40}, found, 0.03), 1);
  EXPECT_EQ(found.left * 1000 + found.top, 20010);
  EXPECT_EQ(windows.FindImage(patch, WindowRect{21, 0, 60, 40}, found, 0.03), 0);
  // A patch beyond the recorded screen's size (the screenshot is larger) lies off the screen.
  test_support::WritePng(folder / "corner.png", test_support::Cut(screen, 56, 40, 8, 8));
  const std::u8string cornerName = (folder / "corner.png").u8string();
  EXPECT_EQ(windows.FindImage(FromUtf8(std::string(cornerName.begin(), cornerName.end())), WindowRect{0, 0, 64, 48},
                              found, 0.03),
            0);
  std::filesystem::remove_all(folder / "shots");  // read at the first search: the searches go on without it
  EXPECT_EQ(windows.FindImage(patch, WindowRect{0, 0, 60, 40}, found, 0.03), 1);

  WindowTreeLoad parsed = ParseWindowTree(text);  // from text: the working directory, where no such file is
  ASSERT_TRUE(parsed.tree);
  RecordedWindows elsewhere(std::move(*parsed.tree));
  EXPECT_EQ(elsewhere.FindImage(patch, WindowRect{0, 0, 60, 40}, found, 0.03), 0);
  RecordedWindowTree bare;
  bare.screenWidth = 60;
  bare.screenHeight = 40;
  RecordedWindows none(std::move(bare));
  EXPECT_EQ(none.FindImage(patch, WindowRect{0, 0, 60, 40}, found, 0.03), 0);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace ostrel
