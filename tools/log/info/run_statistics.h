#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "tools/log/info/cycle_statistics.h"
#include "tools/log/info/silences.h"
#include "tools/log/reading/log_frame.h"

namespace tolvane::logtool {

/// Of an identifier, by its kind and number.
[[nodiscard]] constexpr std::uint64_t KeyOf(bool extended, std::uint32_t id) {
  return std::uint64_t{extended} << 32 | id;
}

/// What is known of one identifier.
struct IdentifierStatistics {
  std::uint32_t id = 0;
  bool extended = false;
  std::uint64_t frames = 0;
  Moment first;
  Moment last;
  CycleStatistics cycles;
  std::uint32_t lengths = 0;  // a bit for each that occurred, kOtherLengths for those behind 15

  static constexpr std::uint32_t kOtherLengths = 1U << 16;

  [[nodiscard]] std::uint64_t Key() const { return KeyOf(extended, id); }
  void Add(const LogFrame& frame, const Moment& moment);
};

/// What is known of a run; grows with its identifiers and not with its frames.
class RunStatistics {
 public:
  /// `ahead` is how far the frame's time is ahead by a jump of the clock, which is in no cycle and
  /// no silence.
  void Add(const LogFrame& frame, double ahead);

  [[nodiscard]] std::uint64_t Frames() const { return frames_; }
  [[nodiscard]] const Moment& First() const { return first_; }
  [[nodiscard]] const Moment& Last() const { return last_; }
  /// How often a frame's time was before that of the frame ahead of it.
  [[nodiscard]] std::uint64_t StepsBack() const { return steps_back_; }
  /// By kind and number.
  [[nodiscard]] std::vector<const IdentifierStatistics*> Identifiers() const;

 private:
  [[nodiscard]] IdentifierStatistics& Of(const LogFrame& frame);

  std::uint64_t frames_ = 0;
  Moment first_;
  Moment last_;
  std::uint64_t steps_back_ = 0;
  std::unordered_map<std::uint64_t, std::size_t> places_;
  std::vector<IdentifierStatistics> identifiers_;
};

}  // namespace tolvane::logtool
