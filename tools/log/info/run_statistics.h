#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "tools/log/info/cycle_statistics.h"
#include "tools/log/info/silences.h"
#include "tools/log/reading/log_frame.h"

namespace tolvane::logtool {

/// What is known of one identifier.
struct IdentifierStatistics {
  static constexpr std::size_t kSilences_MAX = 64;

  std::uint32_t id = 0;
  bool extended = false;
  std::uint64_t frames = 0;
  Moment first;
  Moment last;
  CycleStatistics cycles;
  LongestSilences silences{kSilences_MAX};
  std::uint32_t lengths = 0;  // a bit for each that occurred, kOtherLengths for those behind 15

  static constexpr std::uint32_t kOtherLengths = 1U << 16;

  void Add(const LogFrame& frame, const Moment& moment);
};

/// What is known of a run; grows with its identifiers and not with its frames.
class RunStatistics {
 public:
  static constexpr std::size_t kSilences_MAX = 256;

  /// `ahead` is how far the frame's time is ahead by a jump of the clock, which is in no cycle and
  /// no silence.
  void Add(const LogFrame& frame, double ahead);

  [[nodiscard]] std::uint64_t Frames() const { return frames_; }
  [[nodiscard]] const Moment& First() const { return first_; }
  [[nodiscard]] const Moment& Last() const { return last_; }
  /// How often a frame's time was before that of the frame ahead of it.
  [[nodiscard]] std::uint64_t StepsBack() const { return steps_back_; }
  /// Silences of all identifiers together.
  [[nodiscard]] const LongestSilences& Silences() const { return silences_; }
  /// How many of these were longer than `limit`, kept or not.
  [[nodiscard]] std::uint64_t SilencesAbove(double limit) const {
    return silence_lengths_.Above(limit, 0.0).gaps;
  }
  /// By kind and number.
  [[nodiscard]] std::vector<const IdentifierStatistics*> Identifiers() const;

 private:
  [[nodiscard]] IdentifierStatistics& Of(const LogFrame& frame);

  std::uint64_t frames_ = 0;
  Moment first_;
  Moment last_;
  std::uint64_t steps_back_ = 0;
  LongestSilences silences_{kSilences_MAX};
  CycleStatistics silence_lengths_;
  std::unordered_map<std::uint64_t, std::size_t> places_;
  std::vector<IdentifierStatistics> identifiers_;
};

}  // namespace tolvane::logtool
