// Files, folders, the clock, text encodings and the host's parameters: the rest of what the library asks of
// the system it runs on.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ostrel {

// Files and the well-known folders.
class IFileSystem {
 public:
  virtual ~IFileSystem() = default;
  virtual bool FileExists(const std::wstring& path) = 0;
  virtual bool RemoveFile(const std::wstring& path) = 0;
  // Makes every directory above the file named by path; true when they exist afterwards.
  virtual bool CreatePathTo(const std::wstring& filePath) = 0;
  // Opens the file for appending (creating it, never truncating), writes bytes at its end and closes it.
  virtual bool AppendToFile(const std::wstring& path, std::string_view bytes) = 0;
  // The user's temporary directory, with a closing separator.
  virtual std::wstring TempDirectory() = 0;
  // The user's local application data directory, without a closing separator.
  virtual std::wstring LocalAppDataDirectory() = 0;
};

struct LocalTime {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

class IClock {
 public:
  virtual ~IClock() = default;
  virtual LocalTime Now() = 0;
};

// Conversion of wide text to the Chinese code page 936 (GBK) of the log file. Characters without a form in
// that code page become '?'.
class ITextEncoding {
 public:
  virtual ~ITextEncoding() = default;
  virtual std::string ToCodePage936(std::wstring_view text) = 0;
  // Decodes code page 936 (GBK) bytes into wide text. Gives nothing when a byte sequence isn't valid in the code
  // page, with badOffset set to the offset of its first byte; no byte is ever replaced.
  virtual std::optional<std::wstring> FromCodePage936(std::string_view bytes, size_t& badOffset) = 0;
};

// The keys of the host's parameter library that the library reads.
enum class EnTallyKey : int32_t {
  kCameraRawMainTabImages = 24,
  kCameraRawSubTabImages = 25,
  kLogDirectory = 33,
  kBarSizesFile = 53,
  kPhotoshopVersionName = 66,
};

// Parameters by key that the host gives: on Windows the host's parameter library, elsewhere values a host
// sets in the process (or OSTREL_TALLY_<key> environment variables).
class IParameters {
 public:
  virtual ~IParameters() = default;
  virtual std::wstring GetString(EnTallyKey key) = 0;
};

}  // namespace ostrel
