#include "view/optfunction1.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace tolvane {
namespace {

ELM327_Info Record() {
  ELM327_Info device(u"C:\\Tolvane");
  device.Param_ALL_Clear();
  return device;
}

void SetRange(ELM327_Info& device, std::int16_t i, std::int32_t start, std::int32_t end) {
  device.t_DisableID_ON(i, 1);
  device.t_DisableID_Start(i, start);
  device.t_DisableID_End(i, end);
}

TEST(CheckDisableID, BothBoundsAreInclusive) {
  ELM327_Info device = Record();
  SetRange(device, 2, 0x100, 0x1FF);
  EXPECT_EQ(OptFunction1::Check_DisableID(0x0FF, device), 0);
  EXPECT_EQ(OptFunction1::Check_DisableID(0x100, device), 1);
  EXPECT_EQ(OptFunction1::Check_DisableID(0x1FF, device), 1);
  EXPECT_EQ(OptFunction1::Check_DisableID(0x200, device), 0);
}

TEST(CheckDisableID, OnlyTheValueOneEnablesARange) {
  ELM327_Info device = Record();
  SetRange(device, 0, 0, 0x7FF);
  device.t_DisableID_ON(0, 2);
  EXPECT_EQ(OptFunction1::Check_DisableID(5, device), 0);
}

TEST(CheckDisableID, AReversedRangeHoldsNothingAndTheLastRangeCounts) {
  ELM327_Info device = Record();
  SetRange(device, 0, 0x200, 0x100);
  EXPECT_EQ(OptFunction1::Check_DisableID(0x180, device), 0);
  SetRange(device, 7, 0x180, 0x180);
  EXPECT_EQ(OptFunction1::Check_DisableID(0x180, device), 1);
}

TEST(CheckDisableID, NegativeIDsCompareAsSignedNumbers) {
  ELM327_Info device = Record();
  SetRange(device, 0, 0, 0x1FFFFFFF);
  EXPECT_EQ(OptFunction1::Check_DisableID(-1, device), 0);
}

TEST(CheckDisableID, AnyBoundStaysInsideTheEightRanges) {
  struct Row {
    const char* label;
    std::int16_t range;
    std::int32_t bound;
    std::int32_t excluded;
  };
  const Row rows[] = {{"none", 0, -1, 0},
                      {"none, with low bits", 0, -65536, 0},
                      {"lowest", 0, std::numeric_limits<std::int32_t>::min(), 0},
                      {"below the range", 1, 0, 0},
                      {"the range", 1, 1, 1},
                      {"one too many", 1, 8, 1},
                      {"highest", 1, std::numeric_limits<std::int32_t>::max(), 1}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.label);
    ELM327_Info device = Record();
    SetRange(device, row.range, 5, 5);
    device.t_DisableID_MAX = row.bound;
    EXPECT_EQ(OptFunction1::Check_DisableID(5, device), row.excluded);
    EXPECT_EQ(OptFunction1::Make_DisableID_Text(device).empty(), row.excluded == 0);
  }
}

// Beyond its end a table would go on with the one behind it, which here holds a range that is on.
TEST(CheckDisableID, WhatLiesBehindTheTablesIsNoRange) {
  ELM327_Info device = Record();
  for (std::int16_t i = 0; i < 2; ++i) {
    device.t_DisableID_Start(i, 1);
    device.t_DisableID_End(i, 5);
    device.t_MsgMarkerID(i, 5);
  }
  for (const std::int32_t bound : {8, 9, std::numeric_limits<std::int32_t>::max()}) {
    device.t_DisableID_MAX = bound;
    EXPECT_EQ(OptFunction1::Check_DisableID(5, device), 0) << bound;
    EXPECT_EQ(OptFunction1::Make_DisableID_Text(device), u"") << bound;
  }
}

TEST(MakeDisableIDText, IsEmptyWithoutARangeWhateverTheLogOptionSays) {
  ELM327_Info device = Record();
  device.t_Save_ID_DisableMode = 1;
  EXPECT_EQ(OptFunction1::Make_DisableID_Text(device), u"");
}

TEST(MakeDisableIDText, OneRangeStandsBelowABlankLine) {
  ELM327_Info device = Record();
  SetRange(device, 0, 0, 0x7FF);
  EXPECT_EQ(OptFunction1::Make_DisableID_Text(device), u"\r\nメッセージ除外範囲 1： 0 ～ 7FF\r\n");
}

TEST(MakeDisableIDText, TheLogOptionAddsALastLine) {
  ELM327_Info device = Record();
  SetRange(device, 2, 0x100, 0x1FF);
  device.t_Save_ID_DisableMode = 1;
  EXPECT_EQ(OptFunction1::Make_DisableID_Text(device),
            u"\r\nメッセージ除外範囲 3： 100 ～ 1FF\r\n除外設定をログ出力にも適用\r\n");
  device.t_Save_ID_DisableMode = 2;
  EXPECT_EQ(OptFunction1::Make_DisableID_Text(device),
            u"\r\nメッセージ除外範囲 3： 100 ～ 1FF\r\n");
}

TEST(MakeDisableIDText, BoundsAreThreeDigitsUnlessZeroOrLonger) {
  ELM327_Info device = Record();
  SetRange(device, 0, 0x1, 0xF);
  SetRange(device, 3, 0x10, 0xFF);
  SetRange(device, 7, 0x100, 0x1FFFFFFF);
  EXPECT_EQ(OptFunction1::Make_DisableID_Text(device),
            u"\r\n"
            u"メッセージ除外範囲 1： 001 ～ 00F\r\n"
            u"メッセージ除外範囲 4： 010 ～ 0FF\r\n"
            u"メッセージ除外範囲 8： 100 ～ 1FFFFFFF\r\n");
}

}  // namespace
}  // namespace tolvane
