// A table that Ostrel_Init builds from constant rows, once for the life of the process. Before the first build it
// reads as empty; a later build changes nothing and frees nothing, so a lookup on another thread that holds a row
// keeps a valid one, and two threads building at once build it exactly once.
#pragma once

#include <atomic>
#include <mutex>
#include <span>
#include <vector>

namespace ostrel {

template <class Row>
class BuiltTable {
 public:
  // Runs make() on the first call only and publishes what it gave.
  template <class Make>
  void Build(Make&& make) {
    std::call_once(m_once, [&] {
      m_rows = make();
      m_built.store(true, std::memory_order_release);
    });
  }

  // The rows, or none before the first Build.
  std::span<const Row> Rows() const noexcept {
    if (!m_built.load(std::memory_order_acquire)) return {};
    return m_rows;
  }

 private:
  std::once_flag m_once;
  std::atomic<bool> m_built{false};
  std::vector<Row> m_rows;
};

}  // namespace ostrel
