#include "simulator/bus_tap.h"

#include <algorithm>
#include <utility>

namespace tolvane::simulator {

BusTap::BusTap(BenchClock& clock, std::unique_ptr<BusSource> source, const TapPlan& plan,
               AtEnd at_end)
    : clock_(clock),
      source_(std::move(source)),
      plan_(plan),
      queue_(static_cast<std::size_t>(plan.queue)),
      has_pending_(source_->Next(pending_)),
      began_us_(clock.NowUs()),
      gaps_behind_frame_(static_cast<std::size_t>(plan.gaps)),
      gaps_behind_empty_read_(static_cast<std::size_t>(plan.gaps)),
      at_end_(std::move(at_end)) {}

BusTap::Result BusTap::Read(BusFrame& frame) {
  const std::int64_t now_us = clock_.NowUs();
  NoteRead(now_us);
  const auto bus_us =
      static_cast<std::int64_t>(static_cast<double>(now_us - began_us_) * plan_.speed);
  if (bus_us >= plan_.pulled_at_us) return Result::kPulled;
  TakeDue(bus_us);
  last_read_delivered_ = queue_.Pop(frame);
  if (!last_read_delivered_) {
    TellEnd();
    return Result::kEmpty;
  }
  ++counts_.delivered;
  return Result::kDelivered;
}

TapCounts BusTap::Counts() const {
  TapCounts counts = counts_;
  counts.high_water = static_cast<std::int64_t>(queue_.HighWater());
  counts.gaps_behind_frame = gaps_behind_frame_.Longest();
  counts.gaps_behind_empty_read = gaps_behind_empty_read_.Longest();
  return counts;
}

void BusTap::NoteRead(std::int64_t now_us) {
  if (counts_.reads++ > 0) {
    const ReadGap gap{
        .us = now_us - last_read_us_, .delivered = counts_.delivered, .at_us = now_us};
    counts_.longest_gap_us = std::max(counts_.longest_gap_us, gap.us);
    (last_read_delivered_ ? gaps_behind_frame_ : gaps_behind_empty_read_).Note(gap);
  }
  last_read_us_ = now_us;
}

void BusTap::TakeDue(std::int64_t bus_us) {
  source_->Reach(bus_us);
  if (!has_pending_) has_pending_ = source_->Next(pending_);
  while (has_pending_ && pending_.time_us <= bus_us) {
    if (Hears(pending_)) Queue(pending_);
    has_pending_ = source_->Next(pending_);
  }
}

void BusTap::TellEnd() {
  if (has_pending_ || at_end_ == nullptr) return;
  std::exchange(at_end_, nullptr)(counts_.delivered);
}

void BusTap::Queue(const BusFrame& frame) {
  if (!plan_.filter.Passes(frame)) {
    ++counts_.kept_back;
  } else if (!queue_.Push(frame)) {
    ++counts_.dropped;
  }
}

/// Called only when a frame is due: an endless source may have no frame that this adapter receives.
bool BusTap::Hears(const BusFrame& frame) const {
  if (frame.time_us >= plan_.silence_from_us && frame.time_us < plan_.silence_to_us) return false;
  return plan_.hears_errors_and_own || frame.kind == FrameKind::kData ||
         frame.kind == FrameKind::kRemote;
}

}  // namespace tolvane::simulator
