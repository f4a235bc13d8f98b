#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "tests/view/tick_bed.h"

namespace tolvane {

// A page of FormBG with one settled row of eight bytes, and where its regions lie.

inline constexpr Bytes8 kData = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};
inline constexpr Bytes8 kOther = {0x01, 0x02, 0xFF, 0x04, 0x05, 0x06, 0x07, 0x88};
inline constexpr std::int32_t kHeader = 34;          // characters of header and line end
inline constexpr std::int32_t kCells = kHeader + 8;  // the blank before the first byte of the row
inline constexpr std::int32_t kCycle = kCells + 24 + 3;
// A row with "100ms".
inline constexpr std::int32_t kStandardRow = 3 + 2 + 1 + 2 + 24 + 3 + 5 + 2;

using Bed = TickBed<WorkerKind::FormBG>;
using Runs = std::vector<platform::ColourRun>;

/// Two frames, 100 ms apart, seen by one tick: a settled row without colours.
inline void Settle(Bed& bed, std::int16_t id) {
  bed.Receive(id, 8, kData, 1000);
  bed.Receive(id, 8, kData, 1100);
  bed.Page();
  ASSERT_EQ(bed.frames->CAN11_ReceivedTime_Delta(id), 100.0);
}

/// The next frame of `id`, `cycle` ms after the last.
inline void Next(Bed& bed, std::int16_t id, const Bytes8& data, double cycle) {
  bed.Receive(id, 8, data, bed.frames->CAN11_ReceivedTime(id) + cycle);
}

}  // namespace tolvane
