// Small constant lists for table rows of varying length, such as the ids of one name row. They are stored in
// place, so that a table of such rows stays constant data that is checked when it is compiled.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <stdexcept>

namespace ostrel {

// A list of at most N items, filled once from a braced list. A constexpr table with a row longer than N fails
// to compile, since the throw can't be evaluated there.
template <class T, std::size_t N>
class FixedList {
 public:
  constexpr FixedList() = default;
  constexpr FixedList(std::initializer_list<T> items) {
    if (items.size() > N) throw std::length_error("FixedList: too many items");
    for (const T& item : items) m_items[m_size++] = item;
  }
  constexpr const T* begin() const noexcept { return m_items.data(); }
  constexpr const T* end() const noexcept { return m_items.data() + m_size; }
  constexpr std::size_t size() const noexcept { return m_size; }

 private:
  std::array<T, N> m_items{};
  std::size_t m_size = 0;
};

// A run of numbers from nFirst to nLast inclusive; a single number is a run of one.
struct IdSpan {
  long long nFirst = 1;
  long long nLast = 0;
  constexpr IdSpan() = default;
  constexpr IdSpan(long long id) : nFirst(id), nLast(id) {}  // a bare id in a table row
  constexpr IdSpan(long long first, long long last) : nFirst(first), nLast(last) {}
  constexpr bool Contains(long long id) const noexcept { return id >= nFirst && id <= nLast; }
};

template <std::size_t N>
constexpr bool SpansContain(const FixedList<IdSpan, N>& spans, long long id) noexcept {
  for (const IdSpan& span : spans) {
    if (span.Contains(id)) return true;
  }
  return false;
}

}  // namespace ostrel

// Row helpers of the .def files: OSTREL_THRU(a, b) is the run of ids a to b, OSTREL_IDS(...) a list of ids and runs.
#define OSTREL_THRU(first, last) ::ostrel::IdSpan(first, last)
#define OSTREL_IDS(...) {__VA_ARGS__}
