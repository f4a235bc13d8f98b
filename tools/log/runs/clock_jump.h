#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "run/adapter_kind.h"
#include "tools/log/reading/log_head.h"

namespace tolvane::logtool {

/// The jump of a time line that follows an adapter's timer (Frame_Time_Update): at the frame behind
/// the timer's first wrap it goes ahead by the reading at which the run began, once.
///
/// The line passes the wrap's length in that step. With a first reading O and readings r and s of
/// the two frames behind the wrap W, their times are W - O + r and W + s. So the frames are s - r
/// apart, where s is known and r is not; it is at most s, and at most the step ahead of it.
class ClockJump {
 public:
  struct Found {
    double at;     // the time ahead of the jump
    double jump;   // ms
    double doubt;  // the jump may be so much longer or shorter
  };

  /// `wrap` is the length in ms after which the timer starts over, 0 for one that never does.
  explicit ClockJump(double wrap)
      : wrap_(wrap > 0.0 ? wrap : std::numeric_limits<double>::infinity()) {}

  /// To be called with the time of each frame in order.
  void Follow(double time) {
    if (!is_passed_) Look(time);
  }
  [[nodiscard]] const std::optional<Found>& TheJump() const { return found_; }
  /// How far ahead the line is since.
  [[nodiscard]] double Ahead() const { return found_ ? found_->jump : 0.0; }

 private:
  void Look(double time);

  double wrap_;
  double last_ = 0.0;
  double last_step_ = 0.0;
  double longest_step_ = 0.0;
  std::uint64_t frames_ = 0;
  bool is_passed_ = false;
  std::optional<Found> found_;
};

/// The kind of the adapter that a log names; null for one that is not known.
[[nodiscard]] const AdapterTraits* AdapterOf(const LogHead& head);

/// The wrap of the adapter that a log names, in ms; 0 for one that never wraps, or is not known.
[[nodiscard]] double ClockWrapOf(const LogHead& head);

}  // namespace tolvane::logtool
