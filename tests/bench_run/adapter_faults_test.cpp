// The program with adapters and clocks that fail: what page and log make of it.
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tests/bench_run/bench_run.h"

namespace tolvane::bench_run {
namespace {

using FaultyAdapter = EachKind;

TEST_P(FaultyAdapter, PulledInTheRunLeavesPageAndLogAndLetsTheRunEnd) {
  ASSERT_NO_FATAL_FAILURE(
      Start(kTenPerSecond + std::string("[faults]\npulled_at=0.35\n"), GetParam()));
  Lines expected;
  for (int n = 0; n < 4; ++n) expected.push_back(LogLine(100 * n, n));
  EXPECT_EQ(Run(2'000), expected);
  EXPECT_NE(Page().find("123  2   03 00"), std::string::npos) << Page();
}

TEST_P(FaultyAdapter, SilentForAWhileGoesOnBehindIt) {
  ASSERT_NO_FATAL_FAILURE(Start(
      kTenPerSecond + std::string("[faults]\nsilence_from=0.15\nsilence_to=0.75\n"), GetParam()));
  EXPECT_EQ(Run(950), (Lines{LogLine(0, 0), LogLine(100, 1), LogLine(800, 8), LogLine(900, 9)}));
}

TEST_P(FaultyAdapter, WithABurstAsLargeAsTheQueueLosesNothing) {
  for (const int frames : {64, 65}) {
    ASSERT_NO_FATAL_FAILURE(
        Start("[bench]\nqueue=64\n" + std::string(kTenPerSecond) +
                  "[faults]\nburst_at=0.15\nburst_frames=" + std::to_string(frames) + "\n",
              GetParam()));
    const Lines records = Run(350);
    ASSERT_EQ(records.size(), 2u + 64u + 2u);
    for (std::size_t n = 0; n < 64; ++n) {
      const std::string bytes = HexByte(static_cast<int>(n)) + ",00,00,00,00,00,00,00";
      EXPECT_EQ(records[2 + n], LogLine(150, "7F0 , 8 ,  " + bytes)) << n;
    }
    EXPECT_EQ(records[66], LogLine(200, 2));
    EXPECT_TRUE(Reported("delivered=68 dropped=" + std::to_string(frames - 64)));
    EXPECT_TRUE(Reported("queue_high_water=64"));
  }
}

TEST_P(FaultyAdapter, WhoseClockStepsBackAndForthHasTheTimesOfItsKind) {
  ASSERT_NO_FATAL_FAILURE(
      Start(kTenPerSecond + std::string("[faults]\nclock_steps=0.25:-200,0.55:300\n"), GetParam()));
  // A step back is taken for a wrap of 60000 or 429491 ms; Kvaser's time goes back.
  const std::int64_t wraps[] = {60'000, 429'491, 0};
  const std::int64_t wrap = wraps[GetParam()];
  EXPECT_EQ(Run(750), (Lines{LogLine(0, 0), LogLine(100, 1), LogLine(200, 2),
                             LogLine(wrap + 100, 3), LogLine(wrap + 200, 4), LogLine(wrap + 300, 5),
                             LogLine(wrap + 700, 6), LogLine(wrap + 800, 7)}));
}

/// A time of the log, given in ten-thousandths of a millisecond.
std::string TimeText(std::int64_t time) {
  std::string text = std::to_string(time % 10'000 + 10'000).replace(0, 1, ".");
  text.erase(text.find_last_not_of("0") + 1);
  return std::to_string(time / 10'000) + (text == "." ? "" : text);
}

TEST_P(FaultyAdapter, WhoseClockIsWrongByAPercentIsMendedByTheRatio) {
  struct Row {
    int ppm;
    double ratio;
    std::int64_t cycle;  // in the log, in ten-thousandths of a millisecond
  };
  for (const Row& row : {Row{10'000, 1.0, 1'010'000}, Row{10'000, 0.9901, 1'000'001},
                         Row{-10'000, 1.0, 990'000}, Row{-10'000, 1.0101, 999'999}}) {
    SCOPED_TRACE(std::to_string(row.ppm) + " " + std::to_string(row.ratio));
    ASSERT_NO_FATAL_FAILURE(
        Start(kTenPerSecond + ("[faults]\nclock_ppm=" + std::to_string(row.ppm)), GetParam()));
    program_->Device().t_dividend_ratio = row.ratio;
    Lines expected;
    for (int n = 0; n < 20; ++n) expected.push_back(LogLine(TimeText(row.cycle * n), n));
    EXPECT_EQ(Run(1'950), expected);
  }
}

TEST_P(FaultyAdapter, WithJunkInTheIdWordIsTakenAsItsKindTellsIdentifiers) {
  struct Row {
    const char* bits;
    std::int32_t ids;
    std::array<const char*, 3> rows;  // by kind, empty where the frame is dropped
  };
  // In a 29-bit run Interface words are masked, CANUSB's bit 31 makes a number below any bound.
  for (const Row& row :
       {Row{"0x800", 0, {"", "", ""}}, Row{"0x60000000", 0, {"", "", ""}},
        Row{"0x80000000", 0, {"", "", ""}},
        Row{"0x60000000", kMsgIdType29Bit, {"", "  00000123  2", ""}},
        Row{"0x80000000", kMsgIdType29Bit, {"  000000080000123  2", "* 00000123  2", ""}}}) {
    SCOPED_TRACE(std::string(row.bits) + " " + std::to_string(row.ids));
    ASSERT_NO_FATAL_FAILURE(
        Start(kTenPerSecond + ("[faults]\nor_id=" + std::string(row.bits)), GetParam()));
    program_->Device().t_msgID_type = row.ids;
    const std::string shown = row.rows[static_cast<std::size_t>(GetParam())];
    EXPECT_EQ(Run(250).size(), shown.empty() ? 0u : 3u);
    EXPECT_TRUE(Reported("delivered=3 "));
    EXPECT_NE(Page().find(shown.empty() ? "D8\r\n" : shown), std::string::npos) << Page();
    EXPECT_EQ(Page().find("123") == std::string::npos, shown.empty()) << Page();
  }
}

TEST_P(FaultyAdapter, WithALengthAboveEightIsLoggedWithItAndEightBytes) {
  for (const char* length : {"9", "255"}) {
    ASSERT_NO_FATAL_FAILURE(
        Start(kTenPerSecond + ("[faults]\nforce_dlc=" + std::string(length)), GetParam()));
    EXPECT_EQ(Run(50),
              Lines{LogLine(0, "123 , " + std::string(length) + " ,  00,00,00,00,00,00,00,00")});
    EXPECT_NE(Page().find("123  " + std::string(length)), std::string::npos) << Page();
  }
}

/// A recording on the disk.
class Recording {
 public:
  explicit Recording(const std::string& lines) {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("tolvane-") + test->test_suite_name() + "-" + test->name();
    std::replace(name.begin(), name.end(), '/', '-');
    path_ = std::filesystem::temp_directory_path() / (name + ".log");
    std::ofstream(path_, std::ios::binary) << lines;
  }
  ~Recording() { std::filesystem::remove(path_); }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  [[nodiscard]] std::string Bus() const {
    return "[bus]\nsource=log\nlog=" + path_.string() + "\n";
  }

 private:
  std::filesystem::path path_;
};

TEST_P(FaultyAdapter, WhatItDoesNotWriteIsLoggedAsTheReadBeforeLeftIt) {
  const Recording recording(
      "(0.0) can0 00000100#1112131415161718\n(0.1) can0 00000200#21\n(0.2) can0 00000300#R3\n");
  for (const bool whole : {false, true}) {
    ASSERT_NO_FATAL_FAILURE(
        Start(recording.Bus() + "[faults]\ndata=" + (whole ? "whole" : "length"), GetParam()));
    program_->Device().t_msgID_type = kMsgIdType29Bit;
    const Lines records = Run(250);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_TRUE(records[1].ends_with(" 1 ,  21")) << records[1];
    EXPECT_TRUE(records[2].ends_with(whole ? " 3 ,  00,00,00" : " 3 ,  21,12,13")) << records[2];
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, FaultyAdapter, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return kKindNames[kind.param]; });

using InterfaceClock = BenchRun;

TEST_F(InterfaceClock, BehindTheTopOfItsWordTheTimeGoesByTheRepairOfAWrap) {
  ASSERT_NO_FATAL_FAILURE(
      Start(kTenPerSecond + std::string("[faults]\nclock_start=2147233647\n"), kInterface));
  // Stamps of 2147233 to 2147433 ms, then of -2147433 and up.
  EXPECT_EQ(Run(550),
            (Lines{LogLine(0, 0), LogLine(100, 1), LogLine(200, 2), LogLine(-3'865'175, 3),
                   LogLine(-1'717'842, 4), LogLine(-1'717'742, 5)}));
}

TEST_F(InterfaceClock, ThatBeginsBelowZeroIsNoOriginAndTheTimeStandsStill) {
  ASSERT_NO_FATAL_FAILURE(
      Start(kTenPerSecond + std::string("[faults]\nclock_start=0x80000000\n"), kInterface));
  EXPECT_EQ(Run(150), (Lines{LogLine(0, 0), LogLine(0, 1)}));
}

TEST_F(InterfaceClock, ThatWrapsWhereTheProgramExpectsItJumpsOnceByItsFirstStamp) {
  ASSERT_NO_FATAL_FAILURE(
      Start(kTenPerSecond + std::string("[faults]\nclock_wrap=429491000\nclock_start=429240000\n"),
            kInterface));
  EXPECT_EQ(Run(550), (Lines{LogLine(0, 0), LogLine(100, 1), LogLine(200, 2), LogLine(300, 3),
                             LogLine(429'640, 4), LogLine(429'740, 5)}));
}

}  // namespace
}  // namespace tolvane::bench_run
