#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tools/log/reading/log_head.h"

namespace tolvane::logtool {

/// The steps of a board's time line where its stamp, µs in a signed word, goes from the highest
/// number to the lowest (InterfaceBinding::Read, Frame_Time_Update).
///
/// The line then adds what it takes for the wrap's length, and the word's is ten times that, so it
/// steps back by the difference: a length that is known, whatever the bus did. With a first reading
/// O the last time ahead of the first such step is the highest reading less O, and less a part of
/// the frames' distance there; so O is known to that distance, and by O the line jumps ahead at the
/// frame behind the step, once.
///
/// The distance of the two frames at the step, which it is less by, is a minute at the most: any
/// other step back, as that of a board that is reset, is none of these. Times of a division ratio
/// other than 1 step back by another length.
class StampTurn {
 public:
  struct Found {
    double at;  // the time ahead of the first step back
    std::uint64_t steps = 1;
    double jump = 0.0;   // ms, at the frame behind the first step
    double doubt = 0.0;  // the jump may be so much longer or shorter
  };
  /// ms: 2^32 µs less the length that the line adds at a wrap.
  [[nodiscard]] static double StepBack();

  /// `steps` says whether the adapter is one with such stamps.
  explicit StampTurn(bool steps) : has_steps_(steps) {}

  /// To be called with the time of each frame in order. True at the one behind the first step back.
  bool Follow(double time) { return has_steps_ && Look(time); }
  [[nodiscard]] const std::optional<Found>& TheTurn() const { return found_; }
  /// How far the line is ahead by the steps; negative where it is behind.
  [[nodiscard]] double Ahead() const { return ahead_; }

 private:
  [[nodiscard]] bool Look(double time);
  void TakeStep(double distance);
  void TakeJump(double step);

  bool has_steps_;
  bool has_last_ = false;
  double last_ = 0.0;
  double origin_most_ = 0.0;      // what the first reading can have been; 0 where none is to come
  double origin_distance_ = 0.0;  // and so much less
  double ahead_ = 0.0;
  std::optional<Found> found_;
};

/// A sentence.
[[nodiscard]] std::string TextOf(const StampTurn::Found& turn, bool is_mended);

/// Whether a log's adapter has such stamps.
[[nodiscard]] bool HasSignedStamps(const LogHead& head);

}  // namespace tolvane::logtool
