#pragma once

#include <cstdint>

#include "tools/log/info/run_statistics.h"

namespace tolvane::logtool {

/// An identifier, and what is missing of it.
struct JudgedIdentifier {
  const IdentifierStatistics* statistics;
  double cycle;            // median; 0 of fewer than three frames
  bool regular;            // has a cycle; without one it has no gaps
  double slow;             // as the cycle, or that of its slower rate
  std::uint64_t gaps = 0;  // between its first and its last frame
  double lost = 0.0;       // frames in them, and in those of all that are short for it
};

/// What its cycles tell, with nothing missing yet.
///
/// Identifiers that come at odd times, as those of questions and answers do, are not regular: of a
/// regular one three in four cycles lie between half and twice the median, both included. Where
/// more than one in twenty cycles, and at least twenty of them, are longer than `multiple` times
/// that, and these are as alike, they are its slower rate.
[[nodiscard]] JudgedIdentifier JudgedByItsCycles(const IdentifierStatistics& statistics,
                                                 double multiple);

}  // namespace tolvane::logtool
