#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

#include "tests/counting/allocations.h"
#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

class CsvAllocation : public LogTest {};

TEST_F(CsvAllocation, AChannelOfLinesAllocatesItsBlockOnceAndNothingPerFrame) {
  const auto fill = [&](std::int32_t can_ID) {
    for (std::int32_t i = 0; i <= Excel_OutputDB::kRow_MAX; ++i) {
      db.csv_DataInput29(i * 0.125, can_ID, 8, kBytes, 1);
    }
  };
  const std::int64_t before = counting::Allocations();
  fill(0x1ABCDEF0);
  EXPECT_LE(counting::Allocations() - before, 1);
  db.csv_DB_Initialize(1, device);
  const std::int64_t again = counting::Allocations();
  fill(0x1ABCDEF0);
  EXPECT_EQ(counting::Allocations() - again, 0);
}

TEST_F(CsvAllocation, MemoryTakenAheadHoldsTheLongestLinesOfBothChannels) {
  constexpr double kLongestTime = -1.23456789012345e-100;
  db.csv_TakeMemory();
  db.csv_DB_Initialize(0, device);
  const std::int64_t before = counting::Allocations();
  for (const std::int32_t channel : {1, 2}) {
    db.Excel_DB_ArayyCh = channel;
    for (std::int32_t i = 0; i <= Excel_OutputDB::kRow_MAX; ++i) {
      db.csv_DataInput29(kLongestTime, -1, std::numeric_limits<std::int32_t>::max(), kBytes, 1);
    }
  }
  EXPECT_EQ(counting::Allocations() - before, 0);
}

TEST_F(CsvAllocation, MemoryTakenAheadHasBeenTouched) {
  db.csv_TakeMemory();
  EXPECT_EQ(counting::UntouchedOfLastLarge(), 0U);
}

TEST_F(CsvAllocation, TakingMemoryThatIsThereLeavesTheLinesInIt) {
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  db.csv_TakeMemory();
  Flush(1);
  EXPECT_TRUE(LogBytes(u"001").ends_with("         1 , 100 , 0\r\n"));
}

/// A machine without memory for the pieces of a channel, or for its builder.
class CsvWithoutMemory : public CsvAllocation {
 protected:
  ~CsvWithoutMemory() override { counting::RefuseAbove(kAnything); }

  static constexpr std::size_t kAnything = std::numeric_limits<std::size_t>::max();

  /// Fills channel 1 again and again with lines of 49 characters whose times count the records, and
  /// tries to flush it, without success, when it is full. Channel 2 rolls over empty.
  void FillAndFail(std::int32_t channels) {
    files.Protect(u"C:\\Tolvane", true);
    for (std::int32_t i = 0; i < channels * (Excel_OutputDB::kRow_MAX + 1); ++i) {
      db.csv_DataInput(records_++, 0x100, 8, kBytes);
      RollOver();
      if (db.Excel_DB_ArayyCh == 2) RollOverNow();
    }
    files.Protect(u"C:\\Tolvane", false);
  }
  /// Lines of a log from the first record on.
  std::size_t LinesInOrder(StringView number) {
    std::istringstream log(LogBytes(number));
    std::string line;
    for (int header = 0; header < 8; ++header) std::getline(log, line);
    std::size_t lines = 0;
    while (std::getline(log, line) && line.size() == 48 && std::stoul(line) == lines) ++lines;
    return log.eof() ? lines : 0;
  }

  std::int32_t records_ = 0;
};

constexpr std::size_t kChannel = Excel_OutputDB::kRow_MAX + 1;
constexpr std::size_t kLessThanAChannel = 900'000;  // bytes

TEST_F(CsvWithoutMemory, LinesBeyondABlockComeInTheirOrder) {
  db.Excel_DB_ArayyCounter_MAX = std::numeric_limits<std::int32_t>::max();
  FillAndFail(3);
  Flush(1);
  EXPECT_EQ(LinesInOrder(u"001"), 3 * kChannel);
}

TEST_F(CsvWithoutMemory, WhatCannotBeTakenAheadIsTakenByTheFirstLine) {
  counting::RefuseAbove(kLessThanAChannel);
  db.csv_TakeMemory();
  counting::RefuseAbove(kAnything);
  FillAndFail(1);
  Flush(1);
  EXPECT_EQ(LinesInOrder(u"001"), kChannel);
}

TEST_F(CsvWithoutMemory, TextThatCannotBeSetAsideStaysInItsBuilder) {
  FillAndFail(1);
  counting::RefuseAbove(kLessThanAChannel);
  FillAndFail(1);
  counting::RefuseAbove(kAnything);
  Flush(1);
  EXPECT_EQ(LinesInOrder(u"001"), 2 * kChannel);
}

TEST_F(CsvWithoutMemory, ABuilderThatCannotGrowLosesTheLinesBehindAndNothingElse) {
  FillAndFail(1);
  counting::RefuseAbove(kLessThanAChannel);
  FillAndFail(3);
  counting::RefuseAbove(kAnything);
  Flush(1);
  const std::size_t lines = LinesInOrder(u"001");
  EXPECT_GT(lines, 2 * kChannel) << "a block holds more than a channel of such lines";
  EXPECT_LT(lines, 3 * kChannel);
  records_ = 0;
  FillAndFail(1);
  Flush(1);
  EXPECT_EQ(LinesInOrder(u"002"), kChannel) << "with memory all is as before";
}

}  // namespace
}  // namespace tolvane
