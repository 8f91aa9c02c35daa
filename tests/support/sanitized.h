// Whether the tests run under a sanitizer. The slowest property tests then try fewer generated cases: the
// sanitizers look for memory and thread errors on every path, which a few documents already take, and run the code
// several times slower.
#pragma once

namespace ostrel::test {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace ostrel::test
