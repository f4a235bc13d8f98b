#pragma once

#include <cstddef>
#include <vector>

namespace tolvane::logtool {

/// A stretch of time without a frame, in ms.
struct Silence {
  double begin;
  double length;

  [[nodiscard]] double End() const { return begin + length; }
};

/// The longest silences of an identifier, or of all: how long one has to be to count is known only
/// when the whole log has been seen.
class LongestSilences {
 public:
  explicit LongestSilences(std::size_t most) : most_(most) {}

  void Add(double begin, double length) {
    if (kept_.size() == most_ && length <= shortest_) return;
    Keep({begin, length});
  }
  /// In no order.
  [[nodiscard]] const std::vector<Silence>& Kept() const { return kept_; }

 private:
  void Keep(const Silence& silence);

  std::size_t most_;
  double shortest_ = 0.0;  // of those that are kept, once there are as many as can be
  std::vector<Silence> kept_;
};

}  // namespace tolvane::logtool
