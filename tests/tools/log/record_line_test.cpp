#include "tools/log/reading/record_line.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <string>

#include "logging/csv_line.h"
#include "logging/log_record.h"

namespace tolvane::logtool {
namespace {

constexpr std::array<std::uint8_t, 8> kData = {0x00, 0x1A, 0xFF, 0x03, 0x44, 0x55, 0x66, 0x77};

std::string Written(double time, std::uint32_t id, std::int32_t length, std::string_view mark,
                    bool has_zeros) {
  const auto number = static_cast<std::int32_t>(id);
  std::array<char, kCsvLine_MAX> line;
  const ShortBytes text = mark.empty() ? HexID11Text<char>(number)
                          : has_zeros  ? LogID29Text<char>(number)
                                       : HexText<char>(number);
  const std::size_t written = WriteCsvLine({time, length, kData}, mark, text, line.data());
  return {line.data(), line.data() + written - 2};  // a line is read without its end
}

struct Read {
  LineFault fault;
  LogFrame frame{};
  LineTraits traits;
};

Read ReadLine(const std::string& line, bool with_mark) {
  Read read{};
  read.fault = ReadRecordLine(line, with_mark, read.frame, read.traits);
  return read;
}

void ExpectReadBack(double time, std::uint32_t id, bool extended, std::int32_t length,
                    const std::string& line, bool with_mark) {
  const Read read = ReadLine(line, with_mark);
  ASSERT_EQ(read.fault, LineFault::kNone) << line;
  EXPECT_EQ(read.frame.time, time) << line;
  EXPECT_EQ(read.frame.id, id) << line;
  EXPECT_EQ(read.frame.extended, extended) << line;
  EXPECT_EQ(read.frame.length, length) << line;
  ASSERT_EQ(read.frame.bytes, std::clamp(length, 0, 8)) << line;
  for (std::size_t i = 0; i < read.frame.bytes; ++i) EXPECT_EQ(read.frame.data[i], kData[i]);
  EXPECT_EQ(read.traits.strays, 0U) << line;
}

TEST(RecordLine, OfEachLengthIsReadBack) {
  for (std::int32_t length = -1; length <= 16; ++length) {
    ExpectReadBack(5.0, 0x123, false, length, Written(5.0, 0x123, length, {}, true), false);
    ExpectReadBack(5.0, 0x123, true, length, Written(5.0, 0x123, length, kCsvMarkExtended, true),
                   true);
  }
}

TEST(RecordLine, OfEachTimeIsReadBackToItsLastDigit) {
  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> share(0.0, 1.0);
  for (int i = 0; i < 20000; ++i) {
    const double magnitude = std::pow(10.0, share(random) * 16.0 - 4.0);
    // What has 15 digits is the same number behind the way through the text.
    const ShortText text = DecimalText(share(random) * std::min(magnitude, kTime_MAX));
    const double time = std::stod(std::string(text.View().begin(), text.View().end()));
    for (const double signed_time : {time, -time}) {
      ExpectReadBack(signed_time, 0x7FF, false, 0, Written(signed_time, 0x7FF, 0, {}, true), false);
    }
  }
}

TEST(RecordLine, OfEachIdentifierIsReadBackWithAndWithoutItsZeros) {
  for (std::uint32_t bit = 0; bit < 29; ++bit) {
    for (const std::uint32_t id : {1U << bit, (1U << bit) - 1, (2U << bit) - 1}) {
      for (const bool has_zeros : {true, false}) {
        const std::string line = Written(1.5, id, 8, kCsvMarkExtended, has_zeros);
        ExpectReadBack(1.5, id, true, 8, line, true);
        const bool is_bare = !has_zeros && LogID29Text(static_cast<std::int32_t>(id)).Length() >
                                               HexText(static_cast<std::int32_t>(id)).Length();
        EXPECT_EQ(ReadLine(line, true).traits.has_bare_id, is_bare) << line;
      }
    }
  }
}

TEST(RecordLine, ZerosOfOtherIdentifiersStandAheadOfTheTime) {
  struct Row {
    const char* line;
    std::size_t strays;
    double time;
  };
  const Row rows[] = {{"000000000000         3 , * , 00000010 , 0", 12, 3.0},
                      {"0001234567.25 , * , 00000010 , 0", 3, 1234567.25},
                      {"0.12345678901 , * , 00000010 , 0", 0, 0.12345678901},
                      {"000.12345678901 , * , 00000010 , 0", 2, 0.12345678901},
                      {"00-1234567.25 , * , 00000010 , 0", 2, -1234567.25}};
  for (const Row& row : rows) {
    const Read read = ReadLine(row.line, true);
    EXPECT_EQ(read.fault, LineFault::kNone) << row.line;
    EXPECT_EQ(read.traits.strays, row.strays) << row.line;
    EXPECT_EQ(read.frame.time, row.time) << row.line;
  }
  EXPECT_EQ(ReadLine("00         3 , 010 , 0", false).fault, LineFault::kTime)
      << "a log of 11-bit mode has none";
}

TEST(RecordLine, ThatIsDamagedIsRefusedWithItsReason) {
  struct Row {
    const char* line;
    LineFault fault;
  };
  const Row rows[] = {
      {"x", LineFault::kTime},
      {"         ", LineFault::kTime},
      {"         , 123 , 0", LineFault::kTime},
      {"         5", LineFault::kTime},
      {"         5,123,0", LineFault::kTime},
      {"         . , 123 , 0", LineFault::kTime},
      {"         5E , 123 , 0", LineFault::kTime},
      {"     1E999 , 123 , 0", LineFault::kTime},
      {"      1E14 , 123 , 0", LineFault::kNoSuchTime},
      {"         5 ,  , 0", LineFault::kIdentifier},
      {"         5 , 12G , 0", LineFault::kIdentifier},
      {"         5 , 123456789 , 0", LineFault::kIdentifier},
      {"         5 , 123", LineFault::kIdentifier},
      {"         5 , 800 , 0", LineFault::kNoSuchIdentifier},
      {"         5 , 123 , ", LineFault::kLength},
      {"         5 , 123 , x", LineFault::kLength},
      {"         5 , 123 , 99999999999", LineFault::kLength},
      {"         5 , 123 , 1x", LineFault::kLength},
      {"         5 , 123 , 0 ,  00", LineFault::kBytes},
      {"         5 , 123 , 1", LineFault::kBytes},
      {"         5 , 123 , 1 , 00", LineFault::kLength},
      {"         5 , 123 , 1 ,  0", LineFault::kBytes},
      {"         5 , 123 , 1 ,  0G", LineFault::kBytes},
      {"         5 , 123 , 1 ,  00,01", LineFault::kBytes},
      {"         5 , 123 , 2 ,  00", LineFault::kBytes},
      {"         5 , 123 , 2 ,  00;01", LineFault::kBytes},
      {"         5 , 123 , 8 ,  00,01,02,03,04,05,06,07 ", LineFault::kBytes},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ReadLine(row.line, false).fault, row.fault) << row.line;
    EXPECT_FALSE(FaultText(row.fault).empty());
  }
}

TEST(RecordLine, Of29BitModeNeedsItsMark) {
  EXPECT_EQ(ReadLine("         5 , 00000123 , 0", true).fault, LineFault::kMark);
  EXPECT_EQ(ReadLine("         5 , + , 00000123 , 0", true).fault, LineFault::kMark);
  EXPECT_EQ(ReadLine("         5 , * , 00000123 , 0", false).fault, LineFault::kIdentifier);
  EXPECT_EQ(ReadLine("         5 ,   , 00000800 , 0", true).fault, LineFault::kNoSuchIdentifier);
  EXPECT_EQ(ReadLine("         5 , * , 0000000FFFFFFFF , 0", true).fault,
            LineFault::kNoSuchIdentifier);
  EXPECT_EQ(ReadLine("         5 , * , 20000000 , 0", true).fault, LineFault::kNoSuchIdentifier);
}

}  // namespace
}  // namespace tolvane::logtool
