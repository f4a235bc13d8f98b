#include "tests/soak/soak_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/soak/adapter_times.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {
namespace {

constexpr const char* kBench =
    "[bench]\nqueue=4096\n[bus]\nsource=generator\nbit_rate=1000000\npayload=0\nframes=20003\n"
    "[canusb 1]\n";
constexpr std::int64_t kQuarterUs = 4096 * 48 / 4;

/// A run without a fault.
SoakEvidence Faultless() {
  SoakEvidence evidence{.config = simulator::ReadBenchConfig(kBench),
                        .counts = {.delivered = 20'003,
                                   .dropped = 0,
                                   .high_water = 400,
                                   .longest_gap_us = kQuarterUs - 1},
                        .logs = {},
                        .ids29 = false};
  ExpectedLog expected(evidence.config.bus.load, TimeOfAdapter(evidence.config), false);
  for (int file = 0; file < 2; ++file) {
    evidence.logs.push_back("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n" + expected.NextFile());
  }
  return evidence;
}

bool Says(const SoakVerdict& verdict, const std::string& text) {
  return std::ranges::any_of(
      verdict.lines, [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

TEST(SoakReport, PassesWhenEveryFrameIsThereAndNoGapIsLong) {
  const SoakVerdict verdict = Judge(Faultless());
  EXPECT_TRUE(verdict.passed);
  EXPECT_TRUE(Says(verdict, "20003 in 2 files"));
  EXPECT_TRUE(Says(verdict, "as the bus said it"));
}

TEST(SoakReport, AGapOfAQuarterOfTheQueueFails) {
  SoakEvidence evidence = Faultless();
  evidence.counts.longest_gap_us = kQuarterUs;
  EXPECT_FALSE(Judge(evidence).passed);
}

TEST(SoakReport, AnOverrunFails) {
  SoakEvidence evidence = Faultless();
  evidence.counts.dropped = 1;
  EXPECT_FALSE(Judge(evidence).passed);
}

TEST(SoakReport, AFrameNotDeliveredFails) {
  SoakEvidence evidence = Faultless();
  --evidence.counts.delivered;
  EXPECT_FALSE(Judge(evidence).passed);
}

TEST(SoakReport, AFrameNotLoggedFailsAndIsTold) {
  SoakEvidence evidence = Faultless();
  std::string& log = evidence.logs[1];
  log.resize(log.rfind('\n', log.size() - 2) + 1);
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_FALSE(verdict.passed);
  EXPECT_TRUE(Says(verdict, "20002 in 2 files"));
  EXPECT_TRUE(Says(verdict, "file 2, record 2:"));
}

TEST(SoakReport, AChangedFrameFailsAndIsTold) {
  SoakEvidence evidence = Faultless();
  std::string& log = evidence.logs[0];
  log[log.find(" , 002 , ") + 3] = '7';
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_FALSE(verdict.passed);
  EXPECT_TRUE(Says(verdict, "file 1, record 2: \"         0 , 702 , 0\", expected"));
}

TEST(SoakReport, AMissingFileFails) {
  SoakEvidence evidence = Faultless();
  evidence.logs.pop_back();
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_FALSE(verdict.passed);
  EXPECT_TRUE(Says(verdict, "there should be 2"));
}

TEST(SoakReport, TheFlushesAreTheGapsBehindTheFrameThatFilledAFile) {
  const BenchRun run{.behind_frame = {{900, 40'003}, {800, 40'002}, {700, 20'001}, {600, 0}},
                     .behind_empty_read = {{500, 20'001}}};
  const auto flushes = Flushes(run);
  ASSERT_EQ(flushes.size(), 2u);
  EXPECT_EQ(flushes[0].us, 800);
  EXPECT_EQ(flushes[1].us, 700);
}

TEST(SoakReport, TheLastRunOfABenchReportCounts) {
  const auto run = LastRun(
      "canusbdrv run TV1 reads=0 delivered=0 dropped=0 longest_gap_ms=0.000 queue_high_water=0\n"
      "canusbdrv canusb_Close(2) = 1\r\n"
      "canusbdrv run TV1 reads=9 delivered=7 dropped=1 longest_gap_ms=12.045 queue_high_water=5\n"
      "canusbdrv gap TV1 behind=frame ms=12.045 delivered=3\n"
      "canusbdrv gap TV1 behind=empty ms=1.000 delivered=4\n"
      "canusbdrv unload\n");
  ASSERT_TRUE(run);
  EXPECT_EQ(run->delivered, 7);
  EXPECT_EQ(run->dropped, 1);
  EXPECT_EQ(run->high_water, 5);
  EXPECT_EQ(run->longest_gap_us, 12'045);
  ASSERT_EQ(run->behind_frame.size(), 1u);
  EXPECT_EQ(run->behind_frame[0].us, 12'045);
  EXPECT_EQ(run->behind_frame[0].delivered, 3);
  ASSERT_EQ(run->behind_empty_read.size(), 1u);
  EXPECT_EQ(run->behind_empty_read[0].us, 1'000);
  EXPECT_FALSE(LastRun("canusbdrv load\n"));
}

}  // namespace
}  // namespace tolvane::soak
