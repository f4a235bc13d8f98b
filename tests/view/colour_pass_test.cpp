#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>

#include "tests/view/highlight_bed.h"

namespace tolvane {
namespace {

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

TEST(ColourPass, ALitByteThatAShorterFrameNoLongerHasIsNotPainted) {
  for (const std::uint8_t dlc : std::to_array<std::uint8_t>({0, 2, 9})) {
    Bed bed;
    Settle(bed, 0x100);
    Next(bed, 0x100, kOther, 100);
    bed.Page();
    ASSERT_EQ(bed.Colours().size(), 2U);
    bed.Receive(0x100, dlc, kOther, 1300);
    bed.Page();
    // Byte 3 is there in a frame of length 9, byte 8 in none of them.
    EXPECT_EQ(bed.Colours(), dlc == 9 ? Runs({{kCells + 7, kCells + 9, 59970}}) : Runs{})
        << int{dlc};
    EXPECT_EQ(bed.highlights->ViewColorlength_d8_timerCounter(0x100), 60000) << int{dlc};
  }
}

TEST(ColourPass, FormBG_29PaintsNothingOnARowThatIsNotSettledThoughItHasALine) {
  for (const std::uint8_t state : {row_state::kNone, row_state::kWriting}) {
    TickBed<WorkerKind::FormBG_29> bed;
    const std::int16_t row = bed.Receive(0x300, 8, kData, 1000);
    bed.Receive(0x300, 8, kOther, 1100);
    bed.device.t_MsgMarker_ON(0, 1);
    bed.device.t_MsgMarkerID(0, 0x300);
    bed.device.t_MsgMarkerStartByte(0, 1);
    bed.device.t_MsgMarkerEndByte(0, 1);
    bed.Page();
    EXPECT_EQ(bed.Colours().size(), 2U);
    EXPECT_EQ(bed.Backgrounds().size(), 1U);
    bed.frames->CAN29_Received(row, state);
    EXPECT_NE(bed.Page().find(u"* 00000300"), String::npos);
    EXPECT_EQ(bed.Colours(), Runs{});
    EXPECT_EQ(bed.Backgrounds(), Runs{});
  }
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

TEST(ColourPass, TheExtendedOneDoesNotExcludeByRow) {
  TickBed<WorkerKind::FormBG_29> bed;
  const std::int16_t row = bed.Receive(0x300, 8, kData, 1000);
  bed.Receive(0x300, 8, kOther, 1100);
  bed.Page();
  EXPECT_EQ(bed.Colours().size(), 2U);
  bed.device.t_DisableID_ON(0, 1);
  bed.device.t_DisableID_Start(0, row);
  bed.device.t_DisableID_End(0, row);
  bed.Page();
  EXPECT_EQ(bed.Colours().size(), 2U);
}

TEST(Highlight29, RegionsStayWithTheirMessageWhenALowerIDMovesTheLines) {
  TickBed<WorkerKind::FormBG_29> bed;
  const std::int16_t row = bed.Receive(0x300, 8, kData, 1000);
  bed.Receive(0x300, 8, kOther, 1100);
  bed.Page();
  constexpr std::int32_t kFirstCells = 41 + 15;
  EXPECT_EQ(bed.Colours()[0], (platform::ColourRun{kFirstCells + 7, kFirstCells + 9, 60000}));

  bed.Receive(0x100, 8, kData, 1000);
  const String& page = bed.Page();
  constexpr std::int32_t kLine = 15 + 24 + 3 + 6 + 2;  // "----ms"
  EXPECT_EQ(bed.Colours()[0],
            (platform::ColourRun{kFirstCells + kLine + 7, kFirstCells + kLine + 9, 60000}));
  EXPECT_EQ(page.substr(kFirstCells + kLine + 7, 2), u"FF");
  EXPECT_EQ(bed.highlights->VColorlength_d3_timerCounter(row), 60000);
  EXPECT_EQ(bed.highlights->VColorlength_d3_start(row), kFirstCells + kLine + 7);
  EXPECT_EQ(bed.highlights->VColorlength_d3_end(row), 2);
}

}  // namespace
}  // namespace tolvane
