// The commands of the tool state, the history and the application exactly as Photoshop receives them: the event,
// the whole descriptor in Photoshop's JSON notation, and the dialog mode that shows no dialog.
#include <gtest/gtest.h>

#include <functional>

#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

struct CommandCase {
  const char* name;
  std::function<int()> command;
  const wchar_t* event;
  const char* descriptor;
};

const CommandCase kCases[] = {
    {"Zoom", [] { return Ostrel_ZoomScreen(L"zoomIn"); }, L"select",
     R"({"null":{"_ref":"menuItemClass","_enum":"menuItemType","_value":"zoomIn"}})"},
    {"ImportPresetFile", [] { return Ostrel_ImportPresetFile(L"brush", L"C:\\p\\x.abr", 1); }, L"set",
     R"({"null":{"_ref":[{"_ref":"property","_property":"brush"},{"_ref":"application","_enum":"ordinal","_value":"targetEnum"}]},"to":{"_path":"C:\\p\\x.abr"},"append":true})"},
    {"ImportPresetFileReplacing", [] { return Ostrel_ImportPresetFile(L"pattern", L"D:\\图案.pat", 0); }, L"set",
     R"({"null":{"_ref":[{"_ref":"property","_property":"pattern"},{"_ref":"application","_enum":"ordinal","_value":"targetEnum"}]},"to":{"_path":"D:\\图案.pat"},"append":false})"},
    // The one descriptor carries the name, the target and, as the new value, the tool's options with the shape.
    {"CustomShape", [] { return Ostrel_SetCustomShapeName(L"Heart"); }, L"set",
     R"({"name":"Heart","null":{"_ref":"customShapeTool"},"to":{"_obj":"null","tool":{"_enum":"marqueeRectTool","_value":"targetEnum"},"currentToolOptions":{"_obj":"currentToolOptions","$MrqA":true,"$MrqF":{"_unit":"pixelsUnit","_value":0},"$MrqI":{"_obj":"$MrqC","$AspH":1000,"$AspV":1000,"$FxHU":0,"$FxWU":0,"$FxdH":64,"$FxdW":64,"$MrqM":1},"contiguous":true,"selectionEnum":0},"customShape":{"_obj":"customShape","name":"Heart"}}})"},
    {"DeleteCurrentHistory", [] { return Ostrel_DeleteCurrentHistory(); }, L"delete",
     R"({"null":{"_ref":"historyState","_property":"currentHistoryState"}})"},
    {"ClearRecentFiles", [] { return Ostrel_ClearRecentFiles(); }, L"select",
     R"({"null":{"_ref":"menuItemClass","_enum":"menuItemType","_value":"clearRecentFiles"}})"},
};

class CommandsJournalTest : public test::ConnectedPhotoshopTest, public ::testing::WithParamInterface<CommandCase> {};

TEST_P(CommandsJournalTest, PhotoshopReceivesTheWholeCommand) {
  const CommandCase& c = GetParam();
  Connect();
  sim::SimulatedPhotoshop& photoshop = *m_photoshop;
  photoshop.ClearJournal();
  EXPECT_EQ(c.command(), 1);
  ASSERT_EQ(photoshop.Journal().size(), 1u);
  const sim::JournalEntry& entry = photoshop.Journal().front();
  EXPECT_EQ(entry.member, "executeAction");
  EXPECT_EQ(entry.event, c.event);
  EXPECT_EQ(entry.descriptor, c.descriptor);
  EXPECT_EQ(entry.dialogMode, 3);
  EXPECT_FALSE(entry.failed);
}

INSTANTIATE_TEST_SUITE_P(Commands, CommandsJournalTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace ostrel
