#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>

#include "tests/view/tick_bed.h"

namespace tolvane {
namespace {

constexpr StringView kHeader = u"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
constexpr Bytes8 kData = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08};

using Bed = TickBed<WorkerKind::FormBG>;
using Bed2 = TickBed<WorkerKind::FormBG2>;

String Page(StringView rows) { return String(kHeader) + String(rows); }

/// Two frames of ID 1A0, `cycle` ms apart.
template <typename AnyBed>
void ReceiveTwo(AnyBed& bed, double time, double time_next) {
  bed.Receive(0x1A0, 8, kData, time);
  bed.Receive(0x1A0, 8, kData, time_next);
}

TEST(PageText, AnEmptyTableGivesHeaderAndFoot) {
  Bed bed;
  bed.highlights->DisableID_Status_Buffer = u"\r\nメッセージ除外範囲 1： 0 ～ 7FF\r\n";
  EXPECT_EQ(bed.Page(), Page(u"\r\nメッセージ除外範囲 1： 0 ～ 7FF\r\n"));
}

TEST(PageText, AFullRowStandsUnderTheHeader) {
  Bed bed;
  ReceiveTwo(bed, 1000, 1100);
  EXPECT_EQ(bed.Page(), Page(u"1A0  8   01 02 03 04 05 06 07 08   100ms\r\n"));
}

TEST(PageText, IDZeroIsNeverShownAndTheLastRowIs2047) {
  Bed bed;
  for (const std::int16_t id : std::to_array<std::int16_t>({0, 1, 2047, 2048}))
    bed.Receive(id, 0, kData, 5);
  const String blanks(24, u' ');
  EXPECT_EQ(bed.Page(), Page(u"001  0  " + blanks + u"   ----ms\r\n" + u"7FF  0  " + blanks +
                             u"   ----ms\r\n"));
}

TEST(PageText, IDsHaveThreeDigitsAndRise) {
  Bed bed;
  for (const std::int16_t id : std::to_array<std::int16_t>({0x7FF, 0x100, 0x0FF, 0x010, 0x00F}))
    bed.Receive(id, 8, kData, 5);
  const String rest = u"  8   01 02 03 04 05 06 07 08   ----ms\r\n";
  EXPECT_EQ(bed.Page(),
            Page(u"00F" + rest + u"010" + rest + u"0FF" + rest + u"100" + rest + u"7FF" + rest));
}

TEST(PageText, BytesAreTwoDigitsAndAShortFrameIsPaddedToEightCells) {
  struct Row {
    std::uint8_t dlc;
    StringView text;
  };
  const Row rows[] = {{0, u"100  0                             ----ms\r\n"},
                      {1, u"100  1   0A                        ----ms\r\n"},
                      {7, u"100  7   0A A0 00 FF 0F 10 7F      ----ms\r\n"},
                      {8, u"100  8   0A A0 00 FF 0F 10 7F 80   ----ms\r\n"},
                      {9, u"100  9   0A A0 00 FF 0F 10 7F   ----ms\r\n"},
                      {15, u"100  15   0A A0 00 FF 0F 10 7F   ----ms\r\n"},
                      {255, u"100  255   0A A0 00 FF 0F 10 7F   ----ms\r\n"}};
  for (const Row& row : rows) {
    Bed bed;
    bed.Receive(0x100, row.dlc, {0x0A, 0xA0, 0x00, 0xFF, 0x0F, 0x10, 0x7F, 0x80}, 5);
    EXPECT_EQ(bed.Page(), Page(row.text)) << int{row.dlc};
  }
}

TEST(PageText, RowStatesDecideWhoIsShown) {
  struct Row {
    const char* label;
    std::uint8_t state;
    bool FormBG, FormBG2;
  };
  const Row rows[] = {{"nothing", row_state::kNone, false, false},
                      {"many", row_state::kMany, true, true},
                      {"being written", row_state::kWriting, false, false},
                      {"first", row_state::kFirst, true, false}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.label);
    Bed bed;
    bed.frames->CAN11_Received(5, row.state);
    EXPECT_EQ(bed.Page() != kHeader, row.FormBG);
    Bed2 bed2;
    bed2.frames->CAN11_Received(5, row.state);
    EXPECT_EQ(bed2.Page() != kHeader, row.FormBG2);
  }
}

TEST(PageText, AMessageSeenOnceHasALineInFormBGAndNoneInFormBG2) {
  Bed bed;
  bed.Receive(0x1A0, 8, kData, 1000);
  EXPECT_EQ(bed.Page(), Page(u"1A0  8   01 02 03 04 05 06 07 08   ----ms\r\n"));

  Bed2 bed2;
  bed2.Receive(0x1A0, 8, kData, 1000);
  EXPECT_EQ(bed2.Page(), kHeader);
  bed2.Receive(0x1A0, 8, kData, 1020);
  EXPECT_EQ(bed2.Page(), Page(u"1A0  8   01 02 03 04 05 06 07 08   20ms\r\n"));
}

TEST(PageText, ExcludedIDsHaveNoLine) {
  Bed bed;
  for (const std::int16_t id : std::to_array<std::int16_t>({0x0FF, 0x100, 0x1FF, 0x200}))
    bed.Receive(id, 8, kData, 5);
  bed.device.t_DisableID_ON(0, 1);
  bed.device.t_DisableID_Start(0, 0x100);
  bed.device.t_DisableID_End(0, 0x1FF);
  const String rest = u"  8   01 02 03 04 05 06 07 08   ----ms\r\n";
  EXPECT_EQ(bed.Page(), Page(u"0FF" + rest + u"200" + rest));
}

TEST(PageText, CellsShowAndCompareTheirOwnColumns) {
  Bed bed;
  CAN_ReadDB& frames = *bed.frames;
  frames.CAN11_Received(0x1A0, row_state::kFirst);
  frames.CAN11_DLC(0x1A0, 8);
  frames.CAN11_Data1(0x1A0, 0x11);
  frames.CAN11_Data2(0x1A0, 0x22);
  frames.CAN11_Data3(0x1A0, 0x33);
  frames.CAN11_Data4(0x1A0, 0x44);
  frames.CAN11_Data5(0x1A0, 0x55);
  frames.CAN11_Data6(0x1A0, 0x66);
  frames.CAN11_Data7(0x1A0, 0x77);
  frames.CAN11_Data8(0x1A0, 0x88);
  frames.CAN11_Data1_old(0x1A0, 0x11);
  frames.CAN11_Data2_old(0x1A0, 0x22);
  frames.CAN11_Data3_old(0x1A0, 0x33);
  frames.CAN11_Data4_old(0x1A0, 0x44);
  frames.CAN11_Data5_old(0x1A0, 0x55);
  frames.CAN11_Data6_old(0x1A0, 0x66);
  frames.CAN11_Data7_old(0x1A0, 0x77);
  frames.CAN11_Data8_old(0x1A0, 0x88);
  EXPECT_EQ(bed.Page(), Page(u"1A0  8   11 22 33 44 55 66 77 88   ----ms\r\n"));
  EXPECT_TRUE(bed.Colours().empty());
}

/// What the table of the cycle texts says, case by case.
TEST(PageText, CycleTexts) {
  struct Row {
    const char* label;
    std::int32_t vender, kind;
    double time_old, time;
    std::uint8_t state, writting;
    double stored;
    StringView text;
    double stored_after;
  };
  const Row rows[] = {
      {"accepted", 1, 1, 1000, 1100, 1, 0, 0, u"100", 100},
      {"halves to even, down", 1, 1, 1000, 1100.5, 1, 0, 0, u"100", 100},
      {"halves to even, up", 1, 1, 1000, 1101.5, 1, 0, 0, u"102", 102},
      {"rounds to 0", 1, 1, 1000, 1000.5, 1, 0, 70, u"????", 70},
      {"CANUSB counter started over", 1, 1, 59990, 10, 1, 0, 0, u"20", 20},
      {"Kvaser is repaired by the timer kind too", 3, 1, 59990, 10, 1, 0, 0, u"20", 20},
      {"Kvaser has no wrap", 3, 3, 59990, 10, 1, 0, 50, u"????", 50},
      {"Interface shows the stored cycle", 2, 2, 59990, 10, 1, 0, 50, u"50", 50},
      {"Interface before a cycle", 2, 2, 59990, 10, 1, 0, 0, u"0", 0},
      {"the wrap length goes by the timer kind", 1, 2, 400000, 100, 1, 0, 0, u"29591", 29591},
      {"still negative after the wrap", 1, 1, 90000, 10, 1, 0, 7, u"????", 7},
      {"exactly the wrap", 1, 1, 60000, 0, 1, 0, 7, u"????", 7},
      {"one stamp, CANUSB", 1, 1, 500, 500, 1, 0, 40, u"????", 40},
      {"one stamp, Interface", 2, 2, 500, 500, 1, 0, 40, u"40", 40},
      {"one stamp, Kvaser", 3, 3, 500, 500, 1, 0, 40, u"????", 40},
      {"two stamps of 0, CANUSB", 1, 1, 0, 0, 1, 0, 40, u"----", 40},
      {"two stamps of 0, Interface", 2, 2, 0, 0, 1, 0, 40, u"40", 40},
      {"two stamps of 0, Kvaser", 3, 3, 0, 0, 1, 0, 40, u"----", 40},
      {"first frame, CANUSB", 1, 1, 0, 700, 3, 0, 0, u"----", 0},
      {"first frame, Interface", 2, 2, 0, 700, 3, 0, 0, u"----", 0},
      {"first frame at 0, Interface", 2, 2, 0, 0, 3, 0, 0, u"----", 0},
      {"times being written", 1, 1, 1000, 1100, 1, 1, 60, u"????", 60},
      {"times being written, Interface", 2, 2, 1000, 1100, 1, 1, 60, u"????", 60},
      {"times being written, one stamp, Interface", 2, 2, 1000, 1000, 1, 1, 60, u"60", 60},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.label);
    Bed bed;
    bed.device.t_select_Vender = row.vender;
    bed.Device_Timer_Kind = row.kind;
    bed.frames->CAN11_Received(0x1A0, row.state);
    bed.frames->CAN11_DLC(0x1A0, 8);
    bed.frames->CAN11_ReceivedTime_old(0x1A0, row.time_old);
    bed.frames->CAN11_ReceivedTime(0x1A0, row.time);
    bed.frames->CAN11_ReceivedTime_writting(0x1A0, row.writting);
    bed.frames->CAN11_ReceivedTime_Delta(0x1A0, row.stored);
    EXPECT_EQ(bed.Page(),
              Page(u"1A0  8   00 00 00 00 00 00 00 00   " + String(row.text) + u"ms\r\n"));
    EXPECT_EQ(bed.frames->CAN11_ReceivedTime_Delta(0x1A0), row.stored_after);
  }
}

TEST(PageText, BothElevenBitWorkersRoundToWholeMilliseconds) {
  Bed bed;
  ReceiveTwo(bed, 1000, 1100.26);
  EXPECT_EQ(bed.Page(), Page(u"1A0  8   01 02 03 04 05 06 07 08   100ms\r\n"));
  Bed2 bed2;
  ReceiveTwo(bed2, 1000, 1100.26);
  EXPECT_EQ(bed2.Page(), Page(u"1A0  8   01 02 03 04 05 06 07 08   100ms\r\n"));
}

TEST(PageText, ACycleBeyondItsTypeStopsAtTheLargestWholeNumber) {
  Bed bed;
  ReceiveTwo(bed, -1e300, 1e300);
  EXPECT_EQ(bed.Page(), Page(u"1A0  8   01 02 03 04 05 06 07 08   922337203685477ms\r\n"));
}

TEST(PageText, WithoutAnAdapterKindRowsRunOnInOneLine) {
  for (const std::int32_t vender : {0, 4, -1, std::numeric_limits<std::int32_t>::min()}) {
    Bed bed;
    bed.device.t_select_Vender = vender;
    ReceiveTwo(bed, 1000, 1100);
    bed.Receive(0x1A1, 7, kData, 1000);
    EXPECT_EQ(bed.Page(), Page(u"1A0  8   01 02 03 04 05 06 07 08"
                               u"1A1  7   01 02 03 04 05 06 07   "));
    EXPECT_EQ(bed.frames->CAN11_ReceivedTime_Delta(0x1A0), 0.0);
  }
}

TEST(PageText, ARowOnceShownStaysForTheRun) {
  Bed bed;
  ReceiveTwo(bed, 1000, 1100);
  const String first = bed.Page();
  bed.support.now = 1e9;
  EXPECT_EQ(bed.Page(), first);
}

}  // namespace
}  // namespace tolvane
