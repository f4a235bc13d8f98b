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
constexpr const char* kFlush = "search and flush";
constexpr const char* kEvents = "events (tick with its paint, clicks)";
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

std::string Counted(std::int64_t count, const char* what) {
  return Number(count) + ' ' + what + (count == 1 ? "" : "s");
}

std::string Milliseconds(std::int64_t us) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f ms", static_cast<double>(us) / 1000);
  return text;
}

std::string Megabytes(std::int64_t kb) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(kb) / 1024);
  return text;
}

/// Such as "29.4 MB, at most 29.8 MB, 29.5 MB at the end".
std::string Told(const MemoryUse& memory) {
  return Megabytes(memory.first_kb) + ", at most " + Megabytes(memory.most_kb) + ", " +
         Megabytes(memory.last_kb) + " at the end";
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
    gaps.push_back({gap, IsFlush(gap) ? kFlush : "between two frames"});
  }
  for (const ReadGap& gap : run.behind_empty_read) gaps.push_back({gap, kEvents});
  std::ranges::stable_sort(gaps, std::ranges::greater{},
                           [](const CausedGap& g) { return g.gap.us; });
  return gaps;
}

/// Such as "12.9 ms: search and flush, 9.1 ms without a processor".
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

/// The longest of the gaps in which the queue may have run full ahead of a loss: what lay in it
/// then is delivered between the two. Null when none was kept.
const CausedGap* GapOf(const Loss& loss, const std::vector<CausedGap>& gaps, std::int64_t queue) {
  const auto gap = std::ranges::find_if(gaps, [&](const CausedGap& caused) {
    const std::int64_t waited = loss.behind - caused.gap.delivered;
    return waited >= 0 && waited <= queue;
  });
  return gap == gaps.end() ? nullptr : &*gap;
}

/// With the places on the bus, where the logs tell them.
std::string Overruns(const BenchRun& run, const ComparedLogs& logs) {
  return Number(run.dropped) +
         (run.dropped == 0 ? "" : " at " + Counted(std::ssize(logs.losses), "place"));
}

/// Where frames were lost and why, the longest losses; nothing when none were.
std::vector<std::string> ToldLosses(const SoakEvidence& evidence,
                                    const std::vector<CausedGap>& gaps, std::int64_t queue,
                                    std::int64_t covered_us) {
  std::vector<Loss> losses = evidence.logs.losses;
  if (losses.empty()) return {};
  const auto long_gaps = std::ranges::count_if(losses, [&](const Loss& loss) {
    const CausedGap* const caused = GapOf(loss, gaps, queue);
    return caused != nullptr && caused->gap.us > covered_us;
  });
  std::vector<std::string> lines{
      "lost on the way:            " + Counted(evidence.logs.lost, "frame") + " at " +
      Counted(std::ssize(losses), "place") + ", " + Number(long_gaps) +
      " of them behind a gap longer than what the queue covers"};
  std::ranges::stable_sort(losses, std::ranges::greater{}, &Loss::frames);
  losses.resize(std::min(losses.size(), kTold));
  for (const Loss& loss : losses) {
    const CausedGap* const caused = GapOf(loss, gaps, queue);
    lines.push_back(
        "lost behind record " + Number(loss.behind) + ": " + Counted(loss.frames, "frame") + ", " +
        (caused == nullptr ? "no gap of those that were kept" : Told(*caused, evidence.moments)));
  }
  return lines;
}

/// What the logs hold against what the bus said.
std::string Content(const BenchRun& run, const ComparedLogs& logs) {
  if (!logs.difference.empty()) return logs.difference;
  if (logs.lost != run.dropped) {
    return "the logs pass over " + Counted(logs.lost, "frame") + ", which are not the overruns";
  }
  return logs.lost == 0 ? "as the bus said it" : "as the bus said it but for the overruns";
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
                "overruns:                   " + Overruns(run, logs),
                "content, frame by frame:    " + Content(run, logs),
                "longest gap between reads:  " + Milliseconds(run.longest_gap_us) + " of the " +
                    Milliseconds(covered_us) + " that the queue covers; " + Number(too_long) +
                    " were longer than that",
                "queue's high-water mark:    " + Number(run.high_water) + " of " + Number(queue),
                "memory after a minute:      " + Told(evidence.memory) + "; " +
                    Number(evidence.memory.GrownKb()) + " kB of growth, " +
                    Number(MemoryUse::kGrowthKb) + " kB fail",
                "longest search and flush:   " + LongestOf(Flushes(run)),
                "longest events:             " + LongestOf(run.behind_empty_read)},
      .row = {},
      .passed = run.delivered == load.frames && logs.records == load.frames && run.dropped == 0 &&
                logs.difference.empty() && evidence.memory.GrownKb() < MemoryUse::kGrowthKb};
  for (const std::string& line : ToldLosses(evidence, gaps, queue, covered_us)) {
    verdict.lines.push_back(line);
  }
  std::string longest;
  for (std::size_t i = 0; i < std::min(gaps.size(), kTold); ++i) {
    const std::string told = Told(gaps[i], evidence.moments);
    verdict.lines.push_back("gap behind frame " + Number(gaps[i].gap.delivered) + ": " + told);
    if (i < kToldInRow) longest += (i == 0 ? "" : "; ") + told;
  }
  verdict.row = RowOf({Told(evidence.memory), Number(queue) + " (" + Milliseconds(covered_us) + ")",
                       Number(load.frames), Number(run.delivered), Number(logs.records),
                       Overruns(run, logs), Number(run.high_water), longest});
  return verdict;
}

}  // namespace tolvane::soak
