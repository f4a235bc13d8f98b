#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "simulator/bus_frame.h"

namespace tolvane::simulator {

/// Lines of two channels may be a little out of order, µs; a clock that is set back steps by more.
constexpr std::int64_t kOutOfOrderUs_MAX = 1'000'000;

/// A recording in the candump log form, one frame to a line:
///
///   line  = "(" seconds ["." fraction] ")" blanks channel blanks frame [blanks ("R" | "T")]
///   frame = id "#" data ["_" dlc] | id "#R" [length]
///
/// An id of three hexadecimal digits has 11 bits, one of eight digits has 29; eight digits with
/// 20000000 added are an error frame. `data` is up to eight bytes; `dlc` (9 to F, behind eight
/// bytes) is a length code above 8. "T" at the end marks a frame that the recorder itself sent.
///
/// Times are from the first frame on and never step back: a frame out of order comes with the one
/// ahead of it, however far back one alone is. A step of the recorder's clock takes no time, and
/// the frames behind it keep their pace: it is one where two frames in a row are more than a second
/// before the one ahead of them.
struct CandumpLog {
  std::vector<BusFrame> frames;
  std::int64_t refused_lines = 0;       // neither a frame nor blank
  std::int64_t first_refused_line = 0;  // counted from 1; 0 without any
};

/// `frame.time_us` is the time in the line. False when `text` is not such a line; `frame` is then
/// unspecified.
bool ParseCandumpLine(std::string_view text, BusFrame& frame);

CandumpLog ParseCandumpLog(std::string_view text);

/// Plays a recording `repeat` times (0: without end). Between two passes there is the mean distance
/// between frames.
class LogSource : public BusSource {
 public:
  LogSource(std::shared_ptr<const CandumpLog> log, std::int64_t repeat);

  bool Next(BusFrame& frame) override;

 private:
  std::shared_ptr<const CandumpLog> log_;
  std::int64_t repeat_;
  std::int64_t pass_us_ = 0;
  std::int64_t passes_done_ = 0;
  std::int64_t pass_began_us_ = 0;
  std::size_t next_ = 0;
};

}  // namespace tolvane::simulator
