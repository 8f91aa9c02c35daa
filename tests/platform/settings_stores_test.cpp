// The ini store, the registry and the files of the platform in force: the portable backends on Linux, the
// Windows backends (profile functions, advapi32) when this suite runs under Windows or Wine. The ini cases are
// files that someone else wrote; what a read gives is what GetPrivateProfileStringW gives for them.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel {
namespace {

std::wstring TestPath(const std::string& name) {
  const std::filesystem::path path = std::filesystem::path(::testing::TempDir()) / name;
  std::filesystem::remove(path);
#if defined(_WIN32)
  return path.wstring();
#else
  return FromUtf8(path.string());
#endif
}

std::filesystem::path FsPath(const std::wstring& path) {
#if defined(_WIN32)
  return std::filesystem::path(path);
#else
  return std::filesystem::path(ToUtf8(path));
#endif
}

// kUtf8 writes the case's bytes as they stand, without a mark; kGbk converts its text to the ANSI code page of
// the Chinese Windows.
enum class Encoding { kUtf8, kUtf8Bom, kUtf16LeBom, kGbk };

// The file's bytes for a text given as UTF-8.
std::string EncodeFile(std::string_view utf8, Encoding encoding) {
  if (encoding == Encoding::kUtf8) return std::string(utf8);
  if (encoding == Encoding::kGbk) return CurrentPlatform().encoding->ToCodePage936(FromUtf8(utf8));
  if (encoding == Encoding::kUtf8Bom) return "\xEF\xBB\xBF" + std::string(utf8);
  std::string bytes = "\xFF\xFE";
  for (const wchar_t c : FromUtf8(utf8)) {  // every character of the cases lies in the BMP
    bytes += static_cast<char>(static_cast<unsigned>(c) & 0xFF);
    bytes += static_cast<char>((static_cast<unsigned>(c) >> 8) & 0xFF);
  }
  return bytes;
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
  std::ofstream out(FsPath(path), std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Files as other programs leave them. Without a byte order mark both stores read a file in the ANSI code page,
// which is 936 on the Chinese Windows served (the Windows run of this suite sets it).
constexpr const char* kCrLf = "[Event]\r\nTool=marqueeRectTool\r\nLayer=Layer 1\r\n[Other]\r\nTool=x\r\n";
constexpr const char* kLfNoFinalEnd = "[Event]\nTool=marqueeRectTool\nLayer=Layer 1\n[Other]\nTool=x";
constexpr const char* kCutAfterCr = "[Event]\r\nLayer=Layer 1\r\nTool=marqueeRectTool\r";
constexpr const char* kChinese = "[事件]\r\n图层=图层 1\r\n[Event]\r\nLayer=背景 副本\r\n";
constexpr const char* kOtherCase = "[EVENT]\r\ntOOL=marqueeRectTool\r\n";
constexpr const char* kBlanks = "  [Event]  \r\n  Tool \t=  marquee Rect\tTool \t \r\n\tLayer\t=\t\r\n";
constexpr const char* kStrayKey = "Tool=stray\r\n; a comment\r\n\r\n[Event]\r\nLayer=Layer 1\r\n";
constexpr const char* kEquals = "[Event]\r\nPath=C:\\a=b\\c.psd\r\nNext==x\r\n";
constexpr const char* kQuotes =
    "[Event]\r\nLayer=\"  Layer 1  \"\r\nTool= 'move' \r\nMixed=\"move'\r\nInner=\"'x'\"\r\nOne=\"\r\n";
constexpr const char* kTwice = "[Event]\r\nTool=first\r\nTool=second\r\n[Other]\r\n[event]\r\nLayer=late\r\n";
constexpr const char* kEmpty = "";
// A file that its writer is still writing, cut at the end of the bytes that a case drops: 副 and 本 are two
// bytes each in GBK and in UTF-16LE.
constexpr const char* kHalfWritten = "[Event]\r\nTool=marqueeRectTool\r\nLayer=背景 副本\r\n[Other]\r\nTool=x\r\n";
// Invalid bytes in a file without a mark: the pair 81 7F and a lone FF; neither ends the reading.
constexpr const char* kBadAnsi = "[Event]\r\nLayer=x\x81\x7Fy\r\nTool=a\xFF" "b\r\nNext=1\r\n";
// Bad bytes one after the other with a character between: the reading goes on after each with the next byte.
constexpr const char* kManyBadAnsi =
    "[Event]\r\nLayer=\xFF\xD6\xD0\x81\x7F" "\xFF\xD6\xD0\x81\x7F" "\xFF\xD6\xD0\x81\x7F" "\r\nNext=1\r\n";

struct IniReadCase {
  const char* name;
  const char* file;
  Encoding encoding;
  const wchar_t* section;
  const wchar_t* key;
  const wchar_t* expected;  // nullptr: nothing
  size_t dropLast = 0;      // bytes cut off the end of the file
};

// Each case names the reading mistake it would catch.
constexpr IniReadCase kIniReadCases[] = {
    {"CrLfValueHasNoCr", kCrLf, Encoding::kUtf8, L"Event", L"Tool", L"marqueeRectTool"},
    {"CrLfBlankInValue", kCrLf, Encoding::kUtf8, L"Event", L"Layer", L"Layer 1"},
    {"SecondSectionOwnKey", kCrLf, Encoding::kUtf8, L"Other", L"Tool", L"x"},
    {"MissingKey", kCrLf, Encoding::kUtf8, L"Event", L"Missing", nullptr},
    {"MissingSection", kCrLf, Encoding::kUtf8, L"Missing", L"Tool", nullptr},
    {"KeyOfAnotherSection", kCrLf, Encoding::kUtf8, L"Other", L"Layer", nullptr},
    {"LfLineEnds", kLfNoFinalEnd, Encoding::kUtf8, L"Event", L"Layer", L"Layer 1"},
    {"NoFinalLineEnd", kLfNoFinalEnd, Encoding::kUtf8, L"Other", L"Tool", L"x"},
    {"FileCutAfterACr", kCutAfterCr, Encoding::kUtf8, L"Event", L"Tool", L"marqueeRectTool"},
    {"SectionAndKeyInOtherCase", kOtherCase, Encoding::kUtf8, L"event", L"Tool", L"marqueeRectTool"},
    {"AskedInCapitals", kOtherCase, Encoding::kUtf8, L"EVENT", L"TOOL", L"marqueeRectTool"},
    {"BlanksAroundKeyAndValue", kBlanks, Encoding::kUtf8, L"Event", L"Tool", L"marquee Rect\tTool"},
    {"BlanksOnlyValueIsEmpty", kBlanks, Encoding::kUtf8, L"Event", L"Layer", L""},
    {"KeyBeforeAnySection", kStrayKey, Encoding::kUtf8, L"Event", L"Tool", nullptr},
    {"KeyAfterStrayKey", kStrayKey, Encoding::kUtf8, L"Event", L"Layer", L"Layer 1"},
    {"ValueWithEquals", kEquals, Encoding::kUtf8, L"Event", L"Path", L"C:\\a=b\\c.psd"},
    {"ValueStartingWithEquals", kEquals, Encoding::kUtf8, L"Event", L"Next", L"=x"},
    {"DoubleQuotesDropped", kQuotes, Encoding::kUtf8, L"Event", L"Layer", L"  Layer 1  "},
    {"SingleQuotesDropped", kQuotes, Encoding::kUtf8, L"Event", L"Tool", L"move"},
    {"UnmatchedQuotesKept", kQuotes, Encoding::kUtf8, L"Event", L"Mixed", L"\"move'"},
    {"OnlyOuterQuotesDropped", kQuotes, Encoding::kUtf8, L"Event", L"Inner", L"'x'"},
    {"LoneQuoteKept", kQuotes, Encoding::kUtf8, L"Event", L"One", L"\""},
    {"FirstOfTwoKeys", kTwice, Encoding::kUtf8, L"Event", L"Tool", L"first"},
    {"RepeatedSectionIgnored", kTwice, Encoding::kUtf8, L"Event", L"Layer", nullptr},
    {"Utf8BomChinese", kChinese, Encoding::kUtf8Bom, L"事件", L"图层", L"图层 1"},
    {"Utf8BomLaterSection", kChinese, Encoding::kUtf8Bom, L"Event", L"Layer", L"背景 副本"},
    {"Utf8BomFirstLine", kCrLf, Encoding::kUtf8Bom, L"Event", L"Tool", L"marqueeRectTool"},
    {"Utf16LeChinese", kChinese, Encoding::kUtf16LeBom, L"事件", L"图层", L"图层 1"},
    {"Utf16LeLaterSection", kChinese, Encoding::kUtf16LeBom, L"Event", L"Layer", L"背景 副本"},
    {"Utf16LeBomFirstLine", kCrLf, Encoding::kUtf16LeBom, L"Event", L"Tool", L"marqueeRectTool"},
    {"Utf16LeNoFinalEnd", kLfNoFinalEnd, Encoding::kUtf16LeBom, L"Other", L"Tool", L"x"},
    {"EmptyFile", kEmpty, Encoding::kUtf8, L"Event", L"Tool", nullptr},
    {"GbkChinese", kChinese, Encoding::kGbk, L"事件", L"图层", L"图层 1"},
    {"GbkLaterSection", kChinese, Encoding::kGbk, L"Event", L"Layer", L"背景 副本"},
    // Half-written files: what was written before the cut reads as it will read when the file is whole.
    {"Utf16CutInASection", kHalfWritten, Encoding::kUtf16LeBom, L"Other", L"Tool", nullptr, 18},
    {"Utf16CutBeforeASection", kHalfWritten, Encoding::kUtf16LeBom, L"Event", L"Tool", L"marqueeRectTool", 18},
    {"Utf16CutInAValue", kHalfWritten, Encoding::kUtf16LeBom, L"Event", L"Layer", L"背景 副", 40},
    // The low byte of 本 (U+672C) alone reads as the unit 0x002C.
    {"Utf16CutInAUnit", kHalfWritten, Encoding::kUtf16LeBom, L"Event", L"Layer", L"背景 副,", 39},
    {"GbkCutInAValue", kHalfWritten, Encoding::kGbk, L"Event", L"Layer", L"背景 副", 21},
    {"GbkCutInAPair", kHalfWritten, Encoding::kGbk, L"Event", L"Layer", L"背景 副?", 20},
    {"GbkCutInAKey", kHalfWritten, Encoding::kGbk, L"Event", L"Layer", nullptr, 31},
    {"GbkCutAfterEquals", kHalfWritten, Encoding::kGbk, L"Event", L"Layer", L"", 28},
    {"GbkBadPairIsOneQuestionMark", kBadAnsi, Encoding::kUtf8, L"Event", L"Layer", L"x?y"},
    {"GbkLoneFF", kBadAnsi, Encoding::kUtf8, L"Event", L"Tool", L"a\uF8F5b"},
    {"GbkBadBytesDontStopTheReading", kBadAnsi, Encoding::kUtf8, L"Event", L"Next", L"1"},
    {"GbkBadBytesOneAfterAnother", kManyBadAnsi, Encoding::kUtf8, L"Event", L"Layer", L"\uF8F5中?\uF8F5中?\uF8F5中?"},
    {"GbkAfterManyBadBytes", kManyBadAnsi, Encoding::kUtf8, L"Event", L"Next", L"1"},
};

std::string CaseName(const ::testing::TestParamInfo<IniReadCase>& info) { return info.param.name; }

class IniReadTest : public ::testing::TestWithParam<IniReadCase> {
 protected:
  // One file per case: the profile functions keep files in a cache, which a fresh name keeps out of the way.
  std::wstring WriteCaseFile(const char* suffix = "") {
    const IniReadCase& c = GetParam();
    const std::wstring path = TestPath(std::string("ostrel_ini_") + c.name + suffix + ".ini");
    std::string bytes = EncodeFile(c.file, c.encoding);
    bytes.resize(bytes.size() - std::min(c.dropLast, bytes.size()));
    WriteBytes(path, bytes);
    return path;
  }
  void TearDown() override {
    for (const char* suffix : {"", "_written"}) {
      std::filesystem::remove(FsPath(TestPath(std::string("ostrel_ini_") + GetParam().name + suffix + ".ini")));
    }
  }
};

TEST_P(IniReadTest, ReadsAsTheProfileFunctionsDo) {
  const IniReadCase& c = GetParam();
  const std::optional<std::wstring> value = CurrentPlatform().ini->GetString(WriteCaseFile(), c.section, c.key);
  if (c.expected == nullptr) {
    EXPECT_FALSE(value.has_value()) << ToUtf8(*value);
  } else {
    EXPECT_EQ(value, std::wstring(c.expected));
  }
}

// A write into a file that someone else wrote keeps the rest of it: after a new key in an existing section, a key
// in a new section and a changed key, the case's own read still gives what it gave before. (The written text is
// ASCII: the profile functions write a file without a byte order mark in the ANSI code page.)
TEST_P(IniReadTest, AWriteKeepsTheRestOfTheFile) {
  const IniReadCase& c = GetParam();
  IIniStore& ini = *CurrentPlatform().ini;
  const std::wstring path = WriteCaseFile("_written");
  ASSERT_TRUE(ini.SetString(path, L"Event", L"Added", L"new 1"));
  ASSERT_TRUE(ini.SetString(path, L"Added", L"Key", L"v"));
  ASSERT_TRUE(ini.SetString(path, L"Other", L"Changed", L"one"));
  ASSERT_TRUE(ini.SetString(path, L"OTHER", L"changed", L"two"));
  EXPECT_EQ(ini.GetString(path, L"Event", L"Added"), L"new 1");
  EXPECT_EQ(ini.GetString(path, L"Added", L"Key"), L"v");
  EXPECT_EQ(ini.GetString(path, L"Other", L"Changed"), L"two");
  const std::optional<std::wstring> value = ini.GetString(path, c.section, c.key);
  if (c.expected == nullptr) {
    EXPECT_FALSE(value.has_value()) << ToUtf8(*value);
  } else {
    EXPECT_EQ(value, std::wstring(c.expected));
  }
}

INSTANTIATE_TEST_SUITE_P(Files, IniReadTest, ::testing::ValuesIn(kIniReadCases), CaseName);

std::string ReadBytes(const std::wstring& path) {
  std::ifstream in(FsPath(path), std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

TEST(IniStoreTest, KeysReadBackAndMissingOnesReadAsNothing) {
  IIniStore& ini = *CurrentPlatform().ini;
  const std::wstring file = TestPath("ostrel_store_test.ini");
  EXPECT_FALSE(ini.GetString(file, L"Event", L"Tool"));  // no file at all
  ASSERT_TRUE(ini.SetString(file, L"Event", L"Tool", L"marqueeRectTool"));
  ASSERT_TRUE(ini.SetString(file, L"Event", L"Layer", L"图层 1"));
  ASSERT_TRUE(ini.SetString(file, L"Other", L"Tool", L"x"));
  ASSERT_TRUE(ini.SetString(file, L"Event", L"Tool", L""));  // a blanked key stays, empty
  EXPECT_EQ(ini.GetString(file, L"Event", L"Tool"), std::wstring());
  EXPECT_EQ(ini.GetString(file, L"event", L"LAYER"), L"图层 1");  // sections and keys ignore case
  EXPECT_EQ(ini.GetString(file, L"Other", L"Tool"), L"x");
  EXPECT_FALSE(ini.GetString(file, L"Event", L"Missing"));
  EXPECT_FALSE(ini.GetString(file, L"Missing", L"Tool"));
  // A new file is UTF-16LE with its mark, so that text outside the ANSI code page survives too.
  EXPECT_EQ(ReadBytes(file).substr(0, 2), "\xFF\xFE");
  ASSERT_TRUE(ini.SetString(file, L"Event", L"Korean", L"한글 图层"));
  EXPECT_EQ(ini.GetString(file, L"Event", L"Korean"), L"한글 图层");
  std::filesystem::remove(FsPath(file));
}

// The key before any section and the comment stay where they were, and a key of the section is changed where it
// stands rather than added a second time.
TEST(IniStoreTest, AWriteChangesAKeyInPlaceAndKeepsStrayLines) {
  IIniStore& ini = *CurrentPlatform().ini;
  const std::wstring file = TestPath("ostrel_store_stray.ini");
  WriteBytes(file, kStrayKey);
  ASSERT_TRUE(ini.SetString(file, L"EVENT", L"tool", L"moved"));
  ASSERT_TRUE(ini.SetString(file, L"Event", L"LAYER", L"Layer 2"));
  EXPECT_EQ(ini.GetString(file, L"Event", L"Tool"), L"moved");
  EXPECT_EQ(ini.GetString(file, L"Event", L"Layer"), L"Layer 2");
  const std::string bytes = ReadBytes(file);
  const bool utf16 = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
  if (!utf16) {  // the Windows backend may keep a file in UTF-16; the portable one writes UTF-8
    EXPECT_EQ(bytes.find("Tool=stray"), 0u) << bytes;
    EXPECT_NE(bytes.find("; a comment"), std::string::npos) << bytes;
    EXPECT_EQ(bytes.find("Layer=Layer 1"), std::string::npos) << "changed in place: " << bytes;
  }
  std::filesystem::remove(FsPath(file));
}

// ---- Registry ------------------------------------------------------------------------------------------------

TEST(RegistryTest, ValuesReadBackByKindAndAbsentOnesReadAsNothing) {
  IRegistry& registry = *CurrentPlatform().registry;
  const std::wstring key = L"Software\\OstrelCoreTest\\Photoshop\\130.0";
  ASSERT_TRUE(registry.SetString(RegistryHive::kCurrentUser, key, L"ApplicationPath", L"C:\\Adobe\\图像\\"));
  ASSERT_TRUE(registry.SetDword(RegistryHive::kCurrentUser, key, L"UIScale", 2));
  EXPECT_EQ(registry.GetString(RegistryHive::kCurrentUser, key, L"ApplicationPath"), L"C:\\Adobe\\图像\\");
  EXPECT_EQ(registry.GetDword(RegistryHive::kCurrentUser, key, L"UIScale"), 2u);
  EXPECT_FALSE(registry.GetDword(RegistryHive::kCurrentUser, key, L"ApplicationPath"));  // another kind
  EXPECT_FALSE(registry.GetString(RegistryHive::kCurrentUser, key, L"Nothing"));
  EXPECT_FALSE(registry.GetString(RegistryHive::kCurrentUser, key + L"\\Deeper", L"ApplicationPath"));
}

struct RegistryNameCase {
  const wchar_t* key;
  const wchar_t* name;
};

// Key paths and value names compare without regard to case: every spelling reaches the value written under the
// first, and a write under any spelling replaces it.
TEST(RegistryTest, KeyPathsAndValueNamesIgnoreCase) {
  IRegistry& registry = *CurrentPlatform().registry;
  constexpr RegistryNameCase kSpellings[] = {
      {L"Software\\OstrelCoreTest\\Adobe", L"Foo"},
      {L"SOFTWARE\\OSTRELCORETEST\\ADOBE", L"Foo"},
      {L"Software\\OstrelCoreTest\\Adobe", L"FOO"},
      {L"software\\ostrelcoretest\\adobe", L"foo"},
  };
  ASSERT_TRUE(registry.SetString(RegistryHive::kCurrentUser, kSpellings[0].key, kSpellings[0].name, L"first"));
  int written = 0;
  for (const RegistryNameCase& spelling : kSpellings) {
    SCOPED_TRACE(ToUtf8(spelling.key) + " " + ToUtf8(spelling.name));
    EXPECT_EQ(registry.GetString(RegistryHive::kCurrentUser, spelling.key, spelling.name),
              written == 0 ? L"first" : L"write " + std::to_wstring(written));
    ++written;
    ASSERT_TRUE(registry.SetString(RegistryHive::kCurrentUser, spelling.key, spelling.name,
                                   L"write " + std::to_wstring(written)));
    EXPECT_EQ(registry.GetString(RegistryHive::kCurrentUser, kSpellings[0].key, kSpellings[0].name),
              L"write " + std::to_wstring(written));
  }
}

// One name holds one value: a DWORD written over a string (under another spelling) makes it a DWORD and no longer
// a string, and the other way round.
TEST(RegistryTest, TheLastWriteUnderANameGivesItsKind) {
  IRegistry& registry = *CurrentPlatform().registry;
  const std::wstring key = L"Software\\OstrelCoreTest\\Kinds";
  ASSERT_TRUE(registry.SetString(RegistryHive::kCurrentUser, key, L"Value", L"text"));
  ASSERT_TRUE(registry.SetDword(RegistryHive::kCurrentUser, L"SOFTWARE\\OstrelCoreTest\\KINDS", L"VALUE", 7));
  EXPECT_EQ(registry.GetDword(RegistryHive::kCurrentUser, key, L"Value"), 7u);
  EXPECT_FALSE(registry.GetString(RegistryHive::kCurrentUser, key, L"Value"));
  ASSERT_TRUE(registry.SetString(RegistryHive::kCurrentUser, key, L"value", L"again"));
  EXPECT_EQ(registry.GetString(RegistryHive::kCurrentUser, key, L"VALUE"), L"again");
  EXPECT_FALSE(registry.GetDword(RegistryHive::kCurrentUser, key, L"Value"));
}

// The two hives hold their own values under the same path and name.
TEST(RegistryTest, HivesAreSeparate) {
  IRegistry& registry = *CurrentPlatform().registry;
  const std::wstring key = L"Software\\OstrelCoreTest\\Hives";
  ASSERT_TRUE(registry.SetString(RegistryHive::kCurrentUser, key, L"Where", L"user"));
  if (!registry.SetString(RegistryHive::kLocalMachine, key, L"Where", L"machine")) {
    GTEST_SKIP() << "the machine hive can't be written here";  // a Windows account without the right
  }
  ASSERT_TRUE(registry.SetDword(RegistryHive::kLocalMachine, key, L"Number", 1));
  ASSERT_TRUE(registry.SetDword(RegistryHive::kCurrentUser, key, L"Number", 2));
  EXPECT_EQ(registry.GetString(RegistryHive::kCurrentUser, key, L"Where"), L"user");
  EXPECT_EQ(registry.GetString(RegistryHive::kLocalMachine, key, L"Where"), L"machine");
  EXPECT_EQ(registry.GetDword(RegistryHive::kLocalMachine, key, L"Number"), 1u);
  EXPECT_EQ(registry.GetDword(RegistryHive::kCurrentUser, key, L"Number"), 2u);
  EXPECT_FALSE(registry.GetString(RegistryHive::kLocalMachine, L"Software\\OstrelCoreTest\\OnlyUser", L"Where"));
}

// ---- Files ---------------------------------------------------------------------------------------------------

TEST(FileSystemTest, AppendCreatesAndNeverTruncates) {
  IFileSystem& files = *CurrentPlatform().files;
  const std::wstring dir = TestPath("ostrel_files_test");
  std::filesystem::remove_all(FsPath(dir));
  const std::wstring file = dir + L"/a/b/文件.log";
  EXPECT_FALSE(files.FileExists(file));
  ASSERT_TRUE(files.CreatePathTo(file));
  ASSERT_TRUE(files.AppendToFile(file, "one\r\n"));
  ASSERT_TRUE(files.AppendToFile(file, "two\r\n"));
  EXPECT_TRUE(files.FileExists(file));
  EXPECT_EQ(std::filesystem::file_size(FsPath(dir) / "a" / "b" / std::filesystem::u8path("文件.log")), 10u);
  EXPECT_TRUE(files.RemoveFile(file));
  EXPECT_FALSE(files.FileExists(file));
  EXPECT_FALSE(files.TempDirectory().empty());
  std::filesystem::remove_all(FsPath(dir));
}

}  // namespace
}  // namespace ostrel
