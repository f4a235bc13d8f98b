#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "tests/view/highlight_bed.h"

namespace tolvane {
namespace {

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

TEST(DataChange, OnlyTheLastTwoFramesAreCompared) {
  Bed bed;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  Next(bed, 0x100, kData, 100);
  Next(bed, 0x100, kData, 100);
  bed.Page();
  EXPECT_EQ(bed.Colours(), Runs{}) << "there and back between two ticks";
  Next(bed, 0x100, kOther, 100);
  Next(bed, 0x100, kData, 100);
  bed.Page();
  EXPECT_EQ(bed.Colours().size(), 2U) << "back in the last frame is a change";
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

TEST(DataChange, TheLastMillisecondFallsToo) {
  Bed bed;
  bed.device.t_DataChangeColorTime = 31;
  Settle(bed, 0x100);
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  Next(bed, 0x100, kOther, 100);
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), 1);
  EXPECT_EQ(bed.Colours().size(), 2U);
  bed.Page();
  EXPECT_EQ(bed.highlights->ViewColorlength_d3_timerCounter(0x100), -29);
  EXPECT_EQ(bed.Colours(), Runs{});
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

}  // namespace
}  // namespace tolvane
