// Numbers that a seed decides.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

namespace wifi_profile::simulation {

// A counter whose values are mixed well: the n-th number depends on the seed and on n alone. Any
// thread; who shares it among threads that really run side by side no longer knows which draws
// which number.
class Random {
 public:
  explicit Random(std::uint64_t seed) : counter_(mixed(seed + kStep)) {}

  std::uint64_t next() { return mixed(counter_.fetch_add(kStep, std::memory_order_relaxed)); }

  // 0 to `count` - 1; `count` must not be 0.
  std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }
  bool oneIn(std::size_t count) { return below(count) == 0; }

  // One element; there must be one.
  template <class Container>
  const auto& pick(const Container& from) {
    return from[below(from.size())];
  }

 private:
  static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15;
  static std::uint64_t mixed(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
    return value ^ (value >> 31);
  }

  std::atomic<std::uint64_t> counter_;
};

}  // namespace wifi_profile::simulation
