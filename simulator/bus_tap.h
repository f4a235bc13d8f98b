#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "simulator/bench_clock.h"
#include "simulator/bus_frame.h"
#include "simulator/frame_queue.h"
#include "simulator/gap_record.h"

namespace tolvane::simulator {

/// Which frames an adapter accepts. The identifier is in the top 11 or 29 of the 32 bits; bits that
/// are set in the mask are not compared.
struct AcceptanceFilter {
  std::uint32_t code = 0;
  std::uint32_t mask = 0xFFFFFFFF;

  bool Passes(const BusFrame& frame) const {
    const std::uint32_t id = frame.extended ? frame.id << 3 : frame.id << 21;
    return ((id ^ code) & ~mask) == 0;
  }
};

struct TapPlan {
  static constexpr std::int64_t kNever = INT64_MAX;

  std::int64_t queue = 4096;           // frames
  double speed = 1.0;                  // bus time per real time
  std::int64_t pulled_at_us = kNever;  // bus time from which on the adapter is gone
  std::int64_t silence_from_us = 0;    // frames from here on
  std::int64_t silence_to_us = 0;      // and before here do not reach the queue
  std::int64_t gaps = 0;               // how many of the longest gaps of each kind are kept
  bool hears_errors_and_own = false;   // error frames and transmitted frames reach the queue
  AcceptanceFilter filter{};
};

struct TapCounts {
  std::int64_t reads = 0;
  std::int64_t delivered = 0;
  std::int64_t dropped = 0;                  // found the queue full
  std::int64_t kept_back = 0;                // did not pass the filter
  std::int64_t longest_gap_us = 0;           // real time between two reads
  std::int64_t high_water = 0;               // most frames that the queue ever held
  std::vector<ReadGap> gaps_behind_frame{};  // the longest ones first
  std::vector<ReadGap> gaps_behind_empty_read{};
};

/// Receives the traffic of the bus for one adapter, from its construction on, which is bus time 0.
class BusTap {
 public:
  enum class Result : std::uint8_t { kDelivered, kEmpty, kPulled };

  /// Told once, by the first read that finds nothing and nothing to come: how many frames the
  /// adapter has given out.
  using AtEnd = std::function<void(std::int64_t delivered)>;

  /// `clock` outlives the tap.
  BusTap(BenchClock& clock, std::unique_ptr<BusSource> source, const TapPlan& plan,
         AtEnd at_end = nullptr);

  /// Moves every frame that is due into the queue, then takes the oldest one. Looks at the clock
  /// once, never waits, allocates nothing of its own, and gives no frame before its time.
  Result Read(BusFrame& frame);

  TapCounts Counts() const;

 private:
  void NoteRead(std::int64_t now_us);
  void TakeDue(std::int64_t bus_us);
  void TellEnd();
  bool Hears(const BusFrame& frame) const;
  void Queue(const BusFrame& frame);

  BenchClock& clock_;
  std::unique_ptr<BusSource> source_;
  TapPlan plan_;
  FrameQueue queue_;
  BusFrame pending_;
  bool has_pending_;
  std::int64_t began_us_;
  std::int64_t last_read_us_ = 0;
  bool last_read_delivered_ = false;
  GapRecord gaps_behind_frame_;
  GapRecord gaps_behind_empty_read_;
  TapCounts counts_;
  AtEnd at_end_;
};

}  // namespace tolvane::simulator
