#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "tests/view/highlight_bed.h"

namespace tolvane {
namespace {

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

TEST(Late, AnotherMoveSetsARunningCounterBackToTheFullDuration) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 59970);
  Next(bed, 0x100, kData, 400);
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 60000);
}

TEST(Late, TheFadeGetsItsOwnColourAndDuration) {
  Bed bed;
  bed.device.t_MsgLateColor = 0x123456;
  bed.device.t_MsgLateColor_Time = 5000;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  EXPECT_EQ(bed.support.fades, (std::vector<BedSupport::Fade>{{0x123456, 5000, 5000}}));
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

TEST(Late, ACounterOfOneMillisecondStillFalls) {
  Bed bed;
  bed.device.t_MsgLateColor_Time = 31;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  for (const std::int32_t counter : {1, -29, -29}) {
    bed.Page();
    EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), counter);
    EXPECT_EQ(bed.Colours(), counter > 0 ? Runs({{kCycle, kCycle + 5, counter}}) : Runs{});
  }
}

TEST(Late, ACounterThatEndsAtZeroIsNotPaintedAnyMore) {
  Bed bed;
  bed.device.t_MsgLateColor_Time = 60;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  bed.Page();
  EXPECT_EQ(bed.Colours(), (Runs{{kCycle, kCycle + 5, 30}}));
  for (int i = 0; i < 2; ++i) {
    bed.Page();
    EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 0);
    EXPECT_EQ(bed.highlights->ViewColorlength_dt_end(0x100), 5) << "the region itself stays";
    EXPECT_EQ(bed.Colours(), Runs{});
  }
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

TEST(SameStamp, ACounterOfOneMillisecondStillFalls) {
  Bed bed;
  bed.device.t_select_Vender = kVenderInterface;
  bed.device.t_MsgLateColor_Time = 31;
  Settle(bed, 0x100);
  Next(bed, 0x100, kData, 200);
  bed.Page();
  Next(bed, 0x100, kData, 0);
  for (const std::int32_t counter : {1, -29, -29}) {
    bed.Page();
    EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), counter);
  }
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

}  // namespace
}  // namespace tolvane
