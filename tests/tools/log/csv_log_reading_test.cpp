#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/log/written_log.h"
#include "tools/log/reading/csv_log.h"

namespace tolvane::logtool {
namespace {

class CsvLogReading : public WrittenLog {
 protected:
  struct Read {
    bool is_log = false;
    LogHead head;
    std::vector<LogFrame> frames;
    std::vector<std::uint64_t> fault_lines;
    CsvLog::Mended mended;
  };

  static Read ReadAll(const std::string& text, bool fails = false) {
    TextSource bytes(text, 1'000'000, fails);
    CsvLog log(bytes);
    Read read;
    read.is_log = log.ReadHead();
    read.head = log.Head();
    while (read.is_log) {
      LogFrame frame;
      const CsvLog::Outcome outcome = log.Next(frame);
      if (outcome == CsvLog::Outcome::kFrame) read.frames.push_back(frame);
      if (outcome == CsvLog::Outcome::kFault) read.fault_lines.push_back(log.Line());
      if (outcome == CsvLog::Outcome::kEnd || log.IsBroken()) break;
    }
    read.mended = log.WhatWasMended();
    return read;
  }
};

TEST_F(CsvLogReading, TheHeadIsTakenApart) {
  Flush(1);
  const Read read = ReadAll(LogBytes(u"001"));
  ASSERT_TRUE(read.is_log);
  EXPECT_EQ(read.head.program, "Tolvane Ver1.23");
  EXPECT_EQ(read.head.written, "2026/11/20 9:05:07");
  EXPECT_EQ(read.head.bit_rate, "500k bps");
  EXPECT_EQ(read.head.adapter, "CANUSB ABCD \x81\x41V1.0");
  EXPECT_EQ(read.head.comment, "\x82\x62\x82\x60\x82\x6d\x8e\xf3\x90\x4d\x83\x8d\x83\x4f");
  EXPECT_FALSE(read.head.with_mark);
  EXPECT_TRUE(read.frames.empty());
}

TEST_F(CsvLogReading, ACommentOfSeveralLinesKeepsTheRecordsWhereTheyAre) {
  device.t_LogComment = u"one\r\n\r\ntwo";
  StartRun();
  db.csv_DataInput(1.0, 0x123, 0, kBytes);
  Flush(1);
  const Read read = ReadAll(LogBytes(u"001"));
  EXPECT_EQ(read.head.comment, "one  two");
  ASSERT_EQ(read.frames.size(), 1U);
  EXPECT_TRUE(read.fault_lines.empty());
}

TEST_F(CsvLogReading, AHeadInACodePageWithoutJapaneseIsKnown) {
  db.csv_DataInput(1.0, 0x123, 0, kBytes);
  Flush(1);
  std::string bytes = LogBytes(u"001");
  for (char& byte : bytes) {
    if (static_cast<unsigned char>(byte) >= 0x80) byte = '?';
  }
  const Read read = ReadAll(bytes);
  EXPECT_EQ(read.head.bit_rate, "500k bps");
  EXPECT_EQ(read.frames.size(), 1U);
}

TEST_F(CsvLogReading, WhatIsNoLogIsRefused) {
  Flush(1);
  const std::string head = LogBytes(u"001");
  for (const std::string& text :
       {std::string(), std::string("(1.0) can0 123#00\n"), head.substr(0, head.size() - 4),
        std::string(LineSource::kLine_MAX + 1, 'x'), std::string(1000, '\n') + head}) {
    EXPECT_FALSE(ReadAll(text).is_log) << text.substr(0, 40);
  }
}

TEST_F(CsvLogReading, AFileThatCannotBeReadAtAllIsToldAsThat) {
  TextSource bytes("", 1'000'000, true);
  CsvLog log(bytes);
  EXPECT_FALSE(log.ReadHead());
  EXPECT_EQ(log.Line(), 0U);
  EXPECT_EQ(log.Fault(), "the file cannot be read");
}

TEST_F(CsvLogReading, EveryRecordOfTheWriterComesBack) {
  for (std::int32_t i = 0; i < 20001; ++i) db.csv_DataInput(i * 0.25, i % 0x800, i % 9, kBytes);
  Flush(1);
  const Read read = ReadAll(LogBytes(u"001"));
  ASSERT_EQ(read.frames.size(), 20001U);
  EXPECT_TRUE(read.fault_lines.empty());
  for (std::size_t i = 0; i < read.frames.size(); ++i) {
    ASSERT_EQ(read.frames[i].time, static_cast<double>(i) * 0.25);
    ASSERT_EQ(read.frames[i].id, i % 0x800);
    ASSERT_EQ(read.frames[i].bytes, i % 9);
  }
}

TEST_F(CsvLogReading, ZerosOfChannelTwoAreMendedAndCounted) {
  Begin29BitRun();
  db.csv_DataInput29(0.0, 0x1FFFFFFF, 0, kBytes, 1);
  RollOverNow();
  db.csv_DataInput29(1.0, 1, 1, kBytes, 1);
  db.csv_DataInput29(2.0, 0x100, 0, kBytes, 0);
  db.csv_DataInput29(2.5, 0xFFFFFFF, 0, kBytes, 1);
  RollOverNow();
  db.csv_DataInput29(3.0, 0x10, 0, kBytes, 1);
  Flush(1);
  const Read second = ReadAll(LogBytes(u"002"));
  ASSERT_EQ(second.frames.size(), 3U);
  EXPECT_EQ(second.frames[0].id, 1U);
  EXPECT_TRUE(second.frames[0].extended);
  EXPECT_FALSE(second.frames[1].extended);
  EXPECT_EQ(second.mended.bare_ids, 2U) << "FFFFFFF never has a zero";
  const Read third = ReadAll(LogBytes(u"003"));
  ASSERT_EQ(third.frames.size(), 1U);
  EXPECT_EQ(third.frames[0].time, 3.0);
  EXPECT_EQ(third.mended.stray_blocks, 1U);
  EXPECT_EQ(third.mended.strays, 12U);
  EXPECT_EQ(third.mended.bare_ids, 0U);
}

TEST_F(CsvLogReading, ALastFileOfZerosAloneHasNoRecord) {
  Begin29BitRun();
  RollOverNow();
  db.csv_DataInput29(1.0, 1, 0, kBytes, 1);
  RollOverNow();
  Flush(1);
  const Read read = ReadAll(LogBytes(u"003"));
  EXPECT_TRUE(read.frames.empty());
  EXPECT_TRUE(read.fault_lines.empty());
  EXPECT_EQ(read.mended.strays, 7U);
}

TEST_F(CsvLogReading, ABadLineIsToldByItsNumberAndTheNextIsRead) {
  db.csv_DataInput(1.0, 0x123, 0, kBytes);
  Flush(1);
  const Read read = ReadAll(LogBytes(u"001") + "rubbish\r\n\r\n         2 , 123 , 0\r\n         3");
  EXPECT_EQ(read.frames.size(), 2U);
  EXPECT_EQ(read.fault_lines, (std::vector<std::uint64_t>{10, 13}));
}

TEST_F(CsvLogReading, AFileThatCannotBeReadOnIsBroken) {
  db.csv_DataInput(1.0, 0x123, 0, kBytes);
  Flush(1);
  const Read read = ReadAll(LogBytes(u"001"), true);
  EXPECT_EQ(read.frames.size(), 1U);
  EXPECT_EQ(read.fault_lines, std::vector<std::uint64_t>{10});
}

}  // namespace
}  // namespace tolvane::logtool
