#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "logging/csv_line.h"
#include "tests/helpers/expect_bytes.h"
#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

class CsvLog : public LogTest {};

class CsvLog29 : public LogTest {
 protected:
  CsvLog29() {
    device.t_msgID_type = kMsgIdType29Bit;
    StartRun();
  }
};

TEST_F(CsvLog, FileOf11BitModeByteForByte) {
  db.csv_DataInput(0.0, 0x00F, 0, kBytes);
  db.csv_DataInput(1.5, 0x010, 1, kBytes);
  db.csv_DataInput(99999.999, 0x0FF, 2, kBytes);
  db.csv_DataInput(1234567.25, 0x100, 7, kBytes);
  db.csv_DataInput(12345678.25, 0x7FF, 8, kBytes);
  db.csv_DataInput(1.4e-14, 0, 9, kBytes);
  Flush(1);
  EXPECT_TRUE(
      SameBytes(LogBytes(u"001"), kHead + kColumns11 +
                                      "         0 , 00F , 0\r\n"
                                      "       1.5 , 010 , 1 ,  00\r\n"
                                      " 99999.999 , 0FF , 2 ,  00,1A\r\n"
                                      "1234567.25 , 100 , 7 ,  00,1A,FF,03,44,55,66\r\n"
                                      "12345678.25 , 7FF , 8 ,  00,1A,FF,03,44,55,66,77\r\n"
                                      "   1.4E-14 , 000 , 9 ,  00,1A,FF,03,44,55,66,77\r\n"));
}

TEST_F(CsvLog29, FileOf29BitModeByteForByte) {
  db.csv_DataInput29(0.0, 0x1ABCDEF0, 8, kBytes, 1);
  db.csv_DataInput29(10.0, 0x7FF, 3, kBytes, 0);
  db.csv_DataInput29(20.0, 1, 0, kBytes, 1);
  db.csv_DataInput29(30.0, 2, 0, kBytes, 2);
  Flush(1);
  EXPECT_TRUE(
      SameBytes(LogBytes(u"001"), kHead + kColumns29 +
                                      "         0 , * , 1ABCDEF0 , 8 ,  00,1A,FF,03,44,55,66,77\r\n"
                                      "        10 ,   , 000007FF , 3 ,  00,1A,FF\r\n"
                                      "        20 , * , 00000001 , 0\r\n"
                                      "        30 ,   , 00000002 , 0\r\n"));
}

TEST(CsvIdentifier, LadderOf29BitModeStepsAtEachLimit) {
  struct Row {
    std::int32_t id;
    StringView text;
  };
  const Row rows[] = {
      {0, u"00000000"},         {15, u"0000000F"},
      {16, u"00000010"},        {255, u"000000FF"},
      {256, u"00000100"},       {4095, u"00000FFF"},
      {4096, u"00001000"},      {65535, u"0000FFFF"},
      {65536, u"00010000"},     {1048575, u"000FFFFF"},
      {1048576, u"00100000"},   {16777215, u"00FFFFFF"},
      {16777216, u"01000000"},  {268435454, u"0FFFFFFE"},
      {268435455, u"FFFFFFF"},  // seven digits
      {268435456, u"10000000"}, {536870911, u"1FFFFFFF"},
      {-1, u"0000000FFFFFFFF"}, {std::numeric_limits<std::int32_t>::min(), u"000000080000000"}};
  for (const Row& row : rows) EXPECT_EQ(LogID29Text(row.id).View(), row.text) << row.id;
}

TEST(CsvLine, LongestLineFitsItsRoom) {
  std::array<char, kCsvLine_MAX> line;
  const LogRecord record{-4.94065645841247e-324 * 3, std::numeric_limits<std::int32_t>::max(),
                         kBytes};
  EXPECT_LE(WriteCsvLine(record, CsvMark29(1), LogID29Text<char>(-1), line.data()), 87U);
}

TEST_F(CsvLog, EachByteOfTheDataStandsInItsPlace) {
  for (std::int32_t dlc = -1; dlc <= 8; ++dlc) {
    StartRun();
    db.csv_DataInput(5.0, 0x123, dlc, kBytes);
    Flush(1);
    std::string expected = "         5 , 123 , " + std::to_string(dlc);
    const std::string bytes = " ,  00,1A,FF,03,44,55,66,77";
    if (dlc > 0) expected += bytes.substr(0, 3 + 3 * static_cast<std::size_t>(dlc));
    EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns11 + expected + "\r\n")) << dlc;
    files.Remove(u"C:\\Tolvane\\KL26112009-001.csv");
  }
}

TEST_F(CsvLog, The20001stRecordOfAChannelRollsOver) {
  for (std::int32_t i = 0; i < 20000; ++i) {
    db.csv_DataInput(i, 0x100, 0, kBytes);
    RollOver();
  }
  EXPECT_EQ(db.Excel_DB_ArayyCounter, 20000);
  EXPECT_TRUE(files.Files(u"C:\\Tolvane").empty());
  db.csv_DataInput(20000, 0x100, 0, kBytes);
  RollOver();
  EXPECT_EQ(db.Excel_DB_ArayyCounter, 0);
  EXPECT_EQ(db.Excel_DB_ArayyCh, 2);
  std::string expected = kHead + kColumns11;
  for (std::int32_t i = 0; i <= 20000; ++i) {
    const std::string time = std::to_string(i);
    expected += std::string(10 - time.size(), ' ') + time + " , 100 , 0\r\n";
  }
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), expected));
}

TEST_F(CsvLog, AChannelIsAsLongAsTheLogSays) {
  db.Excel_DB_ArayyCounter_MAX = 2;
  for (std::int32_t i = 0; i < 7; ++i) {
    EXPECT_EQ(db.Excel_DB_ArayyCh, i / 3 % 2 + 1) << i;
    db.csv_DataInput(i, 0x100, 0, kBytes);
    RollOver();
  }
  EXPECT_EQ(db.Excel_DB_ArayyCounter, 1);
  for (const StringView number : {u"001", u"002"}) {
    const std::string bytes = LogBytes(number);
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 8 + 3);
  }
  EXPECT_EQ(LogBytes(u"003"), "");
}

TEST_F(CsvLog, RecordsGoOnInTheOtherChannelAndComeBackToTheFirst) {
  for (std::int32_t i = 0; i < 3 * 20001; ++i) {
    db.csv_DataInput(i, 0x100, 0, kBytes);
    RollOver();
  }
  Flush(db.Excel_DB_ArayyCh);
  EXPECT_EQ(db.Excel_DB_ArayyCh, 2);
  for (const auto& [number, first] :
       {std::pair(u"001", "         0 ,"), {u"002", "     20001 ,"}, {u"003", "     40002 ,"}}) {
    const std::string bytes = LogBytes(number);
    EXPECT_EQ(bytes.substr(kHead.size() + kColumns11.size(), 12), first);
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 8 + 20001);
  }
  EXPECT_TRUE(SameBytes(LogBytes(u"004"), kHead + kColumns11)) << "the final file may be empty";
}

TEST_F(CsvLog29, ZerosOfChannelTwoLandInChannelOne) {
  db.csv_DataInput29(0.0, 0x1FFFFFFF, 0, kBytes, 1);
  RollOverNow();
  db.csv_DataInput29(1.0, 1, 1, kBytes, 1);
  db.csv_DataInput29(2.0, 0x100, 0, kBytes, 0);
  RollOverNow();
  db.csv_DataInput29(3.0, 0x10, 0, kBytes, 1);
  Flush(1);
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), kHead + kColumns29 +
                                              "         1 , * , 1 , 1 ,  00\r\n"
                                              "         2 ,   , 100 , 0\r\n"));
  EXPECT_TRUE(SameBytes(LogBytes(u"003"), kHead + kColumns29 +
                                              "000000000000"
                                              "         3 , * , 00000010 , 0\r\n"));
}

TEST_F(CsvLog29, IdentifierZeroKeepsOneDigitInChannelTwo) {
  db.Excel_DB_ArayyCh = 2;
  db.csv_DataInput29(1.0, 0, 0, kBytes, 1);
  Flush(2);
  Flush(1);
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns29 + "         1 , * , 0 , 0\r\n"));
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), kHead + kColumns29 + "0000000"));
}

TEST_F(CsvLog, WhatCodePage932CannotHoldBecomesQuestionMarks) {
  device.t_LogComment = u"\u00A5\u20AC\U0001F600表";
  StartRun();
  Flush(1);
  EXPECT_NE(LogBytes(u"001").find("\r\n\r\n???\x95\x5c\r\n\r\n"), std::string::npos);
}

TEST_F(CsvLog, AnExclusionInForceLeavesNoTrace) {
  device.t_Save_ID_DisableMode = 1;
  device.t_DisableID_ON(0, 1);
  device.t_DisableID_End(0, 0x7FF);
  StartRun();
  Flush(1);
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns11));
}

TEST_F(CsvLog, OnlyTheSettingOf29BitModeGivesItsColumnLine) {
  device.t_msgID_type = 1;
  StartRun();
  Flush(1);
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns11));
}

TEST_F(CsvLog, InitializingOneChannelKeepsTheOtherAndTheHeaders) {
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  db.Excel_DB_ArayyCh = 2;
  db.csv_DataInput(2.0, 0x200, 0, kBytes);
  device.t_LogComment = u"later";
  db.csv_DB_Initialize(1, device);
  db.csv_DB_Initialize(3, device);
  db.csv_DB_Initialize(-1, device);
  Flush(1);
  Flush(2);
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns11));
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), kHead + kColumns11 + "         2 , 200 , 0\r\n"));
}

TEST_F(CsvLog, ARunBeginsWithClearedTextsAndCounters) {
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  db.Excel_DB_ArayyCh = 2;
  db.csv_DataInput(2.0, 0x200, 0, kBytes);
  StartRun();
  EXPECT_EQ(db.Excel_DB_ArayyCounter, 0);
  EXPECT_EQ(db.Excel_DB_ArayyCounter_MAX, 20000);
  EXPECT_EQ(db.Excel_DB_ArayyCh, 1);
  Flush(1);
  Flush(2);
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns11));
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), kHead + kColumns11));
}

TEST_F(CsvLog, ClearingKeepsTheAdapterTextOnly) {
  db.StartTime = 3.0;
  db.Param_ALL_Clear();
  EXPECT_EQ(db.StartTime, 0.0);
  EXPECT_EQ(db.str_bitrate, u"");
  EXPECT_EQ(db.hardware_information, u"CANUSB ABCD 、V1.0");
}

TEST_F(CsvLog, AnotherChannelNumberWritesTheHeadersAndClearsNothing) {
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  for (const std::int32_t Output_ch : {0, 3, -1}) Flush(Output_ch);
  Flush(1);
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns11));
  EXPECT_TRUE(SameBytes(LogBytes(u"003"), kHead + kColumns11));
  EXPECT_TRUE(SameBytes(LogBytes(u"004"), kHead + kColumns11 + "         1 , 100 , 0\r\n"));
}

TEST_F(CsvLog, AFlushAtMidnightHasTheDateWithoutATime) {
  wall_clock.Set({2026, 11, 21, 6, 0, 0, 0});
  Flush(1);
  const std::string bytes = files.Bytes(u"C:\\Tolvane\\KL26112100-001.csv").value_or("");
  EXPECT_NE(bytes.find("\r\n2026/11/21,,,bit rate"), std::string::npos);
}

TEST_F(CsvLog, AFlushWritesFourLargePieces) {
  for (std::int32_t i = 0; i < 20001; ++i) db.csv_DataInput(i, 0x100, 8, kBytes);
  Flush(1);
  EXPECT_EQ(files.TextWrites(), 4);
}

}  // namespace
}  // namespace tolvane
