#include "view/tick.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

#include "tests/counting/allocations.h"
#include "tests/view/tick_bed.h"
#include "view/tables/highlight_columns.h"

namespace tolvane {
namespace {

constexpr Bytes8 kData = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};
constexpr Bytes8 kOther = {0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18};

TEST(Tick, ClockThenTimerOffThenScanThenSwapThenTimerOn) {
  TickBed<WorkerKind::FormBG> bed;
  bed.Page();
  EXPECT_EQ(bed.calls, (TickCalls{"clock", "timer off", "yield", "yield", "yield", "yield", "yield",
                                  "swap", "refresh", "timer on"}));
}

TEST(Tick, OnlyFormBGRefreshesBehindTheSwap) {
  TickBed<WorkerKind::FormBG2> bed;
  bed.Page();
  EXPECT_EQ(bed.calls, (TickCalls{"clock", "timer off", "yield", "yield", "yield", "yield", "yield",
                                  "swap", "timer on"}));
  TickBed<WorkerKind::FormBG_29> bed_29;
  bed_29.Page();
  EXPECT_EQ(bed_29.calls, (TickCalls{"clock", "timer off", "swap", "timer on"}));
  TickBed<WorkerKind::FormBG2_29> bed2_29;
  bed2_29.Page();
  EXPECT_EQ(bed2_29.calls, (TickCalls{"clock", "timer off", "swap", "timer on"}));
}

TEST(Tick, ElevenBitScansYieldBeforeRows400To2000AndNotInTheColourPass) {
  TickBed<WorkerKind::FormBG> bed;
  bed.Receive(400, 8, kData, 5);
  std::size_t yields = 0;
  bed.events.during_yield = [&] {
    // What the yield changes in the next row is on the page.
    if (++yields == 1) bed.frames->CAN11_DLC(400, 1);
  };
  EXPECT_EQ(bed.Page().substr(34, 11), u"190  1   01");
  EXPECT_EQ(yields, 5U);
}

TEST(Tick, ExtendedScansYieldAtPositions0And400AndSoOn) {
  struct Row {
    std::int32_t keys;
    std::ptrdiff_t yields;
  };
  for (const Row& row : {Row{0, 0}, Row{1, 1}, Row{400, 1}, Row{401, 2}, Row{4001, 11}}) {
    TickBed<WorkerKind::FormBG2_29> bed;
    for (std::int32_t key = 0; key < row.keys; ++key) bed.Receive(key, 0, kData, 5);
    bed.Page();
    EXPECT_EQ(std::count(bed.calls.begin(), bed.calls.end(), "yield"), row.yields) << row.keys;
  }
}

TEST(Tick, TheEndOfAnExtendedScanIsReadAgainOnEachPass) {
  TickBed<WorkerKind::FormBG_29> bed;
  bed.Receive(0x100, 0, kData, 5);
  bed.events.during_yield = [&] { bed.Receive(0x200, 0, kData, 5); };
  const String blanks(27, u' ');
  EXPECT_EQ(bed.Page(),
            u"E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n"
            u"* 00000100  0  " +
                blanks +
                u"----ms\r\n"
                u"* 00000200  0  " +
                blanks + u"----ms\r\n");
}

TEST(Tick, TheTimerIsOffDuringTheYields) {
  TickBed<WorkerKind::FormBG> bed;
  bed.events.during_yield = [&] { EXPECT_FALSE(bed.timer.Enabled()); };
  bed.Page();
  EXPECT_TRUE(bed.timer.Enabled());
}

TEST(Tick, AfterADisconnectInAYieldThePageIsFinishedAndTheTimerStaysOff) {
  TickBed<WorkerKind::FormBG> bed;
  bed.Receive(0x7F0, 8, kData, 5);
  bed.events.during_yield = [&] { bed.RxFlag = 0; };
  EXPECT_EQ(bed.Page().substr(34), u"7F0  8   01 02 03 04 05 06 07 08   ----ms\r\n");
  EXPECT_FALSE(bed.timer.Enabled());
  EXPECT_EQ(bed.calls.back(), "refresh");
}

TEST(Tick, OnlyTheValueOneOfRxFlagTurnsTheTimerOnAgain) {
  TickBed<WorkerKind::FormBG> bed;
  bed.RxFlag = 2;
  bed.Page();
  EXPECT_FALSE(bed.timer.Enabled());
}

TEST(Tick, EachPageStartsWithoutTheColoursOfTheOneBefore) {
  TickBed<WorkerKind::FormBG> bed;
  bed.Receive(0x100, 8, kData, 1000);
  bed.Receive(0x100, 8, kOther, 1100);
  bed.Page();
  EXPECT_EQ(bed.Colours().size(), 8U);
  bed.device.t_DataChangeColorEnable = 0;
  for (int i = 0; i < 3; ++i) {
    bed.Page();
    EXPECT_TRUE(bed.Colours().empty());
  }
}

TEST(Tick, AMessagePositionCountsLineEndsAsTwo) {
  TickBed<WorkerKind::FormBG> bed;
  for (std::int16_t id = 1; id <= 10; ++id) {
    bed.Receive(id, 8, kData, 1000);
    bed.Receive(id, 8, id == 10 ? kOther : kData, 1100);
  }
  const String& page = bed.Page();
  ASSERT_EQ(bed.Colours().size(), 8U);
  const platform::ColourRun first = bed.Colours()[0];
  EXPECT_EQ(page.substr(static_cast<std::size_t>(first.start), 2), u"11");
  EXPECT_EQ(first.start, 34 + 9 * 42 + 9);
}

template <WorkerKind kKind>
void ReceiveLit(TickBed<kKind>& bed, std::int32_t rows) {
  bed.support.keep_fades = false;
  for (std::int32_t i = 1; i <= rows; ++i) {
    const std::int32_t id = TickBed<kKind>::kIs29 ? i * 77 : i;
    bed.Receive(id, 8, kData, 1000);
    bed.Receive(id, 8, kOther, 1100.25);
  }
  bed.device.t_MsgMarker_ON(0, 1);
  bed.device.t_MsgMarkerID(0, 0x4D);
}

template <WorkerKind kKind>
std::int64_t AllocationsOfATick(TickBed<kKind>& bed) {
  bed.calls.clear();
  const std::int64_t before = counting::Allocations();
  bed.tick.TimerBackView_Timer(bed.device);
  return counting::Allocations() - before;
}

template <WorkerKind kKind>
std::int64_t AllocationsOfALitTick() {
  TickBed<kKind> bed;
  ReceiveLit(bed, 2000);
  for (int i = 0; i < 3; ++i) bed.Page();
  const std::int64_t allocations = AllocationsOfATick(bed);
  EXPECT_EQ(bed.Colours().size(), 16000U);
  return allocations;
}

TEST(Tick, TheSteadyStateAllocatesNothing) {
  const std::int64_t before = counting::Allocations();
  auto counted = std::make_unique<std::int32_t>(1);
  EXPECT_EQ(counting::Allocations(), before + 1);
  EXPECT_EQ(AllocationsOfALitTick<WorkerKind::FormBG>(), 0);
  EXPECT_EQ(AllocationsOfALitTick<WorkerKind::FormBG_29>(), 0);
}

/// Of the first two ticks of a run, which fill one page each; every cycle is lit too.
template <WorkerKind kKind>
void ExpectNoAllocationsFromTheFirstTickOn(std::int32_t rows) {
  TickBed<kKind> bed;
  ReceiveLit(bed, rows);
  for (std::int16_t row = 0; row < rows; ++row) {
    HighlightColumns<typename TickBed<kKind>::ViewTable>::dt_timerCounter (*bed.highlights)(row,
                                                                                            3000);
  }
  bed.calls.reserve(100);
  bed.tick.TakeMemory();
  bed.view.page->TakeMemory();
  for (int tick = 1; tick <= 2; ++tick) {
    EXPECT_EQ(AllocationsOfATick(bed), 0) << "tick " << tick;
    EXPECT_GE(bed.Colours().size(), static_cast<std::size_t>(9 * rows - 9)) << "tick " << tick;
  }
}

TEST(Tick, TheFirstTicksOfTheLongestPagesAllocateNothingEither) {
  ExpectNoAllocationsFromTheFirstTickOn<WorkerKind::FormBG>(CAN_ReadDB::kArayy_MAX - 1);
  ExpectNoAllocationsFromTheFirstTickOn<WorkerKind::FormBG_29>(CAN_ReadDB29::kArayy_MAX + 1);
}

TEST(Tick, WithoutMemoryAheadOfARunItsPagesTakeTheirOwn) {
  TickBed<WorkerKind::FormBG> bed;
  constexpr std::size_t kLessThanAPage = 20'000;  // bytes
  counting::RefuseAbove(kLessThanAPage);
  bed.tick.TakeMemory();
  counting::RefuseAbove(std::numeric_limits<std::size_t>::max());
  bed.Receive(0x7F0, 8, kData, 5);
  EXPECT_EQ(bed.Page().substr(34), u"7F0  8   01 02 03 04 05 06 07 08   ----ms\r\n");
}

}  // namespace
}  // namespace tolvane
