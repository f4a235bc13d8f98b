#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "tools/log/info/run_statistics.h"
#include "tools/log/info/silences.h"

namespace tolvane::logtool {

/// Where frames seem to be missing.
struct Gap {
  enum class Edge : std::uint8_t { kNone, kBegin, kEnd };  // of the log

  const IdentifierStatistics* identifier;  // null for all of them
  Silence silence;
  double lost;  // frames that a message of this cycle would have sent
  Edge edge = Edge::kNone;
};

/// An identifier, and what is missing of it.
struct JudgedIdentifier {
  const IdentifierStatistics* statistics;
  double cycle;                // median; 0 of fewer than three frames
  bool regular;                // has a cycle; without one it has no gaps
  CycleStatistics::Lost lost;  // between its first and its last frame
};

struct JudgedRun {
  std::vector<JudgedIdentifier> identifiers;  // by kind and number
  std::vector<Gap> gaps;                      // by their begin
  /// Shorter ones that are not among these, of all identifiers or of one, as there are too many.
  std::uint64_t gaps_left_out = 0;
  double cycle = 0.0;  // of the regular identifier with most frames, for silences of all

  /// False when no identifier comes regularly: then nothing tells a gap from a silence.
  [[nodiscard]] bool IsJudged() const { return cycle > 0.0; }
};

/// Finds the gaps of a run whose statistics are complete, for which its frames come once more: how
/// long a silence has to be is known only then.
///
/// A gap is a silence longer than `multiple` times the cycle. Identifiers that come at odd times,
/// as those of questions and answers do, have none; of a regular one three in four cycles lie
/// between half and twice the median, both included. One of all identifiers is told once. One of an
/// identifier is its own where it is longer than that without those of all within it.
class GapFinder {
 public:
  // Gaps that are kept; all are counted.
  static constexpr std::size_t kCommon_MAX = 256;
  static constexpr std::size_t kOwn_MAX = 64;  // of each identifier

  GapFinder(const RunStatistics& run, double multiple);

  /// As RunStatistics::Add.
  void Add(const LogFrame& frame, double ahead);
  /// To be called once, behind the last frame.
  [[nodiscard]] JudgedRun Result();

 private:
  struct Follower {
    JudgedIdentifier judged;
    Moment last;                         // frame; at first the run's begin
    double common = 0.0;                 // what common_ was then
    Gap::Edge edge = Gap::Edge::kBegin;  // at which the silence is that goes on
    LongestSilences gaps{kOwn_MAX};
  };

  void Follow(Follower& follower, const Moment& moment);
  void Take(const Follower& follower, const Silence& silence, Gap::Edge edge);

  const RunStatistics& run_;
  const double multiple_;
  JudgedRun result_;
  double frames_per_ms_ = 0.0;  // of all regular identifiers together
  Moment last_;
  double common_ = 0.0;  // ms of gaps of all so far
  LongestSilences common_gaps_{kCommon_MAX};
  std::unordered_map<std::uint64_t, Follower> followers_;  // of regular identifiers, by their keys
};

}  // namespace tolvane::logtool
