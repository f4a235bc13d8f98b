#pragma once

#include <cstdint>

#include "simulator/bus_frame.h"

namespace tolvane::simulator {

/// What a generated load looks like. Numbers out of range are clamped.
struct LoadPlan {
  enum class Content : std::uint8_t {
    kCounter,  // the frame's number from 0, low byte first
    kRandom,   // bytes made from a seed and the frame's number: all change all the time
  };

  std::int64_t rate = 0;            // frames per second; 0: as many as the bus holds
  std::int64_t bit_rate = 500'000;  // bits per second
  std::int64_t frames = 0;          // how many in all; 0: without end
  std::int64_t ids = 100;           // identifiers, used one after the other
  std::int64_t first_id = 1;        // the lowest
  std::int64_t payload = 8;         // data bytes, 0 to 8
  std::int64_t burst = 1;           // frames that come back to back, at the same mean rate
  std::uint64_t seed = 1;
  IdFormat format = IdFormat::kStandard;  // both: every second identifier is extended
  Content content = Content::kCounter;
};

/// A seeded load. Frame n (from 0) depends only on the plan and n, so a test can compute what must
/// have arrived.
class LoadGenerator : public BusSource {
 public:
  explicit LoadGenerator(const LoadPlan& plan);

  bool Next(BusFrame& frame) override;

 private:
  std::int64_t NextTime(int bits);

  LoadPlan plan_;
  std::int64_t sent_ = 0;
  std::int64_t bits_sent_ = 0;  // saturated: since the start; else: within the burst
  std::int64_t last_us_ = 0;
};

}  // namespace tolvane::simulator
