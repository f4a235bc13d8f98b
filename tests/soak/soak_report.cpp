#include "tests/soak/soak_report.h"

#include <algorithm>
#include <cstdio>

#include "simulator/load_generator.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {
namespace {

using simulator::ReadGap;

constexpr std::size_t kTold = 10;      // gaps that the report tells
constexpr std::size_t kToldInRow = 3;  // and its row
constexpr std::int64_t kNotableUs = 100;
constexpr std::int64_t kNotableKb = 64;

/// A gap, and what the program did in it as far as its reads tell.
struct CausedGap {
  ReadGap gap;
  const char* cause;
};

bool IsFlush(const ReadGap& gap) {
  return gap.delivered > 0 && gap.delivered % ExpectedLog::kRecordsPerFile == 0;
}

std::string Number(std::int64_t value) { return std::to_string(value); }

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

std::int64_t LastFrameUs(const simulator::LoadPlan& plan) {
  simulator::LoadGenerator bus(plan);
  simulator::BusFrame frame;
  while (bus.Next(frame)) {
  }
  return frame.time_us;
}

/// All gaps that were kept, the longest one first.
std::vector<CausedGap> ByLength(const BenchRun& run) {
  std::vector<CausedGap> gaps;
  for (const ReadGap& gap : run.behind_frame) {
    gaps.push_back({gap, IsFlush(gap) ? "flush" : "between two frames"});
  }
  for (const ReadGap& gap : run.behind_empty_read) gaps.push_back({gap, "tick with its paint"});
  std::ranges::stable_sort(gaps, std::ranges::greater{},
                           [](const CausedGap& g) { return g.gap.us; });
  return gaps;
}

/// Such as "12.9 ms: tick with its paint, 9.1 ms without a processor".
std::string Told(const CausedGap& caused, const std::vector<Moment>& moments) {
  const Moment within = Within(caused.gap, moments);
  std::string text = Milliseconds(caused.gap.us) + ": " + caused.cause;
  if (within.waited_us >= kNotableUs) {
    text += ", " + Milliseconds(within.waited_us) + " without a processor";
  }
  if (within.grown_kb >= kNotableKb) {
    text += ", " + Number(within.grown_kb) + " kB of memory used for the first time";
  }
  if (within.asleep_us >= kNotableUs) {
    text +=
        ", about " + Milliseconds(within.asleep_us) + " waiting for Wine, the screen or the disk";
  }
  return text;
}

std::string RowOf(const std::vector<std::string>& cells) {
  std::string row;
  for (const std::string& cell : cells) row += (row.empty() ? "" : " | ") + cell;
  return row;
}

}  // namespace

std::vector<ReadGap> Flushes(const BenchRun& run) {
  std::vector<ReadGap> flushes = run.behind_frame;
  std::erase_if(flushes, [](const ReadGap& gap) { return !IsFlush(gap); });
  return flushes;
}

SoakVerdict Judge(const SoakEvidence& evidence) {
  const BenchRun& run = evidence.counts;
  const ComparedLogs& logs = evidence.logs;
  const simulator::LoadPlan& load = evidence.config.bus.load;
  const std::int64_t last_us = std::max<std::int64_t>(LastFrameUs(load), 1);
  const std::int64_t queue = evidence.config.canusb.front().adapter.tap.queue;
  const std::int64_t covered_us = queue * last_us / load.frames;
  const std::vector<CausedGap> gaps = ByLength(run);
  const auto too_long = std::ranges::count_if(
      gaps, [covered_us](const CausedGap& caused) { return caused.gap.us > covered_us; });

  SoakVerdict verdict{
      .lines = {"frames on the bus:          " + Number(load.frames) + " in " +
                    Number(last_us / 1'000'000) + " s, " +
                    Number(load.frames * 1'000'000 / last_us) + " a second",
                "delivered:                  " + Number(run.delivered),
                "logged:                     " + Number(logs.records) + " in " +
                    Number(logs.files) + " files",
                "overruns:                   " + Number(run.dropped),
                "content, frame by frame:    " +
                    (logs.difference.empty() ? "as the bus said it" : logs.difference),
                "longest gap between reads:  " + Milliseconds(run.longest_gap_us) + " of the " +
                    Milliseconds(covered_us) + " that the queue covers; " + Number(too_long) +
                    " were longer than that",
                "queue's high-water mark:    " + Number(run.high_water) + " of " + Number(queue),
                "longest flush:              " + LongestOf(Flushes(run)),
                "longest tick with its paint: " + LongestOf(run.behind_empty_read)},
      .row = {},
      .passed = run.delivered == load.frames && logs.records == load.frames && run.dropped == 0 &&
                logs.difference.empty()};
  std::string longest;
  for (std::size_t i = 0; i < std::min(gaps.size(), kTold); ++i) {
    const std::string told = Told(gaps[i], evidence.moments);
    verdict.lines.push_back("gap behind frame " + Number(gaps[i].gap.delivered) + ": " + told);
    if (i < kToldInRow) longest += (i == 0 ? "" : "; ") + told;
  }
  verdict.row = RowOf({Number(queue) + " (" + Milliseconds(covered_us) + ")", Number(load.frames),
                       Number(run.delivered), Number(logs.records), Number(run.dropped),
                       Number(run.high_water), longest});
  return verdict;
}

}  // namespace tolvane::soak
