#pragma once

#include <cstddef>
#include <vector>

namespace tolvane::logtool {

/// A time of the log in ms, and how far it is ahead as the adapter's clock has jumped.
struct Moment {
  double time = 0.0;
  double ahead = 0.0;

  /// How much later another one is: the jump is no time that has passed.
  [[nodiscard]] double To(const Moment& later) const {
    return (later.time - later.ahead) - (time - ahead);
  }
};

/// A stretch without a frame, in ms. Its length is less than from begin to end where the clock has
/// jumped in it.
struct Silence {
  Silence() = default;
  Silence(const Moment& from, const Moment& to)
      : begin(from.time), end(to.time), length(from.To(to)) {}

  double begin = 0.0;
  double end = 0.0;
  double length = 0.0;
};

/// The longest silences of an identifier, or of all: how long one has to be to count is known only
/// when the whole log has been seen.
class LongestSilences {
 public:
  explicit LongestSilences(std::size_t most) : most_(most) {}

  void Add(const Silence& silence) {
    if (kept_.size() == most_ && silence.length <= shortest_) return;
    Keep(silence);
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
