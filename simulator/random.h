#pragma once

#include <cstdint>

namespace tolvane::simulator {

/// The SplitMix64 step: spreads a number over 64 bits. The same on every machine and compiler,
/// which the standard library's distributions are not.
constexpr std::uint64_t Scramble(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15u;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
  return value ^ (value >> 31);
}

/// A seeded sequence of numbers.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() { return Scramble(state_++); }

  /// 0 to `bound` minus 1; `bound` is at least 1.
  std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>(Next() % bound); }

  /// `low` to `high`, both included.
  std::int64_t Between(std::int64_t low, std::int64_t high) {
    return low + static_cast<std::int64_t>(Next() % static_cast<std::uint64_t>(high - low + 1));
  }

 private:
  std::uint64_t state_;
};

}  // namespace tolvane::simulator
