// The readers of the event file, through the exports: what each gives for the keys the notifier script wrote,
// and what it leaves in the file for the next read.
#include <gtest/gtest.h>

#include <string>

#include "event_test_support.h"
#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

using test::EventFileTest;
using test::Wide;

struct ReaderCase {
  const char* name;
  const wchar_t* file;
  std::wstring (*read)();  // the reader, its result as text
  const wchar_t* expected;
  const wchar_t* section;  // the key whose value the read leaves ...
  const wchar_t* key;
  const wchar_t* after;  // ... nullptr: not there
};

std::wstring ColorExchange() {
  return std::to_wstring(Ostrel_IsColorExchange());
}
std::wstring DefaultColors() {
  return std::to_wstring(Ostrel_IsDefaultBackgroundForegroundColor());
}
std::wstring SmartObjectEdit() {
  return std::to_wstring(Ostrel_IsSmartObjectEdit());
}

const ReaderCase kReaderCases[] = {
    {"ExchangeTaken", L"[Color]\r\nColorState=1\r\n", ColorExchange, L"1", L"Color", L"ColorState", L"0"},
    {"ExchangeLeavesDefault", L"[Color]\r\nColorState=2\r\n", ColorExchange, L"0", L"Color", L"ColorState", L"2"},
    {"DefaultTaken", L"[Color]\r\nColorState=2\r\n", DefaultColors, L"1", L"Color", L"ColorState", L"0"},
    {"DefaultLeavesExchange", L"[Color]\r\nColorState=1\r\n", DefaultColors, L"0", L"Color", L"ColorState", L"1"},
    {"ColorReadAsWtoi", L"[Color]\r\nColorState= 1st\r\n", ColorExchange, L"1", L"Color", L"ColorState", L"0"},
    {"ColorWithoutDigits", L"[Color]\r\nColorState=one\r\n", ColorExchange, L"0", L"Color", L"ColorState", L"one"},
    {"SmartObjectTaken", L"[SmartObject]\r\nState=1\r\n", SmartObjectEdit, L"1", L"SmartObject", L"State", L"0"},
    {"SmartObjectOtherState", L"[SmartObject]\r\nState=2\r\n", SmartObjectEdit, L"0", L"SmartObject", L"State", L"2"},
    {"JoinTakesTheName", L"[JoinLayerMask]\r\nState=1\r\nLayerName=背景 副本\r\n", Ostrel_GetJoinLayerMaskName,
     L"背景 副本", L"JoinLayerMask", L"LayerName", L""},
    {"JoinKeepsTheState", L"[JoinLayerMask]\r\nState=1\r\nLayerName=背景 副本\r\n", Ostrel_GetJoinLayerMaskName,
     L"背景 副本", L"JoinLayerMask", L"State", L"1"},
    {"JoinIgnoresAQuit", L"[JoinLayerMask]\r\nState=0\r\nLayerName=图层 1\r\n", Ostrel_GetJoinLayerMaskName, L"",
     L"JoinLayerMask", L"LayerName", L"图层 1"},
    {"QuitWithoutAStateKey", L"[JoinLayerMask]\r\nLayerName=图层 1\r\n", Ostrel_GetQuitLayerMaskName, L"图层 1",
     L"JoinLayerMask", L"LayerName", L""},
    {"QuitOfAnEmptyName", L"[JoinLayerMask]\r\nState=0\r\nLayerName=\r\n", Ostrel_GetQuitLayerMaskName, L"",
     L"JoinLayerMask", L"State", L"0"},
    {"DuplicateTaken", L"[DuplicateDelete]\r\nName=图层 1 拷贝\r\n", Ostrel_GetDuplicateDeleteName, L"图层 1 拷贝",
     L"DuplicateDelete", L"Name", L""},
    {"DuplicateKeepsMinusOne", L"[DuplicateDelete]\r\nName=-1\r\n", Ostrel_GetDuplicateDeleteName, L"-1",
     L"DuplicateDelete", L"Name", L""},
    {"DeleteMaskTakesTheSameKey", L"[DuplicateDelete]\r\nName=图层 2\r\n", Ostrel_GetDeleteMaskLayerName, L"图层 2",
     L"DuplicateDelete", L"Name", L""},
    // Unconnected the active layer has no name: "-1" gives "", and the event is taken all the same.
    {"DeleteMaskMinusOneUnconnected", L"[DuplicateDelete]\r\nName=-1\r\n", Ostrel_GetDeleteMaskLayerName, L"",
     L"DuplicateDelete", L"Name", L""},
    {"LinkMaskTaken", L"[MaskLink]\r\nName=形状 1\r\n", Ostrel_GetLinkMaskLayerName, L"形状 1", L"MaskLink", L"Name",
     L""},
    {"SelectKeepsMinusOne", L"[select]\r\nName=-1\r\n", Ostrel_GetSelectEventLayerName, L"-1", L"select", L"Name", L""},
    {"SelectNotAnotherSection", L"[MaskLink]\r\nName=x\r\n", Ostrel_GetSelectEventLayerName, L"", L"MaskLink", L"Name",
     L"x"},
    {"SmartReplaceTaken", L"[SmartObject]\r\nPath=C:\\图片\\a=b.psd\r\n", Ostrel_GetSmartReplacePath,
     L"C:\\图片\\a=b.psd", L"SmartObject", L"Path", L""},
    {"BrushOnlyRead", L"[Brush]\r\nPresetName=柔边圆\r\n", Ostrel_GetCurrentBrushPresetName, L"柔边圆", L"Brush",
     L"PresetName", L"柔边圆"},
    {"AnEmptyKeyWritesNothing", L"[select]\r\nName=\r\n", Ostrel_GetSelectEventLayerName, L"", L"select", L"Name", L""},
    {"AMissingKeyIsNotWritten", L"[select]\r\nOther=1\r\n", Ostrel_GetSelectEventLayerName, L"", L"select", L"Name",
     nullptr},
};

class EventReaderTest : public EventFileTest, public ::testing::WithParamInterface<ReaderCase> {};

TEST_P(EventReaderTest, GivesTheEventAndLeavesTheKey) {
  const ReaderCase& c = GetParam();
  WriteEventFile(c.file);
  EXPECT_EQ(c.read(), c.expected);
  const std::optional<std::wstring> after = Key(c.section, c.key);
  if (c.after == nullptr) {
    EXPECT_FALSE(after.has_value()) << ToUtf8(*after);
  } else {
    EXPECT_EQ(after, std::wstring(c.after));
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, EventReaderTest, ::testing::ValuesIn(kReaderCases),
                         [](const auto& info) { return std::string(info.param.name); });

// A taken event is reported once: the second read of each reader gives its empty answer.
TEST_F(EventFileTest, AnEventIsReportedOnce) {
  WriteEventFile(
      L"[Color]\r\nColorState=2\r\n[JoinLayerMask]\r\nState=1\r\nLayerName=图层 1\r\n[select]\r\nName=背景\r\n");
  EXPECT_EQ(Ostrel_IsColorExchange(), 0);  // not its value: left for the other reader
  EXPECT_EQ(Ostrel_IsDefaultBackgroundForegroundColor(), 1);
  EXPECT_EQ(Ostrel_IsDefaultBackgroundForegroundColor(), 0);
  EXPECT_EQ(Ostrel_IsColorExchange(), 0);
  EXPECT_EQ(Ostrel_GetJoinLayerMaskName(), L"图层 1");
  EXPECT_EQ(Ostrel_GetJoinLayerMaskName(), L"");
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"背景");
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"");
  // The script's next event only has to write the name: the state is still there.
  ASSERT_TRUE(CurrentPlatform().ini->SetString(Wide(TempFile()), L"JoinLayerMask", L"LayerName", L"图层 2"));
  EXPECT_EQ(Ostrel_GetJoinLayerMaskName(), L"图层 2");
}

// Whichever of the two readers of DuplicateDelete comes first gets the event.
TEST_F(EventFileTest, DuplicateAndDeleteMaskShareOneEvent) {
  WriteEventFile(L"[DuplicateDelete]\r\nName=图层 3\r\n");
  EXPECT_EQ(Ostrel_GetDeleteMaskLayerName(), L"图层 3");
  EXPECT_EQ(Ostrel_GetDuplicateDeleteName(), L"");
}

struct AddMaskCase {
  const char* name;
  const wchar_t* file;
  int result;
  int mask;  // after a call with 99
  const wchar_t* start;
  const wchar_t* dest;
  const wchar_t* maskTypeAfter;
};

const AddMaskCase kAddMaskCases[] = {
    {"NoEvent", L"[Mask]\r\nMaskLayerNameStart=a\r\n", 0, 99, L"", L"", nullptr},
    {"EmptyMaskType", L"[Mask]\r\nMaskType=\r\nMaskLayerNameStart=a\r\n", 0, 99, L"", L"", L""},
    {"TypeZeroAlone", L"[Mask]\r\nMaskType=0\r\n", 1, 1, L"", L"", L""},
    {"TypeOne", L"[Mask]\r\nMaskType=1\r\nMaskLayerNameStart=图层 1\r\nMaskLayerNameDest=图层 2\r\n", 1, 2, L"图层 1",
     L"图层 2", L""},
    {"TypeTwo", L"[Mask]\r\nMaskType=2\r\n", 1, 4, L"", L"", L""},
    {"TypeThree", L"[Mask]\r\nMaskType=3\r\n", 1, 8, L"", L"", L""},
    {"TypeFour", L"[Mask]\r\nMaskType=4\r\n", 1, 16, L"", L"", L""},
    {"TypeSevenLeavesTheMask", L"[Mask]\r\nMaskType=7\r\n", 1, 99, L"", L"", L""},
    {"NegativeTypeLeavesTheMask", L"[Mask]\r\nMaskType=-1\r\n", 1, 99, L"", L"", L""},
    // Made on the active layer: no start, and the destination is the active layer (unconnected: "").
    {"AddModeIgnoresTheNames",
     L"[Mask]\r\nMaskType=1\r\nMakeMaskAddMode=1\r\nMaskLayerNameStart=a\r\nMaskLayerNameDest=b\r\n", 1, 2, L"", L"",
     L""},
    {"MinusOneUnconnected", L"[Mask]\r\nMaskType=0\r\nMaskLayerNameStart=-1\r\nMaskLayerNameDest=b\r\n", 1, 1, L"",
     L"b", L""},
};

class AddMaskTest : public EventFileTest, public ::testing::WithParamInterface<AddMaskCase> {};

TEST_P(AddMaskTest, GivesTheMaskAndItsLayers) {
  const AddMaskCase& c = GetParam();
  WriteEventFile(c.file);
  std::wstring start = L"old start", dest = L"old dest";
  auto mask = static_cast<EnLayerMask>(99);
  EXPECT_EQ(Ostrel_GetAddMask(start, dest, mask), c.result);
  EXPECT_EQ(static_cast<int>(mask), c.mask);
  EXPECT_EQ(start, c.start);
  EXPECT_EQ(dest, c.dest);
  const std::optional<std::wstring> after = Key(L"Mask", L"MaskType");
  if (c.maskTypeAfter == nullptr) {
    EXPECT_FALSE(after.has_value());
  } else {
    EXPECT_EQ(after, std::wstring(c.maskTypeAfter));
  }
  if (c.result == 1) {  // the names of the event stay for the script's next event
    EXPECT_EQ(Ostrel_GetAddMask(start, dest, mask), 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, AddMaskTest, ::testing::ValuesIn(kAddMaskCases),
                         [](const auto& info) { return std::string(info.param.name); });

struct LoadSelectionCase {
  const char* name;
  const wchar_t* file;
  int result;
  int mode, panel, mask;  // after a call with 77, 88, 99
};

const LoadSelectionCase kLoadSelectionCases[] = {
    {"NoEvent", L"[LoadSelection]\r\nMode=1\r\nType=1\r\nMaskType=1\r\n", 0, 77, 88, 99},
    {"All", L"[LoadSelection]\r\nName=Alpha 1\r\nMode=2\r\nType=1\r\nMaskType=3\r\n", 1, 2, 1, 8},
    {"MissingKeysAreZero", L"[LoadSelection]\r\nName=图层 1\r\n", 1, 0, 0, 1},
    {"ModeTakenWhateverItIs", L"[LoadSelection]\r\nName=x\r\nMode=42\r\nType=2\r\nMaskType=2\r\n", 1, 42, 2, 4},
    {"PanelAndMaskOutOfRange", L"[LoadSelection]\r\nName=x\r\nMode=1\r\nType=3\r\nMaskType=4\r\n", 1, 1, 88, 99},
    {"NegativePanelAndMask", L"[LoadSelection]\r\nName=x\r\nType=-1\r\nMaskType=-1\r\n", 1, 0, 88, 99},
};

class LoadSelectionTest : public EventFileTest, public ::testing::WithParamInterface<LoadSelectionCase> {};

TEST_P(LoadSelectionTest, GivesTheSelectionAndTakesOnlyTheName) {
  const LoadSelectionCase& c = GetParam();
  WriteEventFile(c.file);
  std::wstring name = L"old";
  auto mode = static_cast<EnSelectMode>(77);
  auto panel = static_cast<EnLayerPanel>(88);
  auto mask = static_cast<EnLayerMask>(99);
  EXPECT_EQ(Ostrel_GetLoadSelectionInfo(name, mode, panel, mask), c.result);
  EXPECT_EQ(static_cast<int>(mode), c.mode);
  EXPECT_EQ(static_cast<int>(panel), c.panel);
  EXPECT_EQ(static_cast<int>(mask), c.mask);
  if (c.result == 1) {
    EXPECT_EQ(Key(L"LoadSelection", L"Name"), std::wstring());
    EXPECT_EQ(Ostrel_GetLoadSelectionInfo(name, mode, panel, mask), 0);
    EXPECT_EQ(name, L"");
  } else {
    EXPECT_EQ(name, L"");  // the empty name read
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, LoadSelectionTest, ::testing::ValuesIn(kLoadSelectionCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace ostrel
