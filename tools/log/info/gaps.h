#pragma once

#include <cstdint>
#include <vector>

#include "tools/log/info/run_statistics.h"

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

/// A gap is a silence longer than `multiple` times the cycle. Identifiers that come at odd times,
/// as those of questions and answers do, have none; of a regular one three in four cycles lie
/// between half and twice the median, both included. One of all identifiers is told once, and of an
/// identifier only what is not explained by those.
[[nodiscard]] JudgedRun JudgeRun(const RunStatistics& run, double multiple);

}  // namespace tolvane::logtool
