// The example notifier script (examples/notifiers/PsNotifiers.jsx) writes what the readers read: its event
// logic and its file writing run under Node, one event at a time into one event file, and after each event the
// library's reader of that event gives it. The script's reading of Photoshop's descriptors can't run here.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "event_test_support.h"
#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

using test::EventFileTest;

std::wstring AddMask() {
  std::wstring start = L"?", dest = L"?";
  auto mask = static_cast<EnLayerMask>(0);
  const int result = Ostrel_GetAddMask(start, dest, mask);
  return std::to_wstring(result) + L" " + std::to_wstring(static_cast<int>(mask)) + L" [" + start + L"] [" + dest +
         L"]";
}

std::wstring LoadSelection() {
  std::wstring name;
  auto mode = static_cast<EnSelectMode>(-9);
  auto panel = static_cast<EnLayerPanel>(-9);
  auto mask = static_cast<EnLayerMask>(-9);
  const int result = Ostrel_GetLoadSelectionInfo(name, mode, panel, mask);
  return std::to_wstring(result) + L" [" + name + L"] " + std::to_wstring(static_cast<int>(mode)) + L" " +
         std::to_wstring(static_cast<int>(panel)) + L" " + std::to_wstring(static_cast<int>(mask));
}

std::wstring ColorExchange() {
  return std::to_wstring(Ostrel_IsColorExchange());
}
std::wstring DefaultColors() {
  return std::to_wstring(Ostrel_IsDefaultBackgroundForegroundColor());
}
std::wstring SmartObjectEdit() {
  return std::to_wstring(Ostrel_IsSmartObjectEdit());
}

struct ScriptStep {
  const char* event;
  const char* facts;  // what the script read of the event's descriptor
  std::wstring (*read)();
  const wchar_t* expected;
};

// In order, into one file: the script keeps the keys of earlier events and the library blanks what it read.
const ScriptStep kSteps[] = {
    {"exchange", R"({"property": "colors"})", ColorExchange, L"1"},
    {"exchange", R"({"property": "colors"})", DefaultColors, L"0"},  // not the other colour event
    {"reset", R"({"property": "colors"})", DefaultColors, L"1"},
    {"select", R"({"targetClass": "layer", "targetName": "背景 副本"})", Ostrel_GetSelectEventLayerName, L"背景 副本"},
    {"select", R"({"targetClass": "brush", "targetName": "柔边圆压力大小"})", Ostrel_GetCurrentBrushPresetName,
     L"柔边圆压力大小"},
    {"set",
     R"({"property": "selection", "sourceClass": "layer", "sourceName": "图层 1", "sourceEnum": "transparencyEnum"})",
     LoadSelection, L"1 [图层 1] 0 0 1"},
    {"subtract", R"({"sourceClass": "channel", "sourceName": "Alpha 1"})", LoadSelection, L"1 [Alpha 1] 2 1 1"},
    {"interfaceIconFrameDimmed", R"({"sourceClass": "path", "sourceName": "路径 1"})", LoadSelection,
     L"1 [路径 1] 3 2 1"},
    {"addTo", R"({"sourceClass": "layer", "sourceName": "图层 2", "sourceEnum": "mask"})", LoadSelection,
     L"1 [图层 2] 1 0 2"},
    {"make", R"({"atEnum": "mask"})", AddMask, L"1 2 [] [当前图层]"},
    {"make", R"({"atEnum": "vectorMask"})", AddMask, L"1 4 [] [当前图层]"},
    {"make", R"({"atEnum": "mask", "usingName": "图层 2"})", AddMask, L"1 2 [图层 2] [当前图层]"},
    {"groupEvent", "{}", Ostrel_GetJoinLayerMaskName, L"当前图层"},
    {"groupEvent", "{}", AddMask, L"1 16 [] [当前图层]"},
    {"ungroup", "{}", Ostrel_GetQuitLayerMaskName, L"当前图层"},
    {"delete", R"({"targetClass": "layer", "targetName": "图层 3"})", Ostrel_GetDuplicateDeleteName, L"图层 3"},
    {"delete", R"({"targetClass": "channel", "targetEnum": "mask"})", Ostrel_GetDeleteMaskLayerName, L"当前图层"},
    {"duplicate", R"({"targetClass": "layer", "targetName": "图层 1", "newName": "图层 1 拷贝"})",
     Ostrel_GetDuplicateDeleteName, L"图层 1 拷贝"},
    {"set", R"({"targetClass": "layer", "maskLinkChanged": true})", Ostrel_GetLinkMaskLayerName, L"当前图层"},
    {"placedLayerEditContents", "{}", SmartObjectEdit, L"1"},
    {"placedLayerReplaceContents", R"({"path": "C:\\素材\\花=1.psd"})", Ostrel_GetSmartReplacePath,
     L"C:\\素材\\花=1.psd"},
    {"open", "{}", ColorExchange, L"0"},  // an event the script doesn't know writes nothing
};

class NotifierScriptTest : public EventFileTest {
 protected:
  static bool HaveNode() { return std::system("node --version > /dev/null 2>&1") == 0; }
  // Runs the script on one event; false when Node failed.
  bool RunScript(const char* event, const char* facts) {
    const std::filesystem::path step = m_root / "step.json";
    std::ofstream(step, std::ios::binary) << "{\"event\": \"" << event << "\", \"facts\": " << facts << "}";
    const std::filesystem::path source(OSTREL_SOURCE_DIR);
    const std::string command = "node \"" + (source / "tests/events/notifier_script_harness.js").string() + "\" \"" +
                                (source / "examples/notifiers/PsNotifiers.jsx").string() + "\" \"" +
                                TempFile().string() + "\" \"" + step.string() + "\" > /dev/null";
    return std::system(command.c_str()) == 0;
  }
};

TEST_F(NotifierScriptTest, EveryEventFillsTheKeysItsReaderReads) {
#if defined(_WIN32)
  GTEST_SKIP() << "Node runs on the build machine, not under Wine";
#endif
  if (!HaveNode()) GTEST_SKIP() << "needs Node (Debian package nodejs) to run the ExtendScript";
  ConnectToText(R"({"documents": [{"descriptor": {"title": "a.psd"}, "layers": [
      {"descriptor": {"name": "当前图层", "layerID": 2}},
      {"descriptor": {"name": "背景", "layerID": 1, "background": true}}]}]})");
  for (const ScriptStep& step : kSteps) {
    SCOPED_TRACE(std::string(step.event) + " " + step.facts);
    ASSERT_TRUE(RunScript(step.event, step.facts));
    EXPECT_EQ(step.read(), step.expected);
  }
  // What a script file holds is UTF-16LE with its mark, each line ending in CR LF.
  std::ifstream in(TempFile(), std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  ASSERT_GE(bytes.size(), 6u);
  EXPECT_EQ(bytes.substr(0, 4), std::string("\xFF\xFE[\0", 4));
  EXPECT_EQ(bytes.substr(bytes.size() - 4), std::string("\r\0\n\0", 4));
}

}  // namespace
}  // namespace ostrel
