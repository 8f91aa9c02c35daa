// A fingerprint of a table for its tests: any changed letter, lost row or row moved to another place changes it,
// without the test listing the rows again.
#pragma once

#include <cstdint>
#include <string_view>

namespace ostrel::test_support {

// FNV-1a, 64 bits, over the bytes.
inline std::uint64_t Fingerprint(std::string_view bytes) noexcept {
  std::uint64_t hash = 0xcbf29ce484222325ULL;
  for (const unsigned char byte : bytes) hash = (hash ^ byte) * 0x100000001b3ULL;
  return hash;
}

}  // namespace ostrel::test_support
