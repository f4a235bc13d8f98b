#include <gtest/gtest.h>

#include <string>

#include "tests/tools/log/memory_files.h"
#include "tools/log/convert/block_writer.h"
#include "tools/log/convert/formats.h"
#include "tools/log/convert/moment.h"

namespace tolvane::logtool {
namespace {

// 20 November 2026, 9:05:07.250, on a clock nine hours ahead of UTC.
constexpr TimeAnchor kAnchor{.unix_ms = 1'795'133'107'250, .calendar_ms = 1'795'165'507'250};

LogFrame Frame(double time, std::uint32_t id, bool extended, std::int32_t length) {
  return {.time = time,
          .id = id,
          .extended = extended,
          .bytes = static_cast<std::uint8_t>(std::clamp(length, 0, 8)),
          .length = length,
          .data = {0x00, 0x1A, 0xFF, 0x03, 0x44, 0x55, 0x66, 0x77}};
}

template <typename Format>
std::string Line(Format format, const LogFrame& frame) {
  char line[BlockWriter::kLine_MAX];
  return {line, format.Line(frame, line)};
}

TEST(CandumpFormat, IsByteForByteThatOfCandump) {
  const CandumpFormat format(kAnchor);
  EXPECT_EQ(format.Head(), "");
  EXPECT_EQ(Line(format, Frame(0.0, 0x1A, false, 8)),
            "(1795133107.250000) can0 01A#001AFF0344556677\n");
  EXPECT_EQ(Line(format, Frame(1000.0625, 0x1A, true, 1)),
            "(1795133108.250063) can0 0000001A#00\n");
  EXPECT_EQ(Line(format, Frame(0.25, 0x1FFFFFFF, true, 0)), "(1795133107.250250) can0 1FFFFFFF#\n");
  EXPECT_EQ(Line(format, Frame(0.0, 0x7FF, false, 15)),
            "(1795133107.250000) can0 7FF#001AFF0344556677\n");
  EXPECT_EQ(Line(CandumpFormat({}), Frame(1500.5, 0x7FF, false, 0)), "(1.500500) can0 7FF#\n");
  EXPECT_EQ(Line(CandumpFormat({}), Frame(-3.0, 0x7FF, false, 0)), "(0.000000) can0 7FF#\n");
}

TEST(AscFormat, IsByteForByteThatOfLog2asc) {
  const AscFormat format(kAnchor);
  EXPECT_EQ(format.Head(),
            "date Fri Nov 20 09:05:07.250 am 2026\n"
            "base hex  timestamps absolute\n"
            "no internal events logged\n");
  EXPECT_EQ(Line(format, Frame(0.0, 0x1A, false, 8)),
            "   0.000000 1  1A              Rx   d 8 00 1A FF 03 44 55 66 77\n");
  EXPECT_EQ(Line(format, Frame(12'345'678.0625, 0x1FFFFFFF, true, 1)),
            "12345.678063 1  1FFFFFFFx       Rx   d 1 00\n");
  EXPECT_EQ(Line(format, Frame(1.0, 0, true, 0)), "   0.001000 1  0x              Rx   d 0\n");
}

TEST(AscFormat, TheDateIsEnglishWithTwelveHours) {
  const auto date = [](std::int32_t month, std::int32_t hour) {
    const std::int64_t ms = CalendarMs({2026, month, 3, 0, hour, 4, 5});
    return AscFormat(TimeAnchor{.unix_ms = 0, .calendar_ms = ms + 7}).Head().substr(0, 36);
  };
  EXPECT_EQ(date(1, 0), "date Sat Jan 03 12:04:05.007 am 2026");
  EXPECT_EQ(date(6, 12), "date Wed Jun 03 12:04:05.007 pm 2026");
  EXPECT_EQ(date(12, 23), "date Thu Dec 03 11:04:05.007 pm 2026");
}

TEST(CsvFormat, HasTheSameColumnsInEachLine) {
  CsvFormat format(kAnchor);
  EXPECT_EQ(format.Head(), "date_time,ms,id,extended,length,d1,d2,d3,d4,d5,d6,d7,d8\n");
  EXPECT_EQ(Line(format, Frame(0.0, 0x1A, false, 8)),
            "2026-11-20 09:05:07.250000,0,0x01A,0,8,00,1A,FF,03,44,55,66,77\n");
  EXPECT_EQ(Line(format, Frame(749.9996, 0x1E5, true, 2)),
            "2026-11-20 09:05:08.000000,749.9996,0x000001E5,1,2,00,1A,,,,,,\n");
  EXPECT_EQ(Line(format, Frame(749.9, 0x1E5, true, 0)),
            "2026-11-20 09:05:07.999900,749.9,0x000001E5,1,0,,,,,,,,\n");
  EXPECT_EQ(Line(format, Frame(1.0, 0x1A, false, 15)),
            "2026-11-20 09:05:07.251000,1,0x01A,0,15,00,1A,FF,03,44,55,66,77\n");
  EXPECT_EQ(Line(CsvFormat({}), Frame(1.5, 0x1A, false, 0)), ",1.5,0x01A,0,0,,,,,,,,\n");
}

TEST(Formats, TheLongestLineFitsItsRoom) {
  const LogFrame frame = Frame(-4.94065645841247e-300, 0x1FFFFFFF, true, 0x7FFFFFFF);
  const TimeAnchor last{.unix_ms = 284'000'000'000'000, .calendar_ms = 284'000'000'000'000};
  EXPECT_LT(Line(CandumpFormat(last), frame).size(), BlockWriter::kLine_MAX / 2);
  EXPECT_LT(Line(AscFormat(last), frame).size(), BlockWriter::kLine_MAX / 2);
  EXPECT_LT(Line(CsvFormat(last), frame).size(), BlockWriter::kLine_MAX / 2);
}

TEST(Moment, IsReadAsTheHeadHasIt) {
  const auto text = [](const char* written) {
    const auto time = MomentOf(written);
    if (!time) return std::string("none");
    std::string parts;
    for (const auto part :
         {time->year, time->month, time->day, time->hour, time->minute, time->second}) {
      parts += std::to_string(part) + " ";
    }
    return parts;
  };
  EXPECT_EQ(text("2026/11/20 9:05:07"), "2026 11 20 9 5 7 ");
  EXPECT_EQ(text("2026-01-02 23:59:59"), "2026 1 2 23 59 59 ");
  EXPECT_EQ(text("2028/02/29"), "2028 2 29 0 0 0 ");
  EXPECT_EQ(text("2026/11/21"), "2026 11 21 0 0 0 ") << "midnight has no time";
  for (const char* const other :
       {"", "11/20/2026 9:05:07 AM", "20.11.2026 09:05:07", "2026/13/20 9:05:07",
        "2026/11/32 9:05:07", "2026/02/31 9:05:07", "2100/02/29", "2026/11/20 24:05:07",
        "2026/11/20 9:60:07", "2026/11/20 9:05", "2026/11/20 9:05:07 PM", "2026",
        "1960/11/20 9:05:07"}) {
    EXPECT_EQ(text(other), "none") << other;
  }
}

TEST(Moment, TheCalendarGoesBothWays) {
  EXPECT_EQ(CalendarMs({1970, 1, 1, 4, 0, 0, 0}), 0);
  EXPECT_EQ(CalendarMs({2026, 11, 20, 5, 9, 5, 7}), 1'795'165'507'000);
  for (std::int64_t ms = 0; ms < 300'000'000'000'000; ms += 9'999'999'937) {
    EXPECT_EQ(CalendarMs(CalendarTime(ms)), ms / 1000 * 1000);
  }
  EXPECT_EQ(CalendarTime(1'795'165'507'000).weekday, 5);
}

TEST(BlockWriter, WritesAllItsLinesAndTellsAFailure) {
  std::string text;
  std::string expected;
  TextSink sink(text);
  BlockWriter writer(sink);
  for (int i = 0; i < 20'000; ++i) {
    const std::string line =
        std::to_string(i) + std::string(static_cast<std::size_t>(i % 97), 'x') + "\n";
    expected += line;
    writer.Take(std::copy(line.begin(), line.end(), writer.Line()));
  }
  EXPECT_TRUE(writer.Conclude());
  EXPECT_EQ(text, expected);
  sink.fails = true;
  *writer.Line() = 'x';
  writer.Take(writer.Line() + 1);
  EXPECT_FALSE(writer.Conclude());
}

}  // namespace
}  // namespace tolvane::logtool
