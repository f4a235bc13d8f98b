#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "tools/log/info/silences.h"

namespace tolvane::logtool {

/// Whether several identifiers that were missing up to a moment come back together: most of them,
/// and each within one of its cycles.
class CommonReturn {
 public:
  explicit CommonReturn(const Moment& since) : since_(since) {}

  void Await(std::uint64_t key, double cycle);
  /// The frames from there on, in their order.
  void Add(std::uint64_t key, const Moment& moment);

  /// Of one alone nothing is together.
  [[nodiscard]] bool AreSeveral() const { return all_ >= 2; }
  [[nodiscard]] bool AreMostBack() const { return AreSeveral() && back_ * 2 > all_; }
  /// Whether further frames change nothing.
  [[nodiscard]] bool IsDecided() const;

 private:
  Moment since_;
  double longest_ = 0.0;  // ms; of the cycles
  double passed_ = 0.0;   // ms
  std::size_t all_ = 0;
  std::size_t back_ = 0;
  std::unordered_map<std::uint64_t, double> awaited_;  // cycles by key
};

}  // namespace tolvane::logtool
