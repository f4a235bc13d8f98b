// The whole program at full bus load on a scaled clock: the logs have all frames of the bus
// and nothing else. No times are measured here.
#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>

#include "simulator/bench_config.h"
#include "tests/bench_run/bench_program.h"
#include "tests/helpers/bench_faults.h"
#include "tests/soak/adapter_times.h"
#include "tests/soak/bench_report.h"
#include "tests/soak/expected_log.h"
#include "tests/soak/log_comparison.h"

namespace tolvane::soak {
namespace {

struct Load {
  const char* label;
  const char* bus;
  const char* adapter;
  bool ids29;
  std::int64_t frames;
  std::int64_t frame_us;  // what a frame takes on the bus, in the mean
};

void PrintTo(const Load& load, std::ostream* out) { *out << load.label; }

constexpr const char* kShortest = "payload=0\nids=2047\nfirst_id=1\n";
constexpr const char* kEightBytes = "payload=8\nids=2047\nfirst_id=1\ncontent=random\n";
// On both sides of FFFFFFF, whose text is a digit short.
constexpr const char* kKeys29 =
    "format=extended\npayload=8\nids=4001\nfirst_id=0x0FFFF000\ncontent=random\n";
constexpr const char* kBothFormats =
    "format=both\npayload=2\nids=2000\nfirst_id=1\ncontent=random\n";

const Load kLoads[] = {
    {"ShortestOnCanusb", kShortest, "[canusb 1]\nclock_start=58000\n", false, 90'000, 48},
    {"EightBytesOnCanusb", kEightBytes, "[canusb 1]\n", false, 90'000, 115},
    {"EightBytesOnInterface", kEightBytes,
     "[interface 1]\nclock_start=428000000\nclock_wrap=429491000\n", false, 90'000, 115},
    {"EightBytesOnKvaser", kEightBytes, "[kvaser 0]\n", false, 60'000, 115},
    {"Keys29OnCanusb", kKeys29, "[canusb 1]\nclock_start=55000\n", true, 90'000, 135},
    {"Keys29OnInterface", kKeys29, "[interface 1]\n", true, 60'000, 135},
    {"Keys29OnKvaser", kKeys29, "[kvaser 0]\n", true, 60'000, 135},
    {"BothFormatsOnCanusb", kBothFormats, "[canusb 1]\n", true, 90'000, 75},
    {"AWholeNumberOfFiles", kShortest, "[canusb 1]\n", false, 2 * ExpectedLog::kRecordsPerFile, 48},
};

std::string BenchFile(const Load& load) {
  return "[bench]\nqueue=4096\n[bus]\nsource=generator\nbit_rate=1000000\nframes=" +
         std::to_string(load.frames) + "\n" + load.bus + load.adapter;
}

/// A run with the csv log on that receives the complete load.
void RunLogged(bench_run::BenchProgram& program, const Load& load) {
  program.Start();
  program.Device().t_bitRate = 0;
  program.Device().t_msgID_type = load.ids29 ? kMsgIdType29Bit : 0;
  program.Device().t_LogSave_Enable = 1;
  program.Device().t_LogSaveFormat = kLogFormatCsv;
  program.Run(load.frames * load.frame_us + 2'000'000);
  EXPECT_EQ(FaultsOf(program.Report()), Faults{});
}

BenchRun Counts(const bench_run::BenchProgram& program) {
  return LastRun(program.Report()).value_or(BenchRun{});
}

/// The page, with LF line ends.
std::string PageText(const bench_run::BenchProgram& program) {
  std::string text;
  for (const char16_t c : program.Page()) {
    if (c != u'\r') text += static_cast<char>(c);
  }
  return text;
}

class Soak : public testing::TestWithParam<Load> {};

TEST_P(Soak, EveryFrameOfTheBusIsDeliveredAndLogged) {
  const Load& load = GetParam();
  const std::string ini = BenchFile(load);
  const std::int64_t covered_us = 4096 * load.frame_us;
  std::stringbuf report;
  bench_run::BenchProgram program(
      ini,
      {.read_us = load.frame_us / 4, .tick_us = covered_us / 10, .flush_us = covered_us * 8 / 10},
      report);
  RunLogged(program, load);

  const BenchRun counts = Counts(program);
  EXPECT_EQ(counts.delivered, load.frames);
  EXPECT_EQ(counts.dropped, 0);
  EXPECT_GT(counts.high_water, 2500) << "the pauses did not load the queue";
  EXPECT_GT(program.Pages(), 10) << "no page was painted meanwhile";

  const simulator::BenchConfig config = simulator::ReadBenchConfig(ini);
  ASSERT_EQ(config.problems, std::vector<std::string>{});
  LogComparison comparison(config, load.ids29, 0);
  for (const std::string& log : program.Logs()) comparison.Add(log);
  EXPECT_EQ(comparison.Page().Compare(PageText(program)).difference, "");

  ExpectedLog expected(config.bus.load, TimeOfAdapter(config), load.ids29);
  const std::vector<std::string> logs = program.Logs();
  ASSERT_EQ(static_cast<std::int64_t>(logs.size()), expected.Files());
  for (const std::string& log : logs) {
    EXPECT_EQ(FirstDifference(log, expected.NextFile()), "") << "log " << &log - logs.data() + 1;
  }
}

INSTANTIATE_TEST_SUITE_P(SoakLoads, Soak, testing::ValuesIn(kLoads),
                         [](const auto& load) { return load.param.label; });

TEST(SoakFaults, AFlushLongerThanTheQueueLosesFramesAndTheComparisonSaysWhere) {
  const Load load = kLoads[0];
  const std::string ini = BenchFile(load);
  std::stringbuf report;
  bench_run::BenchProgram program(ini, {.read_us = 12, .tick_us = 0, .flush_us = 250'000}, report);
  RunLogged(program, load);

  const BenchRun counts = Counts(program);
  EXPECT_GT(counts.dropped, 0);
  EXPECT_EQ(counts.delivered + counts.dropped, load.frames);
  EXPECT_EQ(counts.high_water, 4096);
  LogComparison comparison(simulator::ReadBenchConfig(ini), load.ids29, counts.dropped);
  for (const std::string& log : program.Logs()) comparison.Add(log);
  const ComparedLogs logs = comparison.Result();
  EXPECT_EQ(logs.difference, "");
  EXPECT_EQ(logs.records, counts.delivered);
  EXPECT_EQ(logs.lost, counts.dropped);
  ASSERT_FALSE(logs.losses.empty());
  EXPECT_EQ(logs.losses.front().behind, ExpectedLog::kRecordsPerFile + 4096)
      << "the first file was written, and the queue ran full";
}

}  // namespace
}  // namespace tolvane::soak
