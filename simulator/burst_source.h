#pragma once

#include <cstdint>
#include <memory>

#include "simulator/bus_frame.h"

namespace tolvane::simulator {

/// Frames that come all at one moment of bus time.
struct BurstPlan {
  std::int64_t at_us = 0;
  std::int64_t frames = 0;
};

/// The frames of a burst: 11 bits, eight bytes with the frame's number from 0, low byte first.
inline constexpr std::uint32_t kBurstId = 0x7F0;

/// Another source with a burst in its traffic.
class BurstSource : public BusSource {
 public:
  BurstSource(std::unique_ptr<BusSource> inner, const BurstPlan& burst);

  void Reach(std::int64_t bus_us) override { inner_->Reach(bus_us); }
  bool Next(BusFrame& frame) override;

 private:
  void MakeBurstFrame(BusFrame& frame);

  std::unique_ptr<BusSource> inner_;
  BurstPlan burst_;
  BusFrame pending_;
  bool has_pending_;
  std::int64_t burst_sent_ = 0;
};

}  // namespace tolvane::simulator
