#pragma once

#include <cstdint>
#include <memory>

#include "simulator/bus_frame.h"

namespace tolvane::simulator {

/// What happens on the bus besides the traffic; times are bus time.
struct Disturbance {
  std::int64_t silence_from_us = 0;  // frames from here on
  std::int64_t silence_to_us = 0;    // and before here are taken away
  std::int64_t burst_at_us = 0;
  std::int64_t burst_frames = 0;  // that many frames at one moment
};

/// The frames of a burst: 11 bits, eight bytes with the frame's number from 0, low byte first.
inline constexpr std::uint32_t kBurstId = 0x7F0;

/// Another source with a disturbance.
class DisturbedSource : public BusSource {
 public:
  DisturbedSource(std::unique_ptr<BusSource> inner, const Disturbance& disturbance);

  bool Next(BusFrame& frame) override;

 private:
  bool FetchHeard();
  void MakeBurstFrame(BusFrame& frame);

  std::unique_ptr<BusSource> inner_;
  Disturbance disturbance_;
  BusFrame pending_;
  bool has_pending_ = false;
  std::int64_t burst_sent_ = 0;
};

}  // namespace tolvane::simulator
