#include "tests/soak/soak_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/soak/adapter_times.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {
namespace {

constexpr const char* kBench =
    "[bench]\nqueue=512\n[bus]\nsource=generator\nbit_rate=1000000\npayload=0\nframes=20003\n"
    "[canusb 1]\n";
constexpr std::int64_t kCoveredUs = 512 * 48;

using Logs = std::vector<std::string>;

/// The logs that the bus of kBench must leave.
Logs WholeLogs() {
  const simulator::BenchConfig config = simulator::ReadBenchConfig(kBench);
  ExpectedLog expected(config.bus.load, TimeOfAdapter(config), false);
  Logs logs;
  for (int file = 0; file < 2; ++file) {
    logs.push_back("1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n" + expected.NextFile());
  }
  return logs;
}

/// A run without a fault but for its logs.
SoakEvidence With(const Logs& logs) {
  SoakEvidence evidence{
      .config = simulator::ReadBenchConfig(kBench),
      .counts = {.delivered = 20'003,
                 .dropped = 0,
                 .high_water = 400,
                 .longest_gap_us = kCoveredUs / 2},
      .logs = {},
      .first_logs = {1},
      .changed_names = {},
      .page = {.rows = 2'047},
      .moments = {},
      .memory = {
          .first_kb = 30'000, .most_kb = 30'100, .last_kb = 30'050, .watched_us = 3'000'000}};
  LogComparison comparison(evidence.config, false, 0);
  for (const std::string& log : logs) comparison.Add(log);
  evidence.logs = comparison.Result();
  return evidence;
}

SoakEvidence Faultless() { return With(WholeLogs()); }

bool Says(const SoakVerdict& verdict, const std::string& text) {
  return std::ranges::any_of(
      verdict.lines, [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

TEST(SoakReport, PassesWhenEveryFrameIsThere) {
  const SoakVerdict verdict = Judge(Faultless());
  EXPECT_EQ(verdict.outcome, SoakOutcome::kPassed);
  EXPECT_TRUE(Says(verdict, "20003 in 2 files"));
  EXPECT_TRUE(Says(verdict, "as the bus said it"));
  EXPECT_EQ(verdict.row,
            "29.3 MB, at most 29.4 MB, 29.3 MB at the end | 512 (24.6 ms) | 20003 | 20003 | 20003 "
            "| as the bus said it | 2047 rows equal the last frames | 0 | 400 |  | ");
}

TEST(SoakReport, ALongGapIsToldBesideWhatTheQueueCoversAndFailsOnlyByItsLoss) {
  SoakEvidence evidence = Faultless();
  evidence.counts.behind_frame = {{.us = kCoveredUs + 1, .delivered = 20'001}};
  evidence.counts.longest_gap_us = kCoveredUs + 1;
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_EQ(verdict.outcome, SoakOutcome::kPassed);
  EXPECT_TRUE(Says(verdict, "24.6 ms of the 24.6 ms that the queue covers; 1 were longer"));
}

TEST(SoakReport, EachOfTheLongestGapsHasItsCause) {
  SoakEvidence evidence = Faultless();
  evidence.counts.behind_frame = {{.us = 3'000, .delivered = 20'001, .at_us = 1'000'000},
                                  {.us = 1'200, .delivered = 7, .at_us = 2'000'000}};
  evidence.counts.behind_empty_read = {{.us = 9'000, .delivered = 11, .at_us = 3'000'000}};
  evidence.moments = {{.at_us = 2'000'500, .over_us = 1'000, .grown_kb = 128},
                      {.at_us = 2'998'000, .over_us = 1'000, .waited_us = 900, .asleep_us = 1'500}};
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_TRUE(Says(verdict,
                   "gap behind frame 11: 9.0 ms: events (tick with its paint, clicks), 0.9 ms "
                   "without a processor, "
                   "about 1.5 ms waiting for Wine, the screen or the disk"));
  EXPECT_TRUE(Says(verdict, "gap behind frame 20001: 3.0 ms: search and flush"));
  EXPECT_TRUE(Says(verdict,
                   "gap behind frame 7: 1.2 ms: between two frames, 128 kB of memory used for the "
                   "first time"));
  EXPECT_NE(verdict.row.find("9.0 ms: events (tick with its paint, clicks)"), std::string::npos);
}

TEST(SoakReport, MemoryThatGrowsByAMegabyteFails) {
  SoakEvidence evidence = Faultless();
  evidence.memory.most_kb = evidence.memory.first_kb + 1023;
  EXPECT_EQ(Judge(evidence).outcome, SoakOutcome::kPassed);
  evidence.memory.most_kb = evidence.memory.first_kb + 1024;
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_EQ(verdict.outcome, SoakOutcome::kFailed);
  EXPECT_TRUE(Says(verdict, "29.3 MB, at most 30.3 MB, 29.3 MB at the end; 1024 kB of growth"));
}

TEST(SoakReport, AMemoryThatWasNotWatchedToTheEndFails) {
  SoakEvidence evidence = Faultless();
  evidence.config.bus.load.frames = 200'000;
  evidence.counts.delivered = evidence.logs.records = 200'000;
  EXPECT_EQ(Judge(evidence).outcome, SoakOutcome::kFailed);
  EXPECT_TRUE(Says(Judge(evidence), "1024 kB fail; not watched to the end, only for 3 s"));
  evidence.memory.watched_us = 9'000'000;
  EXPECT_EQ(Judge(evidence).outcome, SoakOutcome::kPassed);
  EXPECT_TRUE(Says(Judge(evidence), "1024 kB fail; watched for 9 s"));
}

TEST(SoakReport, APageWithoutTheLastFramesFails) {
  SoakEvidence evidence = Faultless();
  EXPECT_TRUE(Says(Judge(evidence), "page:                       2047 rows equal the last frames"));
  evidence.page = {.rows = 2'047, .differing = 3, .difference = "line 7: \"\", expected \"1\""};
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_EQ(verdict.outcome, SoakOutcome::kFailed);
  EXPECT_TRUE(
      Says(verdict, "3 lines of a page of 2047 rows not as the last frames, the first: line 7: "));
}

TEST(SoakReport, ATakenNameThatWasWrittenOverFails) {
  SoakEvidence evidence = Faultless();
  evidence.taken = 900;
  EXPECT_TRUE(Says(Judge(evidence), "names taken ahead:          900, all as they were"));
  evidence.changed_names = {"KL26112923-001.csv"};
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_EQ(verdict.outcome, SoakOutcome::kFailed);
  EXPECT_TRUE(Says(verdict, "900, 1 not as they were, the first: KL26112923-001.csv"));
}

/// The queue ran full twice, and just these frames are missing.
SoakEvidence WithLosses() {
  SoakEvidence evidence = Faultless();
  evidence.counts.dropped = 42;
  evidence.counts.delivered -= 42;
  evidence.logs.records -= 42;
  evidence.logs.lost = 42;
  evidence.logs.losses = {{.behind = 7'000, .frames = 2}, {.behind = 9'512, .frames = 40}};
  evidence.counts.behind_frame = {{.us = 26'000, .delivered = 9'000, .at_us = 1'000'000},
                                  {.us = 1'200, .delivered = 9'400, .at_us = 2'000'000}};
  return evidence;
}

TEST(SoakReport, ALossThatIsToldWithAllElseWholeHasAnOutcomeOfItsOwn) {
  EXPECT_EQ(Judge(WithLosses()).outcome, SoakOutcome::kLostAndTold);
  const auto outcome_with = [](auto change) {
    SoakEvidence evidence = WithLosses();
    change(evidence);
    return Judge(evidence).outcome;
  };
  EXPECT_EQ(outcome_with([](SoakEvidence& e) { ++e.counts.delivered; }), SoakOutcome::kFailed);
  EXPECT_EQ(outcome_with([](SoakEvidence& e) { --e.logs.records; }), SoakOutcome::kFailed);
  EXPECT_EQ(outcome_with([](SoakEvidence& e) { --e.logs.lost; }), SoakOutcome::kFailed);
  EXPECT_EQ(outcome_with([](SoakEvidence& e) { ++e.counts.dropped; }), SoakOutcome::kFailed);
  EXPECT_EQ(outcome_with([](SoakEvidence& e) { e.logs.difference = "x"; }), SoakOutcome::kFailed);
  EXPECT_EQ(outcome_with([](SoakEvidence& e) { e.page.difference = "x"; }), SoakOutcome::kFailed);
  EXPECT_EQ(outcome_with([](SoakEvidence& e) { e.memory.most_kb += 1024; }), SoakOutcome::kFailed);
}

TEST(SoakReport, ALossIsToldWithItsPlaceAndTheGapThatLedToIt) {
  const SoakVerdict verdict = Judge(WithLosses());
  const std::string by_cause =
      "42 at 2 places (40 frames at 1 place: between two frames; 2 frames at 1 place: no gap of "
      "those that were kept)";
  EXPECT_TRUE(Says(verdict, "as the bus said it but for the overruns"));
  EXPECT_TRUE(Says(verdict, "overruns, by cause:         " + by_cause));
  EXPECT_TRUE(Says(verdict, "lost behind record 9512: 40 frames, 26.0 ms: between two frames"));
  EXPECT_TRUE(Says(verdict, "lost behind record 7000: 2 frames, no gap of those that were kept"));
  EXPECT_NE(verdict.row.find(" | as the bus said it but for the overruns | "), std::string::npos);
  EXPECT_NE(verdict.row.find(" | " + by_cause + " | "), std::string::npos);
}

TEST(SoakReport, LossesThatAreNotTheOverrunsAreTold) {
  SoakEvidence evidence = Faultless();
  evidence.counts.dropped = 2;
  evidence.logs.lost = 1;
  EXPECT_TRUE(Says(Judge(evidence), "the logs pass over 1 frame, which are not the overruns"));
}

TEST(SoakReport, AFrameNotDeliveredFails) {
  SoakEvidence evidence = Faultless();
  --evidence.counts.delivered;
  EXPECT_EQ(Judge(evidence).outcome, SoakOutcome::kFailed);
}

TEST(SoakReport, AFrameNotLoggedFailsAndIsTold) {
  Logs logs = WholeLogs();
  logs[1].resize(logs[1].rfind('\n', logs[1].size() - 2) + 1);
  const SoakVerdict verdict = Judge(With(logs));
  EXPECT_EQ(verdict.outcome, SoakOutcome::kFailed);
  EXPECT_TRUE(Says(verdict, "20002 in 2 files"));
  EXPECT_TRUE(Says(verdict, "file 2, record 2:"));
}

TEST(SoakReport, AChangedFrameFailsAndIsTold) {
  Logs logs = WholeLogs();
  logs[0][logs[0].find(" , 002 , ") + 3] = '7';
  const SoakVerdict verdict = Judge(With(logs));
  EXPECT_EQ(verdict.outcome, SoakOutcome::kFailed);
  EXPECT_TRUE(Says(verdict, "file 1, record 2: \"         0 , 702 , 0\", expected"));
}

TEST(SoakReport, AMissingFileFails) {
  Logs logs = WholeLogs();
  logs.pop_back();
  const SoakVerdict verdict = Judge(With(logs));
  EXPECT_EQ(verdict.outcome, SoakOutcome::kFailed);
  EXPECT_TRUE(Says(verdict, "there should be 2"));
}

TEST(SoakReport, AFlushIsTheGapBehindTheFrameThatFilledALogAndTheFirstOfAnHourSearchesToo) {
  SoakEvidence evidence = Faultless();
  evidence.counts.behind_frame = {
      {.us = 900, .delivered = 60'004}, {.us = 850, .delivered = 100'005},
      {.us = 800, .delivered = 60'003}, {.us = 700, .delivered = 20'001},
      {.us = 650, .delivered = 40'002}, {.us = 600}};
  evidence.counts.behind_empty_read = {{.us = 500, .delivered = 20'001}};
  evidence.first_logs = {1, 5};
  const SoakVerdict verdict = Judge(evidence);
  EXPECT_TRUE(Says(verdict, "longest flush:              0.8 ms (median of the 2 kept: 0.7 ms)"));
  const auto first = std::ranges::find(
      verdict.lines, std::string("gap behind frame 20001: 0.7 ms: search and flush"));
  ASSERT_NE(first, verdict.lines.end());
  EXPECT_EQ(first[1], "gap behind frame 100005: 0.8 ms: search and flush");
  EXPECT_NE(verdict.row.find(" | 0.7 ms, 0.8 ms | "), std::string::npos) << verdict.row;
}

TEST(SoakReport, TheLastRunOfABenchReportCounts) {
  const auto run = LastRun(
      "canusbdrv run TV1 reads=0 delivered=0 dropped=0 longest_gap_ms=0.000 queue_high_water=0\n"
      "canusbdrv canusb_Close(2) = 1\r\n"
      "canusbdrv run TV1 reads=9 delivered=7 dropped=1 longest_gap_ms=12.045 queue_high_water=5\n"
      "canusbdrv gap TV1 behind=frame ms=12.045 delivered=3 at_ms=90.250\n"
      "canusbdrv gap TV1 behind=empty ms=1.000 delivered=4 at_ms=91.000\n"
      "canusbdrv unload\n");
  ASSERT_TRUE(run);
  EXPECT_EQ(run->delivered, 7);
  EXPECT_EQ(run->dropped, 1);
  EXPECT_EQ(run->high_water, 5);
  EXPECT_EQ(run->longest_gap_us, 12'045);
  ASSERT_EQ(run->behind_frame.size(), 1u);
  EXPECT_EQ(run->behind_frame[0].us, 12'045);
  EXPECT_EQ(run->behind_frame[0].delivered, 3);
  EXPECT_EQ(run->behind_frame[0].at_us, 90'250);
  ASSERT_EQ(run->behind_empty_read.size(), 1u);
  EXPECT_EQ(run->behind_empty_read[0].us, 1'000);
  EXPECT_FALSE(LastRun("canusbdrv load\n"));
}

}  // namespace
}  // namespace tolvane::soak
