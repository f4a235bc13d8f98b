#include "tests/soak/soak_report.h"

#include <algorithm>
#include <cstdio>

#include "simulator/load_generator.h"
#include "tests/soak/adapter_times.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {
namespace {

using simulator::ReadGap;

bool IsFlush(const ReadGap& gap) {
  return gap.delivered > 0 && gap.delivered % ExpectedLog::kRecordsPerFile == 0;
}

std::string Milliseconds(std::int64_t us) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f ms", static_cast<double>(us) / 1000);
  return text;
}

std::string LongestOf(const std::vector<ReadGap>& gaps) {
  if (gaps.empty()) return "none seen";
  return Milliseconds(gaps.front().us) + " (median of the " + std::to_string(gaps.size()) +
         " kept: " + Milliseconds(gaps[gaps.size() / 2].us) + ")";
}

std::int64_t LongerThan(std::int64_t us, const BenchRun& run) {
  const auto is_longer = [us](const ReadGap& gap) { return gap.us >= us; };
  return std::ranges::count_if(run.behind_frame, is_longer) +
         std::ranges::count_if(run.behind_empty_read, is_longer);
}

std::int64_t LastFrameUs(const simulator::LoadPlan& plan) {
  simulator::LoadGenerator bus(plan);
  simulator::BusFrame frame;
  while (bus.Next(frame)) {
  }
  return frame.time_us;
}

struct Comparison {
  std::int64_t logged = 0;
  std::string difference = {};
};

Comparison CompareLogs(const SoakEvidence& evidence) {
  ExpectedLog expected(evidence.config.bus.load, TimeOfAdapter(evidence.config), evidence.ids29);
  Comparison result;
  const auto note = [&](std::size_t number, const std::string& difference) {
    if (!difference.empty() && result.difference.empty()) {
      result.difference = "file " + std::to_string(number) + ", " + difference;
    }
  };
  for (std::size_t i = 0; i < evidence.logs.size(); ++i) {
    const std::string& log = evidence.logs[i];
    result.logged += std::count(log.begin(), log.end(), '\n') - ExpectedLog::kHeaderLines;
    note(i + 1, FirstDifference(log, expected.NextFile()));
  }
  if (static_cast<std::int64_t>(evidence.logs.size()) != expected.Files()) {
    note(evidence.logs.size(), "the last: there should be " + std::to_string(expected.Files()));
  }
  return result;
}

}  // namespace

std::vector<ReadGap> Flushes(const BenchRun& run) {
  std::vector<ReadGap> flushes = run.behind_frame;
  std::erase_if(flushes, [](const ReadGap& gap) { return !IsFlush(gap); });
  return flushes;
}

SoakVerdict Judge(const SoakEvidence& evidence) {
  const BenchRun& run = evidence.counts;
  const simulator::LoadPlan& load = evidence.config.bus.load;
  const std::int64_t last_us = std::max<std::int64_t>(LastFrameUs(load), 1);
  const std::int64_t queue = evidence.config.canusb.front().adapter.tap.queue;
  const std::int64_t covered_us = queue * last_us / load.frames;
  const Comparison logs = CompareLogs(evidence);
  std::vector<ReadGap> others = run.behind_frame;
  std::erase_if(others, IsFlush);

  const auto number = [](std::int64_t value) { return std::to_string(value); };
  const bool all_there = run.delivered == load.frames && logs.logged == load.frames &&
                         run.dropped == 0 && logs.difference.empty();
  const bool quick = run.longest_gap_us < covered_us / 4;
  return {
      .lines = {"frames on the bus:          " + number(load.frames) + " in " +
                    number(last_us / 1'000'000) + " s, " +
                    number(load.frames * 1'000'000 / last_us) + " a second",
                "delivered:                  " + number(run.delivered),
                "logged:                     " + number(logs.logged) + " in " +
                    number(static_cast<std::int64_t>(evidence.logs.size())) + " files",
                "overruns:                   " + number(run.dropped),
                "content, frame by frame:    " +
                    (logs.difference.empty() ? "as the bus said it" : logs.difference),
                "queue covers:               " + Milliseconds(covered_us) + ", a quarter is " +
                    Milliseconds(covered_us / 4),
                "longest gap between reads:  " + Milliseconds(run.longest_gap_us) + "; " +
                    number(LongerThan(covered_us / 4, run)) + " are longer than the quarter",
                "queue's high-water mark:    " + number(run.high_water) + " of " + number(queue),
                "longest flush:              " + LongestOf(Flushes(run)),
                "longest tick with its paint: " + LongestOf(run.behind_empty_read),
                "longest gap behind a frame that filled no file: " + LongestOf(others)},
      .passed = all_there && quick};
}

}  // namespace tolvane::soak
