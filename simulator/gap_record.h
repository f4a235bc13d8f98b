#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tolvane::simulator {

/// The time between two reads, which the program spent on something else.
struct ReadGap {
  std::int64_t us = 0;         // real time
  std::int64_t delivered = 0;  // frames given out before it
  std::int64_t at_us = 0;      // when it ended, on the bench's clock
};

/// The longest gaps of one kind, up to a fixed number. Allocates only in its constructor.
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
