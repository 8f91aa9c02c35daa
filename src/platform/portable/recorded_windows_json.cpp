// The file form of a recorded window tree: reading it with every mistake named by its place, and writing it.
#include <nlohmann/json.hpp>

#include <fstream>
#include <iterator>
#include <limits>
#include <set>
#include <sstream>

#include "platform/portable/recorded_windows.h"
#include "platform/text.h"

namespace ostrel {
namespace {

using nlohmann::json;

// A mistake in the tree, with the place it was found at.
struct TreeMistake {
  std::string text;
};

[[noreturn]] void Fail(const std::string& place, const std::string& what) {
  throw TreeMistake{place.empty() ? what : place + ": " + what};
}

std::optional<int64_t> WholeNumber(const json& value) {
  if (value.is_number_unsigned()) {
    const auto number = value.get<uint64_t>();
    if (number > static_cast<uint64_t>(std::numeric_limits<int64_t>::max())) return std::nullopt;
    return static_cast<int64_t>(number);
  }
  if (value.is_number_integer()) return value.get<int64_t>();
  return std::nullopt;
}

WindowHandle ReadHandle(const json& value, const std::string& place, const char* key) {
  const std::optional<int64_t> number = WholeNumber(value);
  if (!number || *number <= 0 || *number > int64_t{0xFFFFFFFF}) {
    Fail(place, std::string("\"") + key + "\" must be a window handle, a whole number from 1 to 4294967295");
  }
  return static_cast<WindowHandle>(*number);
}

int32_t ReadInt32(const json& value, const std::string& place, const std::string& what) {
  const std::optional<int64_t> number = WholeNumber(value);
  if (!number || *number < std::numeric_limits<int32_t>::min() || *number > std::numeric_limits<int32_t>::max()) {
    Fail(place, what + " must be a whole number that fits 32 bits");
  }
  return static_cast<int32_t>(*number);
}

std::wstring ReadText(const json& value, const std::string& place, const char* key) {
  if (!value.is_string()) Fail(place, std::string("\"") + key + "\" must be a string");
  return FromUtf8(value.get<std::string>());
}

// Positions and sizes as Windows' window messages carry them (WM_MOVE, WM_SIZE, the points of mouse messages):
// 16-bit signed numbers. A tree holds the windows of a real screen, so nothing beyond them; the locator's row scans,
// which step across the main frame, then take a bounded number of steps whatever the tree says.
constexpr int32_t kLowestCoordinate = -32768, kHighestCoordinate = 32767;

int32_t ReadCoordinate(const json& value, const std::string& place, const std::string& what) {
  const std::optional<int64_t> number = WholeNumber(value);
  if (!number || *number < kLowestCoordinate || *number > kHighestCoordinate) {
    Fail(place, what + " must be a whole number from " + std::to_string(kLowestCoordinate) + " to " +
                    std::to_string(kHighestCoordinate));
  }
  return static_cast<int32_t>(*number);
}

WindowRect ReadRect(const json& value, const std::string& place) {
  if (!value.is_array() || value.size() != 4) Fail(place, "\"rect\" must be [left, top, right, bottom]");
  return WindowRect{ReadCoordinate(value[0], place, "\"rect\" left"),
                    ReadCoordinate(value[1], place, "\"rect\" top"),
                    ReadCoordinate(value[2], place, "\"rect\" right"),
                    ReadCoordinate(value[3], place, "\"rect\" bottom")};
}

struct Reader {
  std::set<WindowHandle> handles;
  std::set<WindowHandle> topLevel;
  // Top-level windows with an owner, by place, checked once all top-level windows are known.
  std::vector<std::pair<std::string, WindowHandle>> owners;

  RecordedWindow Window(const json& value, const std::string& at, bool isTopLevel);
  void Items(const json& value, RecordedWindow& window, const std::string& place);
};

const std::set<std::string> kWindowKeys = {"hwnd",  "class",  "title",    "rect",    "visible",
                                           "owner", "items", "selected", "children"};

RecordedWindow Reader::Window(const json& value, const std::string& at, bool isTopLevel) {
  if (!value.is_object()) Fail(at, "a window must be an object");
  if (!value.contains("hwnd")) Fail(at, "\"hwnd\" is missing");
  RecordedWindow window;
  window.hwnd = ReadHandle(value["hwnd"], at, "hwnd");
  const std::string place = at + " (hwnd " + std::to_string(window.hwnd) + ")";
  if (!handles.insert(window.hwnd).second) Fail(place, "the handle is already used by another window");
  if (isTopLevel) topLevel.insert(window.hwnd);
  for (const auto& [key, unused] : value.items()) {
    if (!kWindowKeys.contains(key)) Fail(place, "unknown key \"" + key + "\"");
  }
  if (!value.contains("class")) Fail(place, "\"class\" is missing");
  window.className = ReadText(value["class"], place, "class");
  if (window.className.empty()) Fail(place, "\"class\" is empty");
  if (value.contains("title")) window.title = ReadText(value["title"], place, "title");
  if (value.contains("rect")) window.rect = ReadRect(value["rect"], place);
  if (value.contains("visible")) {
    if (!value["visible"].is_boolean()) Fail(place, "\"visible\" must be true or false");
    window.visible = value["visible"].get<bool>();
  }
  if (value.contains("owner")) {
    if (!isTopLevel) Fail(place, "\"owner\" is only for a top-level window; a child window has its parent");
    window.owner = ReadHandle(value["owner"], place, "owner");
    owners.emplace_back(place, window.owner);
  }
  Items(value, window, place);
  if (value.contains("children")) {
    const json& children = value["children"];
    if (!children.is_array()) Fail(place, "\"children\" must be a list of windows");
    for (size_t i = 0; i < children.size(); ++i) {
      window.children.push_back(Window(children[i], at + ".children[" + std::to_string(i) + "]", false));
    }
  }
  return window;
}

void Reader::Items(const json& value, RecordedWindow& window, const std::string& place) {
  const bool isComboBox = window.className == L"ComboBox";
  if (value.contains("items")) {
    if (!isComboBox) Fail(place, "\"items\" is only for a ComboBox");
    const json& items = value["items"];
    if (!items.is_array()) Fail(place, "\"items\" must be a list of strings");
    for (const json& item : items) window.items.push_back(ReadText(item, place, "items"));
  }
  if (value.contains("selected")) {
    if (!isComboBox) Fail(place, "\"selected\" is only for a ComboBox");
    window.selected = ReadInt32(value["selected"], place, "\"selected\"");
    if (window.selected < -1 || window.selected >= static_cast<int32_t>(window.items.size())) {
      Fail(place, "\"selected\" must be -1 or the number of one of the " + std::to_string(window.items.size()) +
                      " items");
    }
  }
  if (!isComboBox) return;
  // A drop-down list shows its selected item and has no text of its own.
  const std::wstring shown = window.selected >= 0 ? window.items[static_cast<size_t>(window.selected)] : L"";
  if (!value.contains("title")) window.title = shown;
  if (window.title != shown) {
    Fail(place, "a ComboBox's \"title\" is the item it shows: \"" + ToUtf8(shown) + "\" here");
  }
}

RecordedWindowTree ReadTree(const json& document) {
  if (!document.is_object()) Fail("", "the tree must be a JSON object with \"windows\"");
  for (const auto& [key, unused] : document.items()) {
    if (key != "comment" && key != "screen" && key != "screenshot" && key != "windows") {
      Fail("the top level", "unknown key \"" + key + "\"");
    }
  }
  RecordedWindowTree tree;
  if (document.contains("comment")) {
    if (!document["comment"].is_string()) Fail("comment", "must be a string");
    tree.comment = document["comment"].get<std::string>();
  }
  if (document.contains("screen")) {
    const json& screen = document["screen"];
    if (!screen.is_object() || !screen.contains("width") || !screen.contains("height") || screen.size() != 2) {
      Fail("screen", "must be {\"width\": W, \"height\": H}");
    }
    tree.screenWidth = ReadCoordinate(screen["width"], "screen", "\"width\"");
    tree.screenHeight = ReadCoordinate(screen["height"], "screen", "\"height\"");
    if (tree.screenWidth < 0 || tree.screenHeight < 0) Fail("screen", "a size can't be negative");
  }
  if (document.contains("screenshot")) {
    const json& screenshot = document["screenshot"];
    if (!screenshot.is_string() || screenshot.get<std::string>().empty()) {
      Fail("screenshot", "must be the path of a PNG file, from the tree file's folder");
    }
    tree.screenshot = screenshot.get<std::string>();
  }
  if (!document.contains("windows") || !document["windows"].is_array()) {
    Fail("", "\"windows\" must be the list of top-level windows");
  }
  Reader reader;
  const json& windows = document["windows"];
  for (size_t i = 0; i < windows.size(); ++i) {
    tree.windows.push_back(reader.Window(windows[i], "windows[" + std::to_string(i) + "]", true));
  }
  for (const auto& [place, owner] : reader.owners) {
    if (!reader.topLevel.contains(owner)) {
      Fail(place, "the owner " + std::to_string(owner) + " isn't a top-level window of the tree");
    }
  }
  // An owned window always lies above its owner: it comes before it in the list.
  std::set<WindowHandle> above;
  for (size_t i = 0; i < tree.windows.size(); ++i) {
    const RecordedWindow& window = tree.windows[i];
    if (window.owner == window.hwnd) Fail("windows[" + std::to_string(i) + "]", "a window can't own itself");
    if (window.owner != 0 && above.contains(window.owner)) {
      Fail("windows[" + std::to_string(i) + "] (hwnd " + std::to_string(window.hwnd) + ")",
           "an owned window must stand above its owner " + std::to_string(window.owner) + ", before it in the list");
    }
    above.insert(window.hwnd);
  }
  return tree;
}

std::string PathText(const std::filesystem::path& file) {
  const std::u8string name = file.u8string();
  return std::string(name.begin(), name.end());
}

// Text as a JSON string; bytes that aren't UTF-8 become U+FFFD rather than failing the whole tree.
std::string Quote(const std::string& utf8) { return json(utf8).dump(-1, ' ', false, json::error_handler_t::replace); }

// "line L, column C" of a byte offset in text, counted from 1.
std::string LineAndColumn(std::string_view text, size_t offset) {
  size_t line = 1, column = 1;
  for (size_t i = 0; i < offset && i < text.size(); ++i) {
    if (text[i] == '\n') {
      ++line;
      column = 1;
    } else {
      ++column;
    }
  }
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

// The JSON reader's own document builder, which also keeps where the number it couldn't hold starts: the reader
// reports a number beyond a double with its text but without its place.
struct PlacedDomParser : nlohmann::detail::json_sax_dom_parser<json> {
  using json_sax_dom_parser::json_sax_dom_parser;
  size_t numberStart = 0;
  std::string numberText;

  template <class Exception>
  bool parse_error(size_t position, const std::string& token, const Exception& error) {
    numberStart = position >= token.size() ? position - token.size() : 0;
    numberText = token;
    return json_sax_dom_parser::parse_error(position, token, error);
  }
};

void WriteWindow(const RecordedWindow& window, const std::string& indent, std::string& out) {
  out += indent + "{\"hwnd\": " + std::to_string(window.hwnd);
  out += ", \"class\": " + Quote(ToUtf8(window.className));
  out += ", \"title\": " + Quote(ToUtf8(window.title));
  const WindowRect& r = window.rect;
  out += ", \"rect\": [" + std::to_string(r.left) + ", " + std::to_string(r.top) + ", " + std::to_string(r.right) +
         ", " + std::to_string(r.bottom) + "]";
  out += std::string(", \"visible\": ") + (window.visible ? "true" : "false");
  if (window.owner != 0) out += ", \"owner\": " + std::to_string(window.owner);
  if (!window.items.empty()) {
    json items = json::array();
    for (const std::wstring& item : window.items) items.push_back(ToUtf8(item));
    out += ", \"items\": " + items.dump(-1, ' ', false, json::error_handler_t::replace);
  }
  if (window.selected != -1) out += ", \"selected\": " + std::to_string(window.selected);
  if (!window.children.empty()) {
    out += ", \"children\": [\n";
    for (size_t i = 0; i < window.children.size(); ++i) {
      WriteWindow(window.children[i], indent + "  ", out);
      out += i + 1 < window.children.size() ? ",\n" : "]";
    }
  }
  out += "}";
}

}  // namespace

WindowTreeLoad ParseWindowTree(std::string_view jsonText) {
  json document;
  PlacedDomParser parser(document);
  try {
    json::sax_parse(jsonText.begin(), jsonText.end(), &parser);
  } catch (const json::parse_error& error) {
    const std::string what = error.what();
    const size_t reason = what.find("syntax error");
    return {std::nullopt, LineAndColumn(jsonText, error.byte == 0 ? 0 : error.byte - 1) + ": not JSON (" +
                              (reason == std::string::npos ? what : what.substr(reason)) + ")"};
  } catch (const json::out_of_range&) {
    // A number beyond a double (1e999): valid JSON that no reader can hold.
    return {std::nullopt, LineAndColumn(jsonText, parser.numberStart) + ": the number " + parser.numberText +
                              " is too large to read"};
  }
  try {
    return {ReadTree(document), {}};
  } catch (const TreeMistake& mistake) {
    return {std::nullopt, mistake.text};
  }
}

WindowTreeLoad LoadWindowTree(const std::filesystem::path& file) {
  // What is wrong with the path is said before the file is opened: a folder opens on some systems and reads as
  // nothing, and a device such as /dev/zero would never end.
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) return {std::nullopt, PathText(file) + ": no such file"};
  if (std::filesystem::is_directory(status)) {
    return {std::nullopt, PathText(file) + ": is a folder, not a window tree file"};
  }
  if (!std::filesystem::is_regular_file(status)) return {std::nullopt, PathText(file) + ": is not a regular file"};
  std::ifstream in(file, std::ios::binary);
  if (!in) return {std::nullopt, PathText(file) + ": cannot be opened (no permission to read it)"};
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  WindowTreeLoad load = ParseWindowTree(text);
  if (!load.tree) load.error = PathText(file) + ": " + load.error;
  if (load.tree) load.tree->folder = file.parent_path();
  return load;
}

std::string WriteWindowTree(const RecordedWindowTree& tree) {
  std::string out = "{\"comment\": " + Quote(tree.comment) + ", \"screen\": {\"width\": " +
                    std::to_string(tree.screenWidth) + ", \"height\": " + std::to_string(tree.screenHeight) + "},";
  if (!tree.screenshot.empty()) out += " \"screenshot\": " + Quote(tree.screenshot) + ",";
  out += "\n \"windows\": [\n";
  for (size_t i = 0; i < tree.windows.size(); ++i) {
    WriteWindow(tree.windows[i], "  ", out);
    out += i + 1 < tree.windows.size() ? ",\n" : "";
  }
  out += "]}\n";
  return out;
}

}  // namespace ostrel
