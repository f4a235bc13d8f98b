#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "simulator/bus_frame.h"

namespace tolvane::simulator {

/// The adapter's receive queue: a ring of fixed size that allocates only in its constructor.
class FrameQueue {
 public:
  explicit FrameQueue(std::size_t capacity) : ring_(std::max<std::size_t>(capacity, 1)) {}

  /// False when the queue is full; the frame is then lost.
  bool Push(const BusFrame& frame) {
    if (count_ == ring_.size()) return false;
    const std::size_t place = first_ + count_;
    ring_[place < ring_.size() ? place : place - ring_.size()] = frame;
    high_water_ = std::max(high_water_, ++count_);
    return true;
  }

  /// The oldest frame, false when there is none.
  bool Pop(BusFrame& frame) {
    if (count_ == 0) return false;
    frame = ring_[first_];
    first_ = first_ + 1 == ring_.size() ? 0 : first_ + 1;
    --count_;
    return true;
  }

  std::size_t Count() const { return count_; }
  std::size_t HighWater() const { return high_water_; }

 private:
  std::vector<BusFrame> ring_;
  std::size_t first_ = 0;
  std::size_t count_ = 0;
  std::size_t high_water_ = 0;
};

}  // namespace tolvane::simulator
