#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "tests/view/highlight_bed.h"

namespace tolvane {
namespace {

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
  for (const double stored : {0.0, -100.0}) {
    for (const auto flag : {std::uint8_t{0}, std::uint8_t{1}}) {
      Bed bed;
      bed.Receive(0x100, 8, kData, 1000);
      bed.frames->CAN11_ReceivedTime_Delta(0x100, stored);
      bed.frames->CAN11_BlackoutON(0x100, flag);
      bed.support.now = 1;
      bed.Page();
      EXPECT_EQ(bed.frames->CAN11_BlackoutON(0x100), flag) << stored;
    }
  }
}

TEST(Stopped, AMessageIsNotStoppedBeforeItsFirstCycle) {
  Bed bed;
  bed.Receive(0x100, 8, kData, 1000);
  bed.support.now = 100;
  bed.Page();
  bed.Receive(0x100, 8, kData, 1100);
  bed.support.now = 101;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN11_ReceivedTime_Delta(0x100), 100.0);
  EXPECT_EQ(bed.highlights->ViewColorlength_dt_timerCounter(0x100), 0);
  EXPECT_EQ(bed.Colours(), Runs{});
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

}  // namespace
}  // namespace tolvane
