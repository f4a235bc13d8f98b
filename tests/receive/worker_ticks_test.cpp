// The tick that each worker form has, and what it knows of the run.
#include <gtest/gtest.h>

#include <cstddef>

#include "platform/utf8.h"
#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

/// The page of a run in which all frames have come.
String PageOfRun(RunBench& bench, AdapterKind binding, WorkerKind worker,
                 const std::vector<BusFrame>& frames) {
  String page;
  bench.events = {[&] {
    bench.timers[static_cast<std::size_t>(worker)].Tick();
    page = bench.RTB_MainView.Text();
    bench.RxFlag = 0;
  }};
  bench.Run(binding, worker, frames);
  return page;
}

TEST(WorkerTicks, EachFormShowsItsOwnRowsAndCycles) {
  constexpr StringView kHeader11 = u"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
  constexpr StringView kHeader29 = u"E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
  constexpr StringView kBytes = u"  8   01 02 03 04 05 06 07 08   ";
  const auto line = [&](StringView id, StringView cycle) {
    return String(id).append(kBytes).append(cycle).append(u"ms\r\n");
  };
  const struct {
    WorkerKind worker;
    String page;
    std::int32_t refreshes;
  } kCases[] = {
      {WorkerKind::FormBG, String(kHeader11) + line(u"100", u"100") + line(u"200", u"----"), 1},
      {WorkerKind::FormBG2, String(kHeader11) + line(u"100", u"100"), 0},
      {WorkerKind::FormBG_29,
       String(kHeader29) + line(u"  00000100", u"100.25") + line(u"  00000200", u"----"), 0},
      {WorkerKind::FormBG2_29,
       String(kHeader29) + line(u"  00000100", u"100") + line(u"  00000200", u"----"), 0},
  };
  for (const auto& row : kCases) {
    for (const AdapterKind binding : kAllBindings) {
      SCOPED_TRACE(WayName(binding, row.worker));
      RunBench bench;
      bench.device.t_select_Vender = static_cast<std::int32_t>(binding) + 1;
      bench.device.t_dividend_ratio = 0.25;
      EXPECT_EQ(PageOfRun(bench, binding, row.worker,
                          {{.id = 0x100}, {.id = 0x100, .time = 401}, {.id = 0x200, .time = 402}}),
                row.page);
      EXPECT_EQ(bench.RTB_MainView.Refreshes(), row.refreshes);
    }
  }
}

// A timer that steps back by more than its own length leaves a negative cycle to the page, which
// adds the length of the timer's kind.
TEST(WorkerTicks, KnowWhoseTimerTheCycleComesFrom) {
  const struct {
    AdapterKind binding;
    std::int32_t from, to;  // ms
    StringView cycle;
  } kCases[] = {{AdapterKind::kCanusb, 100000, 10, u"   20010ms\r\n"},
                {AdapterKind::kInterface, 500000, 0, u"   358982ms\r\n"},
                {AdapterKind::kKvaser, 700, 200, u"   ????ms\r\n"}};
  for (const auto& row : kCases) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(row.binding, worker));
      RunBench bench;
      bench.device.t_select_Vender = kVenderCanusb;  // cycles of a board are not repaired
      const String page =
          PageOfRun(bench, row.binding, worker,
                    {{.id = 0x100, .time = row.from}, {.id = 0x100, .time = row.to}});
      EXPECT_TRUE(page.ends_with(row.cycle)) << ToUtf8(page);
    }
  }
}

}  // namespace
}  // namespace tolvane
