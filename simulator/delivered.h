#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "simulator/bench_config.h"
#include "simulator/bus_frame.h"
#include "simulator/bus_tap.h"

namespace tolvane::simulator {

/// Reads a frame; if there is none, the library's status code for the reason.
inline std::optional<std::int32_t> ReadFailure(BusTap& tap, BusFrame& frame, std::int32_t empty,
                                               std::int32_t pulled) {
  const BusTap::Result result = tap.Read(frame);
  if (result == BusTap::Result::kDelivered) return std::nullopt;
  return result == BusTap::Result::kEmpty ? empty : pulled;
}

/// The length byte that the adapter gives out.
inline std::uint8_t DeliveredDlc(const AdapterPlan& plan, const BusFrame& frame) {
  return plan.force_dlc >= 0 ? static_cast<std::uint8_t>(plan.force_dlc) : frame.dlc;
}

/// Writes a frame's data bytes into the program's record: only as many as the delivered length, and
/// none for a remote frame. The other bytes keep the program's values.
inline void DeliverData(const AdapterPlan& plan, const BusFrame& frame,
                        std::array<std::uint8_t, 8>& data) {
  std::size_t bytes = std::min<std::size_t>(DeliveredDlc(plan, frame), data.size());
  if (frame.kind == FrameKind::kRemote) bytes = 0;
  std::copy_n(frame.data.begin(), plan.whole_data ? data.size() : bytes, data.begin());
}

/// The id word that the adapter gives out; `marks` are bits that the library adds.
inline std::int32_t DeliveredId(const AdapterPlan& plan, const BusFrame& frame,
                                std::uint32_t marks = 0) {
  return static_cast<std::int32_t>(frame.id | marks | plan.or_id);
}

}  // namespace tolvane::simulator
