// The record that a run hands to its adapter's library, the same one for every read.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "receive/tables/frame_columns.h"
#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

using Bytes = std::array<std::uint8_t, 8>;

Bytes StoredBytes(const CAN_ReadDB& frames, std::int16_t row) {
  Bytes bytes{};
  for (std::size_t n = 0; n < bytes.size(); ++n) {
    bytes[n] = FrameColumns<CAN_ReadDB>::Data[n](frames)(row);
  }
  return bytes;
}

// A driver may write no more data bytes than the length says.
TEST(ReceiveRecord, BeginsEmptyAndKeepsWhatAReadDoesNotWrite) {
  for (const AdapterKind binding : kAllBindings) {
    SCOPED_TRACE(WayName(binding, WorkerKind::FormBG));
    RunBench bench;
    bench.canusbdrv.only_bytes_of_length = true;
    bench.IFCan.only_bytes_of_length = true;
    bench.canlib32.only_bytes_of_length = true;
    bench.events = {[&] {
      // Behind an empty read too.
      bench.Play(binding, {{.id = 0x13, .dlc = 2, .data = {9, 8}}, {.id = 0x14, .dlc = 0}});
    }};
    bench.Run(binding, WorkerKind::FormBG,
              {{.id = 0x11, .dlc = 3}, {.id = 0x12, .data = {11, 12, 13, 14, 15, 16, 17, 18}}});
    const CAN_ReadDB& frames = *bench.workers.FormBG_tables.frames;
    EXPECT_EQ(StoredBytes(frames, 0x11), (Bytes{1, 2, 3}));
    EXPECT_EQ(StoredBytes(frames, 0x12), (Bytes{11, 12, 13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(StoredBytes(frames, 0x13), (Bytes{9, 8, 13, 14, 15, 16, 17, 18}));
    EXPECT_EQ(StoredBytes(frames, 0x14), (Bytes{9, 8, 13, 14, 15, 16, 17, 18}));

    bench.Run(binding, WorkerKind::FormBG, {{.id = 0x11, .dlc = 1}});
    EXPECT_EQ(StoredBytes(frames, 0x11), Bytes{1}) << "another run, another record";
  }
}

TEST(ReceiveRecord, OfABoardIsOneFrameLongInEachCall) {
  RunBench bench;
  bench.IFCan.note_reads = true;
  bench.events = {[] {}, [&] { bench.Play(AdapterKind::kInterface, {{.id = 0x11}}); }};
  bench.Run(AdapterKind::kInterface, WorkerKind::FormBG, {{.id = 0x10}, {.id = 0x800}});
  std::int32_t reads = 0;
  for (const std::string& line : bench.journal.Lines()) {
    if (!line.starts_with("CanReceiveMessage")) continue;
    EXPECT_EQ(line, "CanReceiveMessage(101, 1)") << reads;
    ++reads;
  }
  EXPECT_EQ(reads, 5);
}

}  // namespace
}  // namespace tolvane
