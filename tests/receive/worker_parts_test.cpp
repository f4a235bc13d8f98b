// What a run does to the things that its worker keeps for life.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "receive/adapters/canusb_binding.h"
#include "receive/receive.h"
#include "tests/counting/allocations.h"
#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

constexpr auto kCanusb = AdapterKind::kCanusb;
constexpr auto kFormBG = WorkerKind::FormBG;

/// What a FormBG keeps for its life, open to a look from outside.
struct KeptByFormBG {
  explicit KeptByFormBG(RunBench& bench)
      : log({bench.loop, bench.log_files, bench.folders, bench.wall_clock}) {}

  CAN_ReadDB frames;
  CAN_ViewDB highlights;
  Excel_OutputDB log;
  std::int32_t Device_Timer_Kind = 0;
};

/// A whole run on a CANUSB adapter.
void RunOn(KeptByFormBG& kept, RunBench& bench) {
  CanusbBinding binding(bench.canusbdrv, bench.CAN_u, bench.CAN_d);
  bench.RxFlag = 1;
  Receive<CAN_ReadDB>(
      kCanusb, kFormBG, binding, bench.parts,
      {kept.frames, kept.highlights, kept.log, bench.timers[0], kept.Device_Timer_Kind},
      bench.device, nullptr);
}

TEST(Start, ClearsHighlightsAndLogOfTheRunBefore) {
  RunBench bench;
  bench.device.t_bitRate = 9;  // no rate text that would replace the old one
  KeptByFormBG kept(bench);
  kept.highlights.ViewColorlength_d1_timerCounter(0x10, 500);
  kept.log.Excel_DB_ArayyCounter = 7;
  kept.log.Excel_DB_ArayyCh = 2;
  kept.log.str_bitrate = u"1M bps";
  RunOn(kept, bench);
  EXPECT_EQ(kept.highlights.ViewColorlength_d1_timerCounter(0x10), 0);
  EXPECT_EQ(kept.log.Excel_DB_ArayyCounter, 0);
  EXPECT_EQ(kept.log.Excel_DB_ArayyCh, 1);
  EXPECT_EQ(kept.log.str_bitrate, u"");
}

TEST(Start, TakesTheMemoryOfACsvLogForACsvLogAlone) {
  const struct {
    std::int32_t enable, format;
    std::int64_t blocks_left;
  } rows[] = {{1, kLogFormatCsv, 0}, {0, kLogFormatCsv, 2}, {1, kLogFormatSpreadsheet, 2}};
  for (const auto& row : rows) {
    RunBench bench;
    bench.device.t_LogSave_Enable = row.enable;
    bench.device.t_LogSaveFormat = row.format;
    KeptByFormBG kept(bench);
    RunOn(kept, bench);
    const std::int64_t before = counting::Allocations();
    kept.log.csv_TakeMemory();  // takes what the run did not
    const std::int64_t taken = counting::Allocations() - before;
    EXPECT_EQ(taken, row.blocks_left) << row.enable << ' ' << row.format;
  }
}

// The flush of a full half yields at a taken name; by then the counter is 0 and the channel still
// the full one.
TEST(Logs, ChannelIsFlippedOnlyAfterTheFlushOfTheFullHalf) {
  RunBench bench;
  bench.LogToCsv();
  KeptByFormBG kept(bench);
  bench.files.AddFile(u"C:\\Tolvane\\KL26112009-001.csv", "taken");
  std::vector<std::int32_t> seen;
  bench.Play(kCanusb, {{.id = 0x100}}, 20001);
  bench.events = {[&] { seen = {kept.log.Excel_DB_ArayyCounter, kept.log.Excel_DB_ArayyCh}; }};
  RunOn(kept, bench);
  EXPECT_EQ(seen, (std::vector<std::int32_t>{0, 1}));
  EXPECT_EQ(kept.log.Excel_DB_ArayyCh, 2);
}

}  // namespace
}  // namespace tolvane
