// What the harnesses share: the library made ready once per process, and the fuzzer's bytes as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "ostrel/lifecycle.h"
#include "platform/text.h"

namespace ostrel::fuzz {

inline std::string_view Bytes(const uint8_t* data, size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// The bytes as UTF-8 text (a broken sequence becomes U+FFFD, as the library never sees one from the CLI).
inline std::wstring Text(std::string_view bytes) { return FromUtf8(bytes); }

// The folder that the daily log of a connection goes to: one of the system's temporary directory, never the
// working one.
inline const std::wstring& LogFolder() {
  static const std::wstring folder = [] {
    const std::filesystem::path logs = std::filesystem::temp_directory_path() / "ostrel-fuzz" / "";
    std::filesystem::create_directories(logs);
    return FromUtf8(logs.string());
  }();
  return folder;
}

// The host parameters as every input starts with them: the log folder above and no other key, whatever a call of
// the input set.
inline void ResetHostParameters() {
  Ostrel_SetParameter(33, LogFolder().c_str());
  for (const int key : {24, 25, 53, 66}) Ostrel_SetParameter(key, nullptr);
}

// The tables are built once: every harness starts from an initialized library, as a lesson player does.
inline void InitLibraryOnce() {
  static const bool done = [] {
    ResetHostParameters();
    Ostrel_Init();
    return true;
  }();
  (void)done;
}

// Stops the run with a message: a broken promise of the code under test is a finding like a crash.
[[noreturn]] inline void Broken(const char* what) {
  std::fputs(what, stderr);
  std::fputc('\n', stderr);
  std::abort();
}

}  // namespace ostrel::fuzz
