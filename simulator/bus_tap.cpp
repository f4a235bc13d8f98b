#include "simulator/bus_tap.h"

#include <algorithm>
#include <utility>

namespace tolvane::simulator {

BusTap::BusTap(BenchClock& clock, std::unique_ptr<BusSource> source, const TapPlan& plan)
    : clock_(clock),
      source_(std::move(source)),
      plan_(plan),
      queue_(static_cast<std::size_t>(plan.queue)),
      has_pending_(FetchHeard()),
      began_us_(clock.NowUs()) {}

BusTap::Result BusTap::Read(BusFrame& frame) {
  const std::int64_t now_us = clock_.NowUs();
  NoteRead(now_us);
  const auto bus_us =
      static_cast<std::int64_t>(static_cast<double>(now_us - began_us_) * plan_.speed);
  if (bus_us >= plan_.pulled_at_us) return Result::kPulled;
  TakeDue(bus_us);
  if (!queue_.Pop(frame)) return Result::kEmpty;
  ++counts_.delivered;
  return Result::kDelivered;
}

TapCounts BusTap::Counts() const {
  TapCounts counts = counts_;
  counts.high_water = static_cast<std::int64_t>(queue_.HighWater());
  return counts;
}

void BusTap::NoteRead(std::int64_t now_us) {
  if (counts_.reads++ > 0) {
    counts_.longest_gap_us = std::max(counts_.longest_gap_us, now_us - last_read_us_);
  }
  last_read_us_ = now_us;
}

void BusTap::TakeDue(std::int64_t bus_us) {
  while (has_pending_ && pending_.time_us <= bus_us) {
    if (!queue_.Push(pending_)) ++counts_.dropped;
    has_pending_ = FetchHeard();
  }
}

bool BusTap::FetchHeard() {
  while (source_->Next(pending_)) {
    if (plan_.hears_errors_and_own || pending_.kind == FrameKind::kData ||
        pending_.kind == FrameKind::kRemote) {
      return true;
    }
  }
  return false;
}

}  // namespace tolvane::simulator
