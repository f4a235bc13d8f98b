#include "simulator/burst_source.h"

#include <utility>

namespace tolvane::simulator {

BurstSource::BurstSource(std::unique_ptr<BusSource> inner, const BurstPlan& burst)
    : inner_(std::move(inner)), burst_(burst), has_pending_(inner_->Next(pending_)) {}

bool BurstSource::Next(BusFrame& frame) {
  if (!has_pending_) has_pending_ = inner_->Next(pending_);
  const bool burst_left = burst_sent_ < burst_.frames;
  if (burst_left && (!has_pending_ || pending_.time_us >= burst_.at_us)) {
    MakeBurstFrame(frame);
    return true;
  }
  if (!has_pending_) return false;
  frame = pending_;
  has_pending_ = inner_->Next(pending_);
  return true;
}

void BurstSource::MakeBurstFrame(BusFrame& frame) {
  frame = BusFrame{.time_us = burst_.at_us, .id = kBurstId, .dlc = 8};
  auto number = static_cast<std::uint64_t>(burst_sent_++);
  for (std::uint8_t& byte : frame.data) {
    byte = static_cast<std::uint8_t>(number);
    number >>= 8;
  }
}

}  // namespace tolvane::simulator
