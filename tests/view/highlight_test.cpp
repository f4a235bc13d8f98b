#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "tests/view/tick_bed.h"

namespace tolvane {
namespace {

constexpr Bytes8 kData = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};
constexpr Bytes8 kOther = {0x01, 0x02, 0xFF, 0x04, 0x05, 0x06, 0x07, 0x88};
constexpr std::int32_t kHeader = 34;          // characters of header and line end
constexpr std::int32_t kCells = kHeader + 8;  // the blank before the first byte of the first row
constexpr std::int32_t kCycle = kCells + 24 + 3;
constexpr std::int32_t kStandardRow = 3 + 2 + 1 + 2 + 24 + 3 + 5 + 2;  // a row with "100ms"

using Bed = TickBed<WorkerKind::FormBG>;
using Runs = std::vector<platform::ColourRun>;

/// Three frames, 100 ms apart, seen by one tick each: a settled row without colours.
void Settle(Bed& bed, std::int16_t id) {
  bed.Receive(id, 8, kData, 1000);
  bed.Receive(id, 8, kData, 1100);
  bed.Page();
  ASSERT_EQ(bed.frames->CAN11_ReceivedTime_Delta(id), 100.0);
}

/// The next frame of `id`, `cycle` ms behind the last.
void Next(Bed& bed, std::int16_t id, const Bytes8& data, double cycle) {
  bed.Receive(id, 8, data, bed.frames->CAN11_ReceivedTime(id) + cycle);
}

TEST(DataChange, TheFirstFrameColoursNothing) {
  Bed bed;
  bed.Receive(0x100, 8, kOther, 1000);
  bed.Page();
  EXPECT_EQ(bed.Colours(), Runs{});
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), 0);
}

TEST(DataChange, ChangedBytesAreColouredDigitByDigitAndNotTheirBlank) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  const String& page = bed.Page();
  EXPECT_EQ(bed.Colours(),
            (Runs{{kCells + 7, kCells + 9, 60000}, {kCells + 22, kCells + 24, 60000}}));
  EXPECT_EQ(page.substr(kCells + 7, 2), u"FF");
  EXPECT_EQ(page.substr(kCells + 22, 2), u"88");
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_start(0x100), kCells + 7);
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_end(0x100), 2);
}

TEST(DataChange, FullColourStandsUntilTheNextFrameThenFallsByTheInterval) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  for (int i = 0; i < 5; ++i) {
    bed.Page();
    EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), 60000);
  }
  Next(bed, 0x100, kOther, 100);
  for (const std::int32_t counter : {59970, 59940, 59910}) {
    bed.support.now += 100;  // it counts ticks, not elapsed time
    bed.Page();
    EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), counter);
    EXPECT_EQ(bed.Colours()[0].colour, counter);
  }
}

TEST(DataChange, TheStepIsTheIntervalOfTheTimer) {
  Bed bed;
  bed.timer.interval = 70;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), 60000 - 70);
}

TEST(DataChange, TheLastStepGoesBelowZeroAndNothingIsPaintedFromThereOn) {
  Bed bed;
  bed.device.t_DataChangeColorTime = 50;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  EXPECT_EQ(bed.Colours().size(), 2U);
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), -10);
  EXPECT_EQ(bed.Colours(), Runs{});
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), -10);
}

TEST(DataChange, TheSwitchActsInTheColourPassAlone) {
  Bed bed;
  bed.device.t_DataChangeColorEnable = 0;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  EXPECT_EQ(bed.Colours(), Runs{});
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), 60000);
  bed.device.t_DataChangeColorEnable = 2;
  bed.Page();
  EXPECT_EQ(bed.Colours(), Runs{});
}

TEST(DataChange, BytesBeyondTheLengthAreNeitherComparedNorPainted) {
  Bed bed;
  bed.Receive(0x100, 9, kData, 1000);
  bed.Receive(0x100, 9, kOther, 1100);
  bed.Page();
  EXPECT_EQ(bed.Colours(), (Runs{{kCells + 7, kCells + 9, 60000}}));
  EXPECT_EQ(bed.highlights->ViewColorlength_d8_timerCounter(0x100), 0);

  Bed shorter;
  shorter.Receive(0x100, 2, kData, 1000);
  shorter.Receive(0x100, 2, kOther, 1100);
  shorter.Page();
  EXPECT_EQ(shorter.Colours(), Runs{});
}

TEST(DataChange, ANewRowAboveMovesTheRegionsOnTheSameTick) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  Settle(bed, 0x0F0);
  EXPECT_EQ(bed.Colours()[0],
            (platform::ColourRun{kCells + kStandardRow + 7, kCells + kStandardRow + 9, 60000}));
}

TEST(DataChange, AnyDurationIsTaken) {
  using Limits = std::numeric_limits<std::int32_t>;
  for (const std::int32_t time : {Limits::min(), -1, 0}) {
    Bed bed;
    bed.device.t_DataChangeColorTime = time;
    Settle(bed, 0x100);
    Next(bed, 0x100, kOther, 100);
    bed.Page();
    Next(bed, 0x100, kOther, 100);
    bed.Page();
    EXPECT_EQ(bed.Colours(), Runs{});
    EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), time);
  }
}

TEST(DataChange, TheFadeGetsColourCounterAndDuration) {
  Bed bed;
  bed.device.t_DataChangeColor = 0x123456;
  bed.device.t_DataChangeColorTime = 5000;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  Next(bed, 0x100, kOther, 100);
  bed.support.fades.clear();
  bed.Page();
  EXPECT_EQ(bed.support.fades,
            (std::vector<BedSupport::Fade>{{0x123456, 4970, 5000}, {0x123456, 4970, 5000}}));
}

TEST(Late, TheFirstCycleHasNothingToBeComparedWith) {
  Bed bed;
  Settle(bed, 0x100);
  EXPECT_EQ(bed.Colours(), Runs{});
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 0);
}

TEST(Late, ACycleThatMovedByTheRatioIsColouredWithItsUnit) {
  struct Row {
    double cycle;
    bool late;
    std::int32_t length;
  };
  for (const Row& row : {Row{100, false, 0}, Row{142, false, 0}, Row{143, true, 5},
                         Row{77, false, 0}, Row{76, true, 4}, Row{1000, true, 6}}) {
    Bed bed;
    Settle(bed, 0x100);
    Next(bed, 0x100, kData, row.cycle);
    bed.Page();
    EXPECT_EQ(bed.Colours(), row.late ? Runs({{kCycle, kCycle + row.length, 60000}}) : Runs{})
        << row.cycle;
    EXPECT_EQ(bed.frames->CAN11_ReceivedTime_Delta(0x100), row.cycle);
  }
}

TEST(Late, TheReferenceIsTheLastAcceptedCycleAndTheCounterFallsFromTheNextTick) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  for (const std::int32_t counter : {59970, 59940}) {
    bed.Page();
    EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), counter);
    EXPECT_EQ(bed.Colours(), (Runs{{kCycle, kCycle + 5, counter}}));
  }
  EXPECT_EQ(bed.support.fades.back(), (BedSupport::Fade{0x0000FF, 59940, 60000}));
}

TEST(Late, ASpentCounterOfAMessageThatIsNotStoppedStaysAsItIs) {
  Bed bed;
  bed.device.t_MsgLateColor_Time = 20;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), -10);
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), -10);
  EXPECT_EQ(bed.Colours(), Runs{});
}

TEST(Late, TheSwitchLeavesTheCounterRunning) {
  Bed bed;
  bed.device.t_MsgLateColorEnable = 0;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  bed.Page();
  EXPECT_EQ(bed.Colours(), Runs{});
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 59970);
  bed.device.t_MsgLateColorEnable = 2;
  bed.Page();
  EXPECT_EQ(bed.Colours(), Runs{});
}

TEST(Late, RowsWithoutACycleKeepTheirCounter) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  Next(bed, 0x100, kData, 0);
  bed.Page();
  EXPECT_TRUE(bed.view.page->text.ends_with(u"????ms\r\n"));
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 60000);
  EXPECT_EQ(bed.Colours(), (Runs{{kCycle, kCycle + 5, 60000}}));
}

TEST(SameStamp, TheInterfaceBoardLetsTheRegionFallOnTheStoredCycle) {
  Bed bed;
  bed.device.t_select_Vender = kVenderInterface;
  bed.Device_Timer_Kind = kVenderInterface;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 2000);
  bed.Page();
  Next(bed, 0x100, kData, 0);
  Settle(bed, 0x0F0);
  EXPECT_TRUE(bed.view.page->text.ends_with(u"   2000ms\r\n"));
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 59970);
  EXPECT_EQ(bed.Colours(), (Runs{{kCycle + kStandardRow, kCycle + kStandardRow + 6, 59970}}));
  EXPECT_EQ(bed.frames->CAN11_ReceivedTime_Delta(0x100), 2000.0);
}

TEST(SameStamp, ASpentCounterStandsStillEvenOnAStoppedMessage) {
  Bed bed;
  bed.device.t_select_Vender = kVenderInterface;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 0);
  bed.support.now = 1000;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x100), 1);
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 0);
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_end(0x100), 0);
  EXPECT_EQ(bed.Colours(), Runs{});
}

TEST(Stopped, SilenceAboveTheRatioPaintsTheCycleFlatUntilFramesReturn) {
  Bed bed;
  Settle(bed, 0x100);
  bed.support.now = 250;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x100), 0);
  bed.support.now = 251;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x100), 1);
  EXPECT_EQ(bed.Colours(), (Runs{{kCycle, kCycle + 5, 0x969696}}));
  EXPECT_TRUE(bed.support.fades.empty());
  Next(bed, 0x100, kData, 100);
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x100), 0);
  EXPECT_EQ(bed.Colours(), Runs{});
}

TEST(Stopped, WithoutAStoredCycleTheFlagKeepsItsValue) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 1000);
  bed.frames->CAN11_BlackoutON(0x100, 1);
  bed.support.now = 1;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x100), 1);
}

TEST(Stopped, TheCounterRunsOnBelowZeroWhileTheRegionStaysFresh) {
  Bed bed;
  Settle(bed, 0x100);
  bed.support.now = 1000;
  for (const std::int32_t counter : {-30, -60, -90}) {
    bed.Page();
    EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), counter);
  }
  bed.highlights->ViewColorlength_dt_timerCounter(0x100,
                                                  std::numeric_limits<std::int32_t>::min() + 5);
  bed.Page();
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100),
            std::numeric_limits<std::int32_t>::min());
  bed.support.now = 0;
  Settle(bed, 0x0F0);
  bed.support.now = 1000;
  bed.Page();
  EXPECT_EQ(bed.Colours().back(),
            (platform::ColourRun{kCycle + kStandardRow, kCycle + kStandardRow + 5, 0x969696}));
}

TEST(Stopped, OutranksALateColourEvenWithItsOwnColouringOff) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.support.now = 10000;
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 60000);
  EXPECT_EQ(bed.Colours(), (Runs{{kCycle, kCycle + 5, 0x969696}}));
  for (const std::int32_t enable : {0, 2}) {
    bed.device.t_MsgBlackout_Enable = enable;
    bed.Page();
    EXPECT_EQ(bed.Colours(), Runs{});
  }
}

TEST(Stopped, TheRatioOfOneTickUsesTheTimeTakenAtItsStart) {
  Bed bed;
  Settle(bed, 0x100);
  Settle(bed, 0x7F0);
  bed.events.during_yield = [&] { bed.support.now = 1e6; };
  bed.support.now = 100;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x7F0), 0);
}

TEST(Stopped, TheTestRunsAlsoWithoutAnAdapterKind) {
  Bed bed;
  Settle(bed, 0x100);
  bed.device.t_select_Vender = 0;
  bed.support.now = 1000;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x100), 1);
}

TEST(ColourPass, FormBG2PaintsAFirstFrameThatItsTextPassPassesOver) {
  TickBed<WorkerKind::FormBG2> bed;
  bed.frames->CAN11_Received(0x100, row_state::kFirst);
  bed.frames->CAN11_DLC(0x100, 8);
  bed.highlights->ViewColorlength_d1_timerCounter(0x100, 90);
  bed.highlights->ViewColorlength_d1_start(0x100, 4);
  bed.highlights->ViewColorlength_d1_end(0x100, 2);
  bed.Page();
  EXPECT_EQ(bed.Colours(), (Runs{{4, 6, 90}}));
  EXPECT_EQ(bed.highlights->ViewColorlength_d1_timerCounter(0x100), 90);
}

TEST(ColourPass, RowsWithoutFramesAndExcludedOnesAreNotPainted) {
  for (const std::uint8_t state : {row_state::kNone, row_state::kWriting}) {
    Bed bed;
    Settle(bed, 0x100);
    Next(bed, 0x100, kOther, 100);
    bed.Page();
    bed.frames->CAN11_Received(0x100, state);
    bed.Page();
    EXPECT_EQ(bed.Colours(), Runs{});
  }
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 200);
  bed.device.t_DisableID_ON(7, 1);
  bed.device.t_DisableID_Start(7, 0x100);
  bed.device.t_DisableID_End(7, 0x100);
  bed.Page();
  EXPECT_EQ(bed.Colours(), Runs{});
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), 0);
}

TEST(ColourPass, StalePositionsBeyondThePageAreClamped) {
  Bed bed;
  bed.frames->CAN11_Received(0x100, row_state::kFirst);
  bed.frames->CAN11_BlackoutON(0x100, 1);
  for (const std::int32_t start : {1'000'000, std::numeric_limits<std::int32_t>::max()}) {
    bed.highlights->ViewColorlength_dt_start(0x100, start);
    bed.highlights->ViewColorlength_dt_end(0x100, std::numeric_limits<std::int32_t>::max());
    bed.Page();
    EXPECT_EQ(bed.Colours(), Runs{});
  }
  bed.highlights->ViewColorlength_dt_start(0x100, 70);
  const auto end = static_cast<std::int32_t>(bed.Page().size());
  EXPECT_EQ(bed.Colours(), (Runs{{70, end, 0x969696}}));
}

TEST(Highlight29, RegionsStayWithTheirMessageWhenALowerIDMovesTheLines) {
  TickBed<WorkerKind::FormBG_29> bed;
  const std::int16_t row = bed.AddKey(0x300, 1);
  bed.Receive(row, 8, kData, 1000);
  bed.Receive(row, 8, kOther, 1100);
  bed.Page();
  constexpr std::int32_t kFirstCells = 41 + 15;
  EXPECT_EQ(bed.Colours()[0], (platform::ColourRun{kFirstCells + 7, kFirstCells + 9, 60000}));

  bed.Receive(bed.AddKey(0x100, 1), 8, kData, 1000);
  const String& page = bed.Page();
  constexpr std::int32_t kLine = 15 + 24 + 3 + 6 + 2;  // "----ms"
  EXPECT_EQ(bed.Colours()[0],
            (platform::ColourRun{kFirstCells + kLine + 7, kFirstCells + kLine + 9, 60000}));
  EXPECT_EQ(page.substr(kFirstCells + kLine + 7, 2), u"FF");
  EXPECT_EQ(bed.highlights->VColorlength_d3_timerCounter(row), 60000);
}

}  // namespace
}  // namespace tolvane
