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
  double first = 0.0;
  double last = 0.0;
  CycleStatistics cycles;
  LongestSilences silences{kSilences_MAX};
  std::uint32_t lengths = 0;  // a bit for each that occurred, kOtherLengths for those behind 15

  static constexpr std::uint32_t kOtherLengths = 1U << 16;

  void Add(const LogFrame& frame);
};

/// What is known of a run; grows with its identifiers and not with its frames.
class RunStatistics {
 public:
  static constexpr std::size_t kSilences_MAX = 256;

  void Add(const LogFrame& frame);

  [[nodiscard]] std::uint64_t Frames() const { return frames_; }
  [[nodiscard]] double First() const { return first_; }
  [[nodiscard]] double Last() const { return last_; }
  /// How often a frame's time was before that of the frame ahead of it.
  [[nodiscard]] std::uint64_t StepsBack() const { return steps_back_; }
  /// Silences of all identifiers together.
  [[nodiscard]] const LongestSilences& Silences() const { return silences_; }
  /// By kind and number.
  [[nodiscard]] std::vector<const IdentifierStatistics*> Identifiers() const;

 private:
  [[nodiscard]] IdentifierStatistics& Of(const LogFrame& frame);

  std::uint64_t frames_ = 0;
  double first_ = 0.0;
  double last_ = 0.0;
  std::uint64_t steps_back_ = 0;
  LongestSilences silences_{kSilences_MAX};
  std::unordered_map<std::uint64_t, std::size_t> places_;
  std::vector<IdentifierStatistics> identifiers_;
};

}  // namespace tolvane::logtool
