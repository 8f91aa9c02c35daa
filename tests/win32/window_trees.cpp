#include "window_trees.h"

#include <algorithm>
#include <stdexcept>

#include "platform/text.h"
#include "real_windows.h"

namespace ostrel::test {
namespace {

// What Windows is particular about, each in one place: an owned pop-up above its owner; labels (a Static is
// see-through only to its own thread); a hidden panel with a shown field in it; a control that reaches out of its
// parent; two siblings over each other; a combo box with and without a selection; a hidden top-level window; a
// window with an empty rectangle; titles in two cases.
constexpr char kParticularTree[] = R"({"comment": "cases Windows is particular about",
 "screen": {"width": 1920, "height": 1080},
 "windows": [
  {"hwnd": 2001, "class": "PSFloatC", "title": "", "rect": [300, 200, 600, 500], "owner": 1000, "children": [
    {"hwnd": 2002, "class": "PSViewC", "rect": [300, 200, 600, 500], "children": [
      {"hwnd": 2003, "class": "Static", "title": "大小:", "rect": [310, 210, 360, 230]},
      {"hwnd": 2004, "class": "Edit", "title": "25", "rect": [370, 210, 430, 230]},
      {"hwnd": 2005, "class": "ScrollBar", "rect": [580, 200, 600, 500]}]}]},
  {"hwnd": 3100, "class": "OWL.FrameDrawer", "title": "", "rect": [700, 300, 900, 600], "children": [
    {"hwnd": 3101, "class": "Button", "title": "画笔预设", "rect": [710, 310, 800, 330]},
    {"hwnd": 3102, "class": "Static", "title": "颜色:", "rect": [710, 340, 800, 360]}]},
  {"hwnd": 1000, "class": "Photoshop", "title": "Adobe Photoshop 2020", "rect": [0, 0, 1920, 1040], "children": [
    {"hwnd": 1100, "class": "OWL.ControlBarContainer", "rect": [0, 30, 1920, 70], "children": [
      {"hwnd": 1101, "class": "PSViewC", "rect": [0, 30, 1920, 70], "children": [
        {"hwnd": 1102, "class": "Button", "title": "", "rect": [10, 35, 40, 65]},
        {"hwnd": 1103, "class": "ComboBox", "title": "正常", "rect": [100, 40, 220, 62], "items": ["正常", "溶解"],
         "selected": 0},
        {"hwnd": 1104, "class": "Static", "title": "羽化:", "rect": [250, 40, 290, 60]},
        {"hwnd": 1105, "class": "Edit", "title": "0 像素", "rect": [295, 40, 360, 60]},
        {"hwnd": 1106, "class": "Edit", "title": "100", "rect": [370, 40, 430, 60], "visible": false},
        {"hwnd": 1107, "class": "ComboBox", "title": "", "rect": [500, 40, 600, 62], "items": ["甲"]},
        {"hwnd": 1108, "class": "Button", "title": "OK", "rect": [1890, 60, 1940, 80]},
        {"hwnd": 1109, "class": "Edit", "title": "", "rect": [0, 0, 0, 0]}]}]},
    {"hwnd": 1200, "class": "OWL.Dock", "rect": [1600, 70, 1920, 1040], "children": [
      {"hwnd": 1201, "class": "OWL.TabPane", "rect": [1600, 70, 1920, 1040], "children": [
        {"hwnd": 1202, "class": "OWL.TabGroup", "rect": [1600, 70, 1920, 400], "children": [
          {"hwnd": 1203, "class": "OWL.Palette", "rect": [1600, 90, 1920, 400], "children": [
            {"hwnd": 1204, "class": "PSViewC", "rect": [1600, 90, 1920, 400], "children": [
              {"hwnd": 1205, "class": "Edit", "title": "100%", "rect": [1700, 100, 1760, 120]}]}]},
          {"hwnd": 1206, "class": "OWL.Palette", "rect": [1600, 90, 1920, 400], "visible": false, "children": [
            {"hwnd": 1207, "class": "PSViewC", "rect": [1600, 90, 1920, 400]}]}]},
        {"hwnd": 1208, "class": "OWL.TabGroup", "rect": [1600, 400, 1920, 1040], "visible": false, "children": [
          {"hwnd": 1209, "class": "OWL.Palette", "rect": [1600, 420, 1920, 1040]}]}]}]},
    {"hwnd": 1300, "class": "OWL.ToolbarContainer", "rect": [0, 70, 40, 1040]}]},
  {"hwnd": 4000, "class": "OWL.FrameDrawer", "title": "Hidden", "rect": [0, 0, 500, 500], "visible": false},
  {"hwnd": 4100, "class": "PSFloatC", "title": "渐变编辑器", "rect": [1000, 500, 1400, 900], "children": [
    {"hwnd": 4101, "class": "Edit", "title": "50", "rect": [1010, 510, 1060, 530]}]}
 ]})";

void AddPlaces(const RecordedWindow& window, const std::string& path,
               std::unordered_map<WindowHandle, std::string>& places) {
  places[window.hwnd] = PlaceOf(path, window);
  for (size_t i = 0; i < window.children.size(); ++i) {
    AddPlaces(window.children[i], path + ".children[" + std::to_string(i) + "]", places);
  }
}

NamedTree Loaded(const std::string& name, WindowTreeLoad load) {
  if (!load.tree) throw std::runtime_error(name + ": " + load.error);
  return NamedTree{name, std::move(*load.tree)};
}

}  // namespace

std::vector<NamedTree> TreesToBuild() {
  std::vector<NamedTree> trees;
  trees.push_back(Loaded("particular cases", ParseWindowTree(kParticularTree)));
  const std::filesystem::path folder = std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "windows";
  std::vector<std::filesystem::path> files;
  if (std::filesystem::is_directory(folder)) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().extension() == ".json") files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  for (const auto& file : files) trees.push_back(Loaded(file.filename().string(), LoadWindowTree(file)));
  return trees;
}

std::unordered_map<WindowHandle, std::string> PlacesOf(const RecordedWindowTree& tree) {
  std::unordered_map<WindowHandle, std::string> places;
  for (size_t i = 0; i < tree.windows.size(); ++i) {
    AddPlaces(tree.windows[i], "windows[" + std::to_string(i) + "]", places);
  }
  return places;
}

}  // namespace ostrel::test
