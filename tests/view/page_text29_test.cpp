#include <gtest/gtest.h>

#include <cstdint>

#include "tests/view/tick_bed.h"

namespace tolvane {
namespace {

constexpr StringView kHeader = u"E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
constexpr Bytes8 kData = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};
constexpr StringView kRest = u"  8   01 02 03 04 05 06 07 08   ----ms\r\n";

using Bed = TickBed<WorkerKind::FormBG_29>;
using Bed2 = TickBed<WorkerKind::FormBG2_29>;

String Page(StringView rows) { return String(kHeader) + String(rows); }

template <typename AnyBed>
std::int16_t Add(AnyBed& bed, std::int32_t id, std::uint8_t flags = kExtended) {
  return bed.Receive(id, 8, kData, 5, flags);
}

TEST(PageText29, AnEmptyTableGivesHeaderAndFoot) {
  Bed bed;
  bed.highlights->DisableID_Status_Buffer = u"foot\r\n";
  EXPECT_EQ(bed.Page(), Page(u"foot\r\n"));
}

TEST(PageText29, IDsHaveEightDigitsBehindTheExtendedColumn) {
  // A standard data frame of ID 0 has no row of its own.
  struct Row {
    std::int32_t id;
    std::uint8_t flags;
    StringView text;
  };
  const Row rows[] = {{0, kRemote, u"  00000000"},
                      {0, kExtended, u"* 00000000"},
                      {0xF, kStandard, u"  0000000F"},
                      {0x10, kStandard, u"  00000010"},
                      {0xFF, kStandard, u"  000000FF"},
                      {0x100, kStandard, u"  00000100"},
                      {0x123, kStandard, u"  00000123"},
                      {0xFFF, kExtended, u"* 00000FFF"},
                      {0x1000, kExtended, u"* 00001000"},
                      {0xFFFF, kExtended, u"* 0000FFFF"},
                      {0x10000, kExtended, u"* 00010000"},
                      {0xFFFFF, kExtended, u"* 000FFFFF"},
                      {0x100000, kExtended, u"* 00100000"},
                      {0xFFFFFF, kExtended, u"* 00FFFFFF"},
                      {0x1000000, kExtended, u"* 01000000"},
                      {0xFFFFFFF, kExtended, u"* 0FFFFFFF"},
                      {0x10000000, kExtended, u"* 10000000"},
                      {0x1FFFFFFF, kExtended, u"* 1FFFFFFF"},
                      {0x7FFFFFFF, kExtended, u"* 7FFFFFFF"},
                      {0x123, kRemote | kExtended, u"  00000123"},
                      {-1, kExtended, u"* 0000000FFFFFFFF"}};
  for (const Row& row : rows) {
    Bed bed;
    Add(bed, row.id, row.flags);
    EXPECT_EQ(bed.Page(), Page(String(row.text) + String(kRest))) << row.id;
  }
}

TEST(PageText29, TheStandardFrameOfANumberStandsBeforeTheExtendedOne) {
  Bed bed;
  Add(bed, 0x123);
  Add(bed, 0x123, kStandard);
  const String rest(kRest);
  EXPECT_EQ(bed.Page(), Page(u"  00000123" + rest + u"* 00000123" + rest));
}

TEST(PageText29, LinesRiseByIDWhateverTheOrderOfArrival) {
  Bed bed;
  for (const std::int32_t id : {0x300, 0x100, 0x200}) Add(bed, id);
  const String rest(kRest);
  EXPECT_EQ(bed.Page(), Page(u"* 00000100" + rest + u"* 00000200" + rest + u"* 00000300" + rest));
}

TEST(PageText29, CellsAndPaddingAreThoseOfTheElevenBitPage) {
  Bed bed;
  bed.Receive(1, 2, kData, 5);
  bed.Receive(2, 9, kData, 5);
  EXPECT_EQ(bed.Page(), Page(u"* 00000001  2   01 02                     ----ms\r\n"
                             u"* 00000002  9   01 02 03 04 05 06 07   ----ms\r\n"));
}

TEST(PageText29, RowStatesMatterInFormBG2_29Only) {
  for (const std::uint8_t state :
       {row_state::kNone, row_state::kMany, row_state::kWriting, row_state::kFirst}) {
    Bed bed;
    bed.frames->CAN29_Received(Add(bed, 5, kStandard), state);
    EXPECT_NE(bed.Page(), kHeader) << int{state};
    Bed2 bed2;
    bed2.frames->CAN29_Received(Add(bed2, 5, kStandard), state);
    const bool shown = state == row_state::kMany || state == row_state::kFirst;
    EXPECT_EQ(bed2.Page() != kHeader, shown) << int{state};
  }
}

TEST(PageText29, ARowThatIsNotSettledHasNoCycle) {
  Bed bed;
  const std::int16_t row = Add(bed, 5, kStandard);
  bed.frames->CAN29_Received(row, row_state::kWriting);
  EXPECT_EQ(bed.Page(), Page(u"  00000005  8   01 02 03 04 05 06 07 08   ????ms\r\n"));
}

TEST(PageText29, TwoStampsOfZeroAreNoCycleInAnyState) {
  Bed bed;
  const std::int16_t row = bed.Receive(5, 8, kData, 0, kStandard);
  bed.frames->CAN29_Received(row, row_state::kWriting);
  EXPECT_EQ(bed.Page(), Page(u"  00000005" + String(kRest)));
}

TEST(PageText29, ExclusionTakesTheWholeID) {
  for (const std::int32_t id : {0x0FFFFFFF, 0x18DAF110}) {
    Bed bed;
    Add(bed, id);
    bed.device.t_DisableID_ON(0, 1);
    bed.device.t_DisableID_Start(0, 0x18000000);
    bed.device.t_DisableID_End(0, 0x18FFFFFF);
    EXPECT_EQ(bed.Page() == kHeader, id == 0x18DAF110);
  }
}

TEST(PageText29, CyclesHaveFourDecimalsInFormBG_29AndNoneInFormBG2_29) {
  struct Row {
    double time_next;
    StringView fraction, whole;
  };
  const Row rows[] = {
      {1100.25, u"100.25", u"100"},    {1100.03125, u"100.0312", u"100"},
      {1000.5, u"0.5", u"????"},       {1101.5, u"101.5", u"102"},
      {1000.0001, u"0.0001", u"????"}, {123457789.1234, u"123456789.1234", u"123456789"}};
  for (const Row& row : rows) {
    Bed bed;
    bed.Receive(7, 0, kData, 1000);
    bed.Receive(7, 0, kData, row.time_next);
    const String start = u"* 00000007  0  " + String(27, u' ');
    EXPECT_EQ(bed.Page(), Page(start + String(row.fraction) + u"ms\r\n"));
    Bed2 bed2;
    bed2.Receive(7, 0, kData, 1000);
    bed2.Receive(7, 0, kData, row.time_next);
    EXPECT_EQ(bed2.Page(), Page(start + String(row.whole) + u"ms\r\n"));
  }
}

TEST(PageText29, ACycleRegionIsTwoCharactersLongerThanItsFraction) {
  Bed bed;
  const std::int16_t row = bed.Receive(7, 8, kData, 1000);
  bed.Receive(7, 8, kData, 1100.25);
  bed.frames->CAN29_ReceivedTime_Delta(row, 10.0);
  bed.Page();
  const auto start = static_cast<std::int32_t>(kHeader.size() + 15 + 24 + 3);
  EXPECT_EQ(bed.highlights->VColorlength_dt_start(row), start);
  EXPECT_EQ(bed.highlights->VColorlength_dt_end(row), 8);
  ASSERT_EQ(bed.Colours().size(), 1U);
  EXPECT_EQ(bed.view.page->text.substr(static_cast<std::size_t>(start), 8), u"100.25ms");
}

// Of a board, whose rows show the stored cycle again when two frames have the same stamp.
TEST(PageText29, ATenThousandthBetweenTwoStampsIsNotOneStamp) {
  Bed bed;
  bed.device.t_select_Vender = kVenderInterface;
  const std::int16_t row = bed.Receive(7, 0, kData, 1000);
  bed.Receive(7, 0, kData, 1000.0001);
  bed.frames->CAN29_ReceivedTime_Delta(row, 50);
  bed.frames->CAN29_ReceivedTime_writting(row, 1);
  EXPECT_TRUE(bed.Page().ends_with(u"   ????ms\r\n"));
  bed.Receive(7, 0, kData, 1000.0001);
  bed.frames->CAN29_ReceivedTime_writting(row, 1);
  EXPECT_TRUE(bed.Page().ends_with(u"   50ms\r\n"));
}

TEST(PageText29, TwelveDigitsOfAFractionFitTheirRegion) {
  Bed bed;
  const std::int16_t row = bed.Receive(7, 8, kData, 0);
  bed.Receive(7, 8, kData, 12345678.1234);
  bed.frames->CAN29_ReceivedTime_Delta(row, 10.0);
  EXPECT_TRUE(bed.Page().ends_with(u"   12345678.1234ms\r\n"));
  EXPECT_EQ(bed.highlights->VColorlength_dt_end(row), 15);
}

TEST(PageText29, NegativeCyclesAreRepairedInBothWorkers) {
  Bed bed;
  bed.Receive(7, 0, kData, 59990.5);
  bed.Receive(7, 0, kData, 10);
  EXPECT_TRUE(bed.Page().ends_with(u"   19.5ms\r\n"));
  Bed2 bed2;
  bed2.Receive(7, 0, kData, 59990.5);
  bed2.Receive(7, 0, kData, 10);
  EXPECT_TRUE(bed2.Page().ends_with(u"   20ms\r\n"));
}

TEST(PageText29, CellsShowAndCompareTheirOwnColumns) {
  Bed bed;
  const std::int16_t row = Add(bed, 7);
  CAN_ReadDB29& frames = *bed.frames;
  frames.CAN29_Received(row, row_state::kFirst);
  frames.CAN29_DLC(row, 8);
  frames.CAN29_Data1(row, 0x11);
  frames.CAN29_Data2(row, 0x22);
  frames.CAN29_Data3(row, 0x33);
  frames.CAN29_Data4(row, 0x44);
  frames.CAN29_Data5(row, 0x55);
  frames.CAN29_Data6(row, 0x66);
  frames.CAN29_Data7(row, 0x77);
  frames.CAN29_Data8(row, 0x88);
  frames.CAN29_Data1_old(row, 0x11);
  frames.CAN29_Data2_old(row, 0x22);
  frames.CAN29_Data3_old(row, 0x33);
  frames.CAN29_Data4_old(row, 0x44);
  frames.CAN29_Data5_old(row, 0x55);
  frames.CAN29_Data6_old(row, 0x66);
  frames.CAN29_Data7_old(row, 0x77);
  frames.CAN29_Data8_old(row, 0x88);
  EXPECT_EQ(bed.Page(), Page(u"* 00000007  8   11 22 33 44 55 66 77 88   ----ms\r\n"));
  EXPECT_TRUE(bed.Colours().empty());
}

TEST(PageText29, SilenceCountsFromTheRowsOwnReadTime) {
  Bed bed;
  const std::int16_t row = bed.Receive(7, 0, kData, 1000);
  bed.Receive(7, 0, kData, 1100);
  bed.frames->CAN29_ReceivedTime_Delta(row, 100);
  bed.frames->CAN29_ReadTime_old(row, 1e6);
  bed.support.now = 1e6 + 250;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN29_BlackoutON(row), 0);
  bed.support.now = 1e6 + 251;
  bed.Page();
  EXPECT_EQ(bed.frames->CAN29_BlackoutON(row), 1);
}

}  // namespace
}  // namespace tolvane
