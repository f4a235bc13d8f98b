#include "tests/soak/log_comparison.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "simulator/load_generator.h"
#include "tests/soak/adapter_times.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {
namespace {

constexpr std::int64_t kFull = ExpectedLog::kRecordsPerFile;
using Logs = std::vector<std::string>;
using Losses = std::vector<Loss>;

/// A bus of 41,000 frames, in either mode.
class LogComparisons : public testing::TestWithParam<bool> {
 protected:
  /// The logs of a program that receives the frames, counted from 0, which `hears` tells.
  [[nodiscard]] Logs LogsOf(const std::function<bool(std::int64_t)>& hears) const {
    const AdapterTime time = TimeOfAdapter(config_);
    LogText text(time, GetParam());
    simulator::LoadGenerator bus(config_.bus.load);
    simulator::BusFrame frame;
    Logs logs;
    std::int64_t records = 0;
    const auto begin = [&] { logs.push_back("1\n2\n3\n4\n5\n6\n7\n8\r\n" + text.BeginFile()); };
    begin();
    for (std::int64_t number = 0; bus.Next(frame); ++number) {
      if (!hears(number)) continue;
      text.Append(frame, logs.back());
      if (++records % kFull == 0) begin();
    }
    return logs;
  }

  [[nodiscard]] ComparedLogs Compare(const Logs& logs, std::int64_t overruns) const {
    LogComparison comparison(config_, GetParam(), overruns);
    for (const std::string& log : logs) comparison.Add(log);
    return comparison.Result();
  }

  // The clock wraps before the frames are at an end.
  simulator::BenchConfig config_ = simulator::ReadBenchConfig(
      std::string(
          "[bus]\nsource=generator\nbit_rate=1000000\npayload=2\nframes=41000\nids=2000\n") +
      (GetParam() ? "format=both\n" : "") + "[canusb 1]\nclock_start=59000\n");
};

INSTANTIATE_TEST_SUITE_P(Modes, LogComparisons, testing::Bool(),
                         [](const auto& mode) { return mode.param ? "Ids29" : "Ids11"; });

TEST_P(LogComparisons, WithoutOverrunsEachRecordIsTheNextFrame) {
  const ComparedLogs logs = Compare(LogsOf([](std::int64_t) { return true; }), 0);
  EXPECT_EQ(logs.difference, "");
  EXPECT_EQ(logs.records, 41'000);
  EXPECT_EQ(logs.files, 3);
  EXPECT_EQ(logs.losses, Losses{});
}

TEST_P(LogComparisons, BehindALossTheRecordsAreStillRead) {
  // One in the midst, one at the edge of a file, one where the clock wraps, and the last frames.
  const auto hears = [](std::int64_t number) {
    return !(number >= 100 && number < 130) && !(number >= kFull + 30 && number < kFull + 35) &&
           number < 40'990;
  };
  const ComparedLogs logs = Compare(LogsOf(hears), 45);
  EXPECT_EQ(logs.difference, "");
  EXPECT_EQ(logs.records, 41'000 - 45);
  EXPECT_EQ(logs.lost, 45);
  EXPECT_EQ(logs.losses, (Losses{{100, 30}, {kFull, 5}, {41'000 - 45, 10}}));
}

TEST_P(LogComparisons, AFrameThatChangedBehindALossIsFound) {
  Logs logs = LogsOf([](std::int64_t number) { return number != 100; });
  const std::size_t end = logs[1].rfind("\r\n", logs[1].size() - 3);
  logs[1][end - 1] = logs[1][end - 1] == '0' ? '1' : '0';
  EXPECT_EQ(Compare(logs, 1).difference.substr(0, 20), "file 2, record 20000");
}

TEST_P(LogComparisons, MoreFramesMayNotBeMissingThanWereDropped) {
  const auto hears = [](std::int64_t number) { return number != 100 && number != 30'000; };
  EXPECT_EQ(Compare(LogsOf(hears), 2).difference, "");
  EXPECT_EQ(Compare(LogsOf(hears), 1).difference.substr(0, 21), "file 2, record 9999: ");
  EXPECT_EQ(Compare(LogsOf(hears), 0).difference.substr(0, 20), "file 1, record 101: ");
}

TEST_P(LogComparisons, AFrameThatStandsTwiceIsFound) {
  Logs logs = LogsOf([](std::int64_t number) { return number != 100; });
  const std::size_t second = HeaderSize(logs[0]);
  const std::string line = logs[0].substr(second, logs[0].find('\n', second) + 1 - second);
  logs[0].insert(second, line);
  EXPECT_EQ(Compare(logs, 1).difference.substr(0, 18), "file 1, record 2: ");
}

TEST_P(LogComparisons, AFileThatIsNotFullIsFound) {
  Logs logs = LogsOf([](std::int64_t number) { return number != 100; });
  logs[0].resize(logs[0].rfind('\n', logs[0].size() - 2) + 1);
  EXPECT_EQ(Compare(logs, 2).difference.substr(0, 22), "file 1, record 20001: ");
}

}  // namespace
}  // namespace tolvane::soak
