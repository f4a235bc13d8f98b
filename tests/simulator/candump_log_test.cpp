#include "simulator/candump_log.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

#include "tests/simulator/frames.h"

namespace tolvane::simulator {
namespace {

using Data = std::array<std::uint8_t, 8>;

struct GoodLine {
  const char* label;
  const char* line;
  BusFrame frame;
};

class CandumpGoodLine : public testing::TestWithParam<GoodLine> {};

TEST_P(CandumpGoodLine, IsRead) {
  BusFrame frame{.time_us = 99, .id = 99, .dlc = 9, .data = {9, 9}};
  ASSERT_TRUE(ParseCandumpLine(GetParam().line, frame));
  EXPECT_EQ(frame.time_us, GetParam().frame.time_us);
  EXPECT_EQ(frame.id, GetParam().frame.id);
  EXPECT_EQ(frame.extended, GetParam().frame.extended);
  EXPECT_EQ(frame.kind, GetParam().frame.kind);
  EXPECT_EQ(frame.dlc, GetParam().frame.dlc);
  EXPECT_EQ(frame.data, GetParam().frame.data);
}

INSTANTIATE_TEST_SUITE_P(
    , CandumpGoodLine,
    testing::Values(
        GoodLine{"Standard",
                 "(166.064000) can0 21A#FE3612FE690507AD",
                 {166'064'000, 0x21A, false, FrameKind::kData, 8,
                  Data{0xFE, 0x36, 0x12, 0xFE, 0x69, 0x05, 0x07, 0xAD}}},
        GoodLine{"Extended",
                 "(1502984866.421964) slcan0 09F112CC#FF72",
                 {1'502'984'866'421'964, 0x09F112CC, true, FrameKind::kData, 2, Data{0xFF, 0x72}}},
        GoodLine{"ExtendedWithSmallNumber",
                 "(1.0) can0 00000123#01",
                 {1'000'000, 0x123, true, FrameKind::kData, 1, Data{1}}},
        GoodLine{"NoData", "(0.000001) can0 000#", {1, 0, false, FrameKind::kData, 0, Data{}}},
        GoodLine{"SmallLetters",
                 "(0.5) can0 7ff#ab",
                 {500'000, 0x7FF, false, FrameKind::kData, 1, Data{0xAB}}},
        GoodLine{
            "Remote", "(2.0) can0 123#R", {2'000'000, 0x123, false, FrameKind::kRemote, 0, Data{}}},
        GoodLine{"RemoteWithLength",
                 "(2.0) can0 1FFFFFFF#R8",
                 {2'000'000, 0x1FFFFFFF, true, FrameKind::kRemote, 8, Data{}}},
        GoodLine{"ErrorFrame",
                 "(2.0) can0 20000004#0001000000000000",
                 {2'000'000, 4, false, FrameKind::kError, 8, Data{0, 1}}},
        GoodLine{"Received",
                 "(2.0) can0 123#01 R",
                 {2'000'000, 0x123, false, FrameKind::kData, 1, Data{1}}},
        GoodLine{"Transmitted",
                 "(2.0) can0 123#01 T",
                 {2'000'000, 0x123, false, FrameKind::kTransmitted, 1, Data{1}}},
        GoodLine{"LengthCodeAboveEight",
                 "(2.0) can0 123#0102030405060708_F",
                 {2'000'000, 0x123, false, FrameKind::kData, 15, Data{1, 2, 3, 4, 5, 6, 7, 8}}},
        GoodLine{"ManyBlanks",
                 "  (2.0)\t can0   123#01  ",
                 {2'000'000, 0x123, false, FrameKind::kData, 1, Data{1}}},
        GoodLine{
            "WholeSeconds", "(7) can0 123#", {7'000'000, 0x123, false, FrameKind::kData, 0, {}}},
        GoodLine{"BelowTheMicrosecond",
                 "(0.0000019) can0 123#",
                 {1, 0x123, false, FrameKind::kData, 0, {}}}),
    [](const auto& row) { return row.param.label; });

struct BadLine {
  const char* label;
  const char* line;
};

class CandumpBadLine : public testing::TestWithParam<BadLine> {};

TEST_P(CandumpBadLine, IsRefused) {
  BusFrame frame;
  EXPECT_FALSE(ParseCandumpLine(GetParam().line, frame));
  const CandumpLog log = ParseCandumpLog(std::string(GetParam().line) + "\n(1.0) can0 123#\n");
  EXPECT_EQ(log.refused_lines, 1);
  EXPECT_EQ(log.frames.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(
    , CandumpBadLine,
    testing::Values(
        BadLine{"Words", "hello"}, BadLine{"TimeOnly", "(1.0)"}, BadLine{"NoFrame", "(1.0) can0"},
        BadLine{"NoChannel", "(1.0) 123#01"}, BadLine{"NoBrackets", "1.0 can0 123#01"},
        BadLine{"EmptyTime", "() can0 123#01"}, BadLine{"NoSeconds", "(.5) can0 123#01"},
        BadLine{"NegativeTime", "(-1.0) can0 123#01"}, BadLine{"TwoPoints", "(1.0.0) can0 123#01"},
        BadLine{"TimeTooLong", "(1234567890123.0) can0 123#01"},
        BadLine{"NoMark", "(1.0) can0 12301"}, BadLine{"ShortId", "(1.0) can0 12#01"},
        BadLine{"IdOfFour", "(1.0) can0 1234#01"}, BadLine{"StandardIdTooBig", "(1.0) can0 800#01"},
        BadLine{"ExtendedIdTooBig", "(1.0) can0 40000000#01"},
        BadLine{"IdNotHexadecimal", "(1.0) can0 12G#01"}, BadLine{"HalfByte", "(1.0) can0 123#012"},
        BadLine{"NineBytes", "(1.0) can0 123#010203040506070809"},
        BadLine{"DataNotHexadecimal", "(1.0) can0 123#0X"},
        BadLine{"FlexibleDataRate", "(1.0) can0 123##0112233"},
        BadLine{"RemoteOfNine", "(1.0) can0 123#R9"},
        BadLine{"RemoteWithData", "(1.0) can0 123#R0102"},
        BadLine{"LengthCodeOfEight", "(1.0) can0 123#0102030405060708_8"},
        BadLine{"LengthCodeOnShortData", "(1.0) can0 123#01_9"},
        BadLine{"LengthCodeEmpty", "(1.0) can0 123#0102030405060708_"},
        BadLine{"RemoteErrorFrame", "(1.0) can0 20000004#R"},
        BadLine{"UnknownDirection", "(1.0) can0 123#01 X"},
        BadLine{"TrailingWord", "(1.0) can0 123#01 R R"}),
    [](const auto& row) { return row.param.label; });

TEST(CandumpLog, TimesBeginWithTheFirstFrameAndBlankLinesDoNotCount) {
  const CandumpLog log = ParseCandumpLog("\r\n(10.5) can0 001#\r\n\n(10.75) can0 002#\r\n  \n");
  EXPECT_EQ(log.refused_lines, 0);
  ASSERT_EQ(log.frames.size(), 2u);
  EXPECT_EQ(log.frames[0].time_us, 0);
  EXPECT_EQ(log.frames[1].time_us, 250'000);
}

TEST(CandumpLog, ATimeThatStepsBackIsTakenAsTheTimeBefore) {
  const CandumpLog log =
      ParseCandumpLog("(5.0) c 001#\n(5.2) c 002#\n(5.1) c 003#\n(4.0) c 004#\n(5.3) c 005#");
  ASSERT_EQ(log.frames.size(), 5u);
  EXPECT_EQ(log.frames[2].time_us, 200'000);
  EXPECT_EQ(log.frames[3].time_us, 200'000);
  EXPECT_EQ(log.frames[4].time_us, 300'000);
}

std::shared_ptr<const CandumpLog> Recording(const char* text) {
  return std::make_shared<const CandumpLog>(ParseCandumpLog(text));
}

TEST(LogSource, EndsAfterOnePassAndStaysAtTheEnd) {
  LogSource source(Recording("(1.0) c 001#\n(1.1) c 002#\n"), 1);
  EXPECT_EQ(Take(source, 10).size(), 2u);
  BusFrame frame;
  EXPECT_FALSE(source.Next(frame));
  EXPECT_FALSE(source.Next(frame));
}

TEST(LogSource, RepeatsFollowAtTheMeanDistance) {
  LogSource source(Recording("(1.0) c 001#\n(1.1) c 002#\n(1.4) c 003#\n"), 3);
  const auto frames = Take(source, 100);
  ASSERT_EQ(frames.size(), 9u);
  EXPECT_EQ(frames[3].time_us, 600'000);
  EXPECT_EQ(frames[3].id, 1u);
  EXPECT_EQ(frames[8].time_us, 1'600'000);
}

TEST(LogSource, RepeatOfZeroNeverEnds) {
  LogSource source(Recording("(1.0) c 001#\n"), 0);
  const auto frames = Take(source, 1'000);
  ASSERT_EQ(frames.size(), 1'000u);
  EXPECT_EQ(frames.back().time_us, 999'000'000);
}

TEST(LogSource, AnEmptyRecordingIsSilentEvenWithoutEnd) {
  LogSource source(Recording("nonsense\n"), 0);
  BusFrame frame;
  EXPECT_FALSE(source.Next(frame));
}

}  // namespace
}  // namespace tolvane::simulator
