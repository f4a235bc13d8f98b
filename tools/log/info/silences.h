#pragma once

#include <cstddef>
#include <cstdint>
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
      : begin(from.time), end(to.time), length(from.To(to)), passed(Moment().To(from)) {}

  double begin = 0.0;
  double end = 0.0;
  double length = 0.0;
  double passed = 0.0;  // since the time line's 0: its place among others
};

/// The longest of many silences, of equally long ones the first, and how many there were.
class LongestSilences {
 public:
  struct Kept {
    Silence silence;
    double lost;  // frames
  };

  explicit LongestSilences(std::size_t most) : most_(most) {}

  void Add(const Silence& silence, double lost);
  /// So many more, in one that was added.
  void Lose(const Silence& silence, double lost);
  /// In no order.
  [[nodiscard]] const std::vector<Kept>& TheKept() const { return kept_; }
  [[nodiscard]] std::uint64_t LeftOut() const { return count_ - kept_.size(); }

 private:
  [[nodiscard]] bool IsTooShort(const Silence& silence) const;

  std::size_t most_;
  std::uint64_t count_ = 0;
  std::vector<Kept> kept_;  // a heap with the one on top that goes first
};

}  // namespace tolvane::logtool
