#pragma once

#include <utility>
#include <vector>

#include "simulator/bus_frame.h"

namespace tolvane::simulator {

/// Plays a list.
class ListSource : public BusSource {
 public:
  explicit ListSource(std::vector<BusFrame> frames) : frames_(std::move(frames)) {}
  bool Next(BusFrame& frame) override {
    if (next_ == frames_.size()) return false;
    frame = frames_[next_++];
    return true;
  }

 private:
  std::vector<BusFrame> frames_;
  std::size_t next_ = 0;
};

/// Up to `most` frames of a source, those after `until_us` left out.
inline std::vector<BusFrame> Take(BusSource& source, std::size_t most,
                                  std::int64_t until_us = INT64_MAX) {
  std::vector<BusFrame> frames;
  BusFrame frame;
  while (frames.size() < most && source.Next(frame) && frame.time_us <= until_us) {
    frames.push_back(frame);
  }
  return frames;
}

}  // namespace tolvane::simulator
