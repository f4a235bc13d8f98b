#include "simulator/disturbed_source.h"

#include <utility>

namespace tolvane::simulator {

DisturbedSource::DisturbedSource(std::unique_ptr<BusSource> inner, const Disturbance& disturbance)
    : inner_(std::move(inner)), disturbance_(disturbance) {
  has_pending_ = FetchHeard();
}

bool DisturbedSource::Next(BusFrame& frame) {
  const bool burst_left = burst_sent_ < disturbance_.burst_frames;
  if (burst_left && (!has_pending_ || pending_.time_us >= disturbance_.burst_at_us)) {
    MakeBurstFrame(frame);
    return true;
  }
  if (!has_pending_) return false;
  frame = pending_;
  has_pending_ = FetchHeard();
  return true;
}

bool DisturbedSource::FetchHeard() {
  while (inner_->Next(pending_)) {
    if (pending_.time_us < disturbance_.silence_from_us ||
        pending_.time_us >= disturbance_.silence_to_us) {
      return true;
    }
  }
  return false;
}

void DisturbedSource::MakeBurstFrame(BusFrame& frame) {
  frame = BusFrame{.time_us = disturbance_.burst_at_us, .id = kBurstId, .dlc = 8};
  auto number = static_cast<std::uint64_t>(burst_sent_++);
  for (std::uint8_t& byte : frame.data) {
    byte = static_cast<std::uint8_t>(number);
    number >>= 8;
  }
}

}  // namespace tolvane::simulator
