// Where the event file is, its deletion, and files that the script is still writing or holds open: a reader
// gives its empty answer and never fails.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "event_test_support.h"
#include "ostrel/OstrelCore.h"

#if defined(_WIN32)
#include <share.h>
#endif

namespace ostrel {
namespace {

using test::EventFileTest;
using test::Wide;

// The path rule's second place as the library writes it, with Windows' separators.
std::wstring SecondPlace(const std::filesystem::path& localAppData) {
  return Wide(localAppData) + L"\\Temp\\PsNotifiers.ini";
}

TEST_F(EventFileTest, TheTemporaryDirectoryComesFirst) {
  EXPECT_EQ(Ostrel_GetPsNotifiersFilePath(), SecondPlace(m_root / "local"));  // neither there: the second place
  WriteBytes(LocalFile(), test::Utf16LeFile(L"[select]\r\nName=local\r\n"));
  EXPECT_EQ(Ostrel_GetPsNotifiersFilePath(), SecondPlace(m_root / "local"));
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"local");

  WriteBytes(TempFile(), test::Utf16LeFile(L"[select]\r\nName=temp\r\n"));
  WriteBytes(LocalFile(), test::Utf16LeFile(L"[select]\r\nName=local\r\n"));
  const auto localTime = std::filesystem::last_write_time(LocalFile());
  EXPECT_EQ(Ostrel_GetPsNotifiersFilePath(), Wide(TempFile()));
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"temp");
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"");
  // The file under the local application data was never looked at, let alone written.
  EXPECT_EQ(std::filesystem::last_write_time(LocalFile()), localTime);
  EXPECT_EQ(CurrentPlatform().ini->GetString(Wide(LocalFile()), L"select", L"Name"), L"local");
}

TEST_F(EventFileTest, DeleteRemovesTheFileThePathRuleNames) {
  EXPECT_EQ(Ostrel_DeletePsNotifiersFile(), 0);  // nothing to delete
  WriteEventFile(L"[select]\r\nName=a\r\n");
  WriteBytes(LocalFile(), test::Utf16LeFile(L"[select]\r\nName=b\r\n"));
  EXPECT_EQ(Ostrel_DeletePsNotifiersFile(), 1);
  EXPECT_FALSE(std::filesystem::exists(TempFile()));
  EXPECT_TRUE(std::filesystem::exists(LocalFile()));
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"b");  // now the second place is the file
  EXPECT_EQ(Ostrel_DeletePsNotifiersFile(), 1);
  EXPECT_FALSE(std::filesystem::exists(LocalFile()));
}

// Every reader once, with the answers it gives when there is no event.
void ExpectNoEvent() {
  EXPECT_EQ(Ostrel_IsColorExchange(), 0);
  EXPECT_EQ(Ostrel_IsDefaultBackgroundForegroundColor(), 0);
  EXPECT_EQ(Ostrel_IsSmartObjectEdit(), 0);
  EXPECT_EQ(Ostrel_GetJoinLayerMaskName(), L"");
  EXPECT_EQ(Ostrel_GetQuitLayerMaskName(), L"");
  EXPECT_EQ(Ostrel_GetDuplicateDeleteName(), L"");
  EXPECT_EQ(Ostrel_GetDeleteMaskLayerName(), L"");
  EXPECT_EQ(Ostrel_GetLinkMaskLayerName(), L"");
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"");
  EXPECT_EQ(Ostrel_GetSmartReplacePath(), L"");
  EXPECT_EQ(Ostrel_GetCurrentBrushPresetName(), L"");
  std::wstring start = L"s", dest = L"d", name = L"n";
  auto mask = static_cast<EnLayerMask>(99);
  auto mode = static_cast<EnSelectMode>(77);
  auto panel = static_cast<EnLayerPanel>(88);
  EXPECT_EQ(Ostrel_GetAddMask(start, dest, mask), 0);
  EXPECT_EQ(Ostrel_GetLoadSelectionInfo(name, mode, panel, mask), 0);
  EXPECT_EQ(static_cast<int>(mask), 99);
  EXPECT_EQ(static_cast<int>(mode), 77);
  EXPECT_EQ(static_cast<int>(panel), 88);
}

struct DamagedCase {
  const char* name;
  std::string bytes;
};

// The script writes a whole file at each event; these are the moments a reader may meet.
const DamagedCase kDamagedCases[] = {
    {"Missing", ""},
    {"Empty", std::string()},
    {"OnlyTheMark", "\xFF\xFE"},
    {"HalfAUnit", "\xFF\xFE["},
    {"CutInAHeader", test::Utf16LeFile(L"[Colo")},
    {"CutInAKey", test::Utf16LeFile(L"[Color]\r\nColorSt")},
    {"CutAtTheEquals", test::Utf16LeFile(L"[select]\r\nName=")},
    {"NulsOnly", std::string(64, '\0')},
    {"Binary", std::string("\x00\xFF\xFE\x80[]=\r\n\xD8\x00\xDC", 13)},
};

class DamagedFileTest : public EventFileTest, public ::testing::WithParamInterface<DamagedCase> {};

TEST_P(DamagedFileTest, EveryReaderGivesItsEmptyAnswer) {
  if (std::string(GetParam().name) != "Missing") WriteBytes(TempFile(), GetParam().bytes);
  ExpectNoEvent();
}

INSTANTIATE_TEST_SUITE_P(Cases, DamagedFileTest, ::testing::ValuesIn(kDamagedCases),
                         [](const auto& info) { return std::string(info.param.name); });

// A folder in the place of the file is no file: the path rule passes over it, and nothing reads or deletes it.
TEST_F(EventFileTest, AFolderInThePlaceOfTheFileIsNoEventFile) {
  std::filesystem::create_directories(TempFile());
  EXPECT_EQ(Ostrel_GetPsNotifiersFilePath(), SecondPlace(m_root / "local"));
  ExpectNoEvent();
  EXPECT_EQ(Ostrel_DeletePsNotifiersFile(), 0);
  EXPECT_TRUE(std::filesystem::is_directory(TempFile()));
  std::filesystem::create_directories(LocalFile());  // in both places
  ExpectNoEvent();
}

#if defined(_WIN32)
// The script holds the file open without sharing it: the profile functions can't open it, and every reader
// gives its empty answer; once the script lets go, the event is there.
TEST_F(EventFileTest, AFileHeldOpenByTheScriptReadsAsNoEvent) {
  WriteEventFile(L"[Color]\r\nColorState=1\r\n[select]\r\nName=图层 1\r\n");
  FILE* held = _wfsopen(Wide(TempFile()).c_str(), L"r+b", _SH_DENYRW);
  ASSERT_NE(held, nullptr);
  ExpectNoEvent();
  std::fclose(held);
  EXPECT_EQ(Ostrel_IsColorExchange(), 1);
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"图层 1");
}
#endif

// "-1" stands for the active layer, which needs Photoshop; a background in an indexed-colour document is named
// as the layer panel names it.
TEST_F(EventFileTest, MinusOneIsTheActiveLayer) {
  ConnectToText(R"({"documents": [{"descriptor": {"title": "a.psd"}, "activeLayer": 2, "layers": [
      {"descriptor": {"name": "图层 1", "layerID": 2}},
      {"descriptor": {"name": "背景", "layerID": 1, "background": true}}]}]})");
  WriteEventFile(
      L"[JoinLayerMask]\r\nState=1\r\nLayerName=-1\r\n[DuplicateDelete]\r\nName=-1\r\n[MaskLink]\r\nName=-1\r\n"
      L"[select]\r\nName=-1\r\n[Mask]\r\nMaskType=1\r\nMaskLayerNameStart=-1\r\nMaskLayerNameDest=-1\r\n");
  EXPECT_EQ(Ostrel_GetJoinLayerMaskName(), L"图层 1");
  EXPECT_EQ(Ostrel_GetLinkMaskLayerName(), L"图层 1");
  EXPECT_EQ(Ostrel_GetSelectEventLayerName(), L"-1");  // no "-1" rule here
  std::wstring start, dest;
  auto mask = static_cast<EnLayerMask>(0);
  EXPECT_EQ(Ostrel_GetAddMask(start, dest, mask), 1);
  EXPECT_EQ(start, L"图层 1");
  EXPECT_EQ(dest, L"图层 1");
  ASSERT_TRUE(CurrentPlatform().ini->SetString(Wide(TempFile()), L"Mask", L"MaskType", L"0"));
  ASSERT_TRUE(CurrentPlatform().ini->SetString(Wide(TempFile()), L"Mask", L"MakeMaskAddMode", L"yes"));
  EXPECT_EQ(Ostrel_GetAddMask(start, dest, mask), 1);
  EXPECT_EQ(start, L"");
  EXPECT_EQ(dest, L"图层 1");

  m_photoshop->state().documents.front().activeLayerId = 1;
  EXPECT_EQ(Ostrel_GetDeleteMaskLayerName(), L"背景");
}

TEST_F(EventFileTest, MinusOneInAnIndexedDocumentsBackground) {
  ConnectToText(R"({"documents": [{"descriptor": {"title": "索引.gif（索引#）"}, "layers": [
      {"descriptor": {"name": "背景", "layerID": 1, "background": true}}]}]})");
  WriteEventFile(L"[DuplicateDelete]\r\nName=-1\r\n");
  EXPECT_EQ(Ostrel_GetDeleteMaskLayerName(), L"索引");
}

// With no document the active layer has no name: "-1" gives "", and the failure stays inside the library.
TEST_F(EventFileTest, MinusOneWithoutADocument) {
  ConnectToText(R"({"documents": []})");
  WriteEventFile(L"[MaskLink]\r\nName=-1\r\n");
  EXPECT_EQ(Ostrel_GetLinkMaskLayerName(), L"");
  EXPECT_EQ(Key(L"MaskLink", L"Name"), std::wstring());
}

}  // namespace
}  // namespace ostrel
