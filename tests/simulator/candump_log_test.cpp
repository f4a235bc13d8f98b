#include "simulator/candump_log.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iomanip>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "tests/simulator/frames.h"

namespace tolvane::simulator {
namespace {

struct SharedLine {
  const char* label;
  const char* line;
  const char* frame;
};

constexpr SharedLine kSharedLines[] = {
#include "tests/simulator/candump_lines.inc"
};

std::string KindText(const BusFrame& frame) {
  switch (frame.kind) {
    case FrameKind::kData:
      return "data";
    case FrameKind::kRemote:
      return "remote";
    case FrameKind::kError:
      return "error";
    case FrameKind::kTransmitted:
      return "sent";
  }
  return "";
}

std::string FrameText(const BusFrame& frame) {
  std::ostringstream text;
  text << frame.time_us << ' ' << std::hex << std::uppercase << frame.id << std::dec
       << (frame.extended ? " extended " : " standard ") << KindText(frame) << ' ' << int{frame.dlc}
       << ' ' << std::hex << std::setfill('0');
  for (const std::uint8_t byte : frame.data) text << std::setw(2) << int{byte};
  return text.str();
}

class CandumpLine : public testing::TestWithParam<SharedLine> {};

TEST_P(CandumpLine, IsTheStatedFrameOrRefused) {
  BusFrame frame{.time_us = 99, .id = 99, .dlc = 9, .data = {9, 9}};
  const bool read = ParseCandumpLine(GetParam().line, frame);
  EXPECT_EQ(read ? FrameText(frame) : "", GetParam().frame);
}

TEST_P(CandumpLine, CountsAsAFrameOrARefusedLineOfItsRecording) {
  const bool refused = *GetParam().frame == '\0';
  const CandumpLog log = ParseCandumpLog("\n" + std::string(GetParam().line) + "\n(1.0) c 123#\n");
  EXPECT_EQ(log.frames.size(), refused ? 1u : 2u);
  EXPECT_EQ(log.refused_lines, refused ? 1 : 0);
  EXPECT_EQ(log.first_refused_line, refused ? 2 : 0);
}

INSTANTIATE_TEST_SUITE_P(, CandumpLine, testing::ValuesIn(kSharedLines),
                         [](const auto& row) { return row.param.label; });

TEST(CandumpLog, TimesBeginWithTheFirstFrameAndBlankLinesDoNotCount) {
  const CandumpLog log = ParseCandumpLog("\r\n(10.5) can0 001#\r\n\n(10.75) can0 002#\r\n  \n");
  EXPECT_EQ(log.refused_lines, 0);
  ASSERT_EQ(log.frames.size(), 2u);
  EXPECT_EQ(log.frames[0].time_us, 0);
  EXPECT_EQ(log.frames[1].time_us, 250'000);
}

TEST(CandumpLog, GoodLinesPlayAndBadOnesAreCountedFromTheFirst) {
  const CandumpLog log = ParseCandumpLog("(1.0) c 001#\n\nbad\n(1.1) c 002#\nworse\n(1.2) c 003#");
  EXPECT_EQ(log.frames.size(), 3u);
  EXPECT_EQ(log.refused_lines, 2);
  EXPECT_EQ(log.first_refused_line, 3);
}

std::vector<std::int64_t> TimesOf(std::string_view text) {
  std::vector<std::int64_t> times;
  for (const BusFrame& frame : ParseCandumpLog(text).frames) times.push_back(frame.time_us);
  return times;
}

TEST(CandumpLog, AFrameOutOfOrderComesWithTheOneAheadOfIt) {
  EXPECT_EQ(TimesOf("(5.0) c 001#\n(6.2) c 002#\n(6.1) c 003#\n(5.2) c 004#\n(6.3) c 005#"),
            (std::vector<std::int64_t>{0, 1'200'000, 1'200'000, 1'200'000, 1'300'000}));
}

// tests/scripts/recording_test.py has these three too.
TEST(CandumpLog, BehindAClockThatSteppedBackFramesKeepTheirPace) {
  EXPECT_EQ(TimesOf("(9000.0) c 001#\n(9000.5) c 002#\n(8999.399999) c 003#\n(8999.499999) c 004#\n"
                    "(9000.1) c 005#\n(2.0) c 006#\n(1.5) c 007#\n(2.25) c 008#"),
            (std::vector<std::int64_t>{0, 500'000, 500'000, 600'000, 1'200'001, 1'200'001,
                                       1'200'001, 1'450'001}));
}

TEST(CandumpLog, AFrameThatIsFarBackAloneMovesNoOther) {
  EXPECT_EQ(TimesOf("(9000.0) c 001#\n(9005.0) c 002#\n(2.0) c 003#\n(9004.0) c 004#\n"
                    "(9003.9) c 005#\n(9005.5) c 006#\n(8000.0) c 007#"),
            (std::vector<std::int64_t>{0, 5'000'000, 5'000'000, 5'000'000, 5'000'000, 5'500'000,
                                       5'500'000}));
}

TEST(CandumpLog, EachOfTwoStepsInARowTakesNoTime) {
  EXPECT_EQ(TimesOf("(9000.0) c 001#\n(100.0) c 002#\n(2.0) c 003#\n(2.5) c 004#"),
            (std::vector<std::int64_t>{0, 0, 0, 500'000}));
}

TEST(CandumpLog, BehindThirtyYearsOfItNoStepIsFollowed) {
  EXPECT_EQ(TimesOf("(0.0) c 001#\n(1000000000.0) c 001#\n(1.0) c 001#\n(1.5) c 001#").back(),
            1'000'000'000'500'000);
  EXPECT_EQ(TimesOf("(0.0) c 001#\n(1000000000.1) c 001#\n(1.0) c 001#\n(1.5) c 001#").back(),
            1'000'000'000'100'000);
}

TEST(CandumpLog, TimesThatGoBackAndForthWithoutEndStayTimes) {
  std::string text;
  for (int step = 0; step < 20; ++step) {
    text += step % 2 == 0 ? "(0.0) c 001#\n(0.5) c 001#\n" : "(999999999999.0) c 001#\n";
  }
  const std::vector<std::int64_t> times = TimesOf(text);
  EXPECT_TRUE(std::ranges::is_sorted(times));
  EXPECT_EQ(times.back(), 999'999'999'999'000'000);
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
