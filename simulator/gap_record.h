#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tolvane::simulator {

/// The time between two reads: what the program did meanwhile.
struct ReadGap {
  std::int64_t us = 0;         // real time
  std::int64_t delivered = 0;  // frames given out before it
};

/// The longest gaps of one kind, as many as it was made for. Allocates only when it is made.
class GapRecord {
 public:
  explicit GapRecord(std::size_t kept);

  void Note(const ReadGap& gap);

  /// The longest one first.
  std::vector<ReadGap> Longest() const;

 private:
  std::size_t kept_;
  std::vector<ReadGap> gaps_;  // a heap, the shortest one on top
};

}  // namespace tolvane::simulator
