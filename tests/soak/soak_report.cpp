#include "tests/soak/soak_report.h"

#include <algorithm>

#include "simulator/load_generator.h"
#include "tests/soak/expected_log.h"
#include "tests/soak/gap_causes.h"
#include "tests/soak/lost_frames.h"
#include "tests/soak/told.h"

namespace tolvane::soak {
namespace {

constexpr std::size_t kTold = 10;      // gaps that the report tells
constexpr std::size_t kToldInRow = 3;  // and its row
constexpr std::int64_t kSecondUs = 1'000'000;

using Lines = std::vector<std::string>;

/// What the evidence says by itself, ahead of any judgement.
struct Run {
  explicit Run(const SoakEvidence& evidence);

  std::int64_t frames;      // on the bus
  std::int64_t last_us;     // the time of the last one, above 0
  std::int64_t queue;       // frames
  std::int64_t covered_us;  // by the queue
  std::vector<CausedGap> gaps;
};

std::int64_t LastFrameUs(const simulator::LoadPlan& plan) {
  simulator::LoadGenerator bus(plan);
  simulator::BusFrame frame;
  while (bus.Next(frame)) {
  }
  return frame.time_us;
}

Run::Run(const SoakEvidence& evidence)
    : frames(evidence.config.bus.load.frames),
      last_us(std::max<std::int64_t>(LastFrameUs(evidence.config.bus.load), 1)),
      queue(evidence.config.canusb.front().adapter.tap.queue),
      covered_us(queue * last_us / frames),
      gaps(GapsByLength(evidence.counts, evidence.first_logs)) {}

std::string Number(std::int64_t value) { return std::to_string(value); }

/// Such as "29.4 MB, at most 29.8 MB, 29.5 MB at the end".
std::string Memory(const MemoryUse& memory) {
  return Megabytes(memory.first_kb) + ", at most " + Megabytes(memory.most_kb) + ", " +
         Megabytes(memory.last_kb) + " at the end";
}

std::string LongestOf(const std::vector<CausedGap>& gaps) {
  if (gaps.empty()) return "none seen";
  return Milliseconds(gaps.front().gap.us) + " (median of the " + std::to_string(gaps.size()) +
         " kept: " + Milliseconds(gaps[gaps.size() / 2].gap.us) + ")";
}

/// With the places on the bus, where the logs tell them, and their causes.
std::string Overruns(const SoakEvidence& evidence, const Run& run) {
  std::string text = Number(evidence.counts.dropped);
  if (evidence.counts.dropped == 0) return text;
  const std::vector<Loss>& losses = evidence.logs.losses;
  text += " at " + Counted(std::ssize(losses), "place");
  const std::string causes = LossesByCause(losses, run.gaps, evidence.moments, run.queue);
  return causes.empty() ? text : text + " (" + causes + ")";
}

/// What the logs hold against what the bus said.
std::string Content(const BenchRun& counts, const ComparedLogs& logs) {
  if (!logs.difference.empty()) return logs.difference;
  if (logs.lost != counts.dropped) {
    return "the logs pass over " + Counted(logs.lost, "frame") + ", which are not the overruns";
  }
  return logs.lost == 0 ? "as the bus said it" : "as the bus said it but for the overruns";
}

std::string Page(const ComparedPage& page) {
  if (page.difference.empty()) {
    return Counted(static_cast<std::int64_t>(page.rows), "row") + " equal the last frames";
  }
  return Counted(static_cast<std::int64_t>(page.differing), "line") + " of a page of " +
         Counted(static_cast<std::int64_t>(page.rows), "row") +
         " not as the last frames, the first: " + page.difference;
}

std::string Taken(const SoakEvidence& evidence) {
  const Lines& changed = evidence.changed_names;
  if (changed.empty()) return Number(evidence.taken) + ", all as they were";
  return Number(evidence.taken) + ", " + Number(std::ssize(changed)) +
         " not as they were, the first: " + changed.front();
}

std::string RowOf(const Lines& cells) {
  std::string row;
  for (const std::string& cell : cells) row += (row.empty() ? "" : " | ") + cell;
  return row;
}

SoakOutcome Outcome(const SoakEvidence& evidence, const Run& run) {
  const BenchRun& counts = evidence.counts;
  const ComparedLogs& logs = evidence.logs;
  const std::int64_t received = run.frames - counts.dropped;
  const bool whole = counts.delivered == received && logs.records == received &&
                     logs.lost == counts.dropped && logs.difference.empty();
  if (!whole || !evidence.page.difference.empty() || !evidence.changed_names.empty() ||
      !evidence.memory.StayedIn(run.last_us)) {
    return SoakOutcome::kFailed;
  }
  return counts.dropped == 0 ? SoakOutcome::kPassed : SoakOutcome::kLostAndTold;
}

Lines Figures(const SoakEvidence& evidence, const Run& run) {
  const BenchRun& counts = evidence.counts;
  const MemoryUse& memory = evidence.memory;
  const auto too_long = std::ranges::count_if(
      run.gaps, [&run](const CausedGap& caused) { return caused.gap.us > run.covered_us; });
  return {
      "frames on the bus:          " + Number(run.frames) + " in " +
          Number(run.last_us / kSecondUs) + " s, " + Number(run.frames * kSecondUs / run.last_us) +
          " a second",
      "delivered:                  " + Number(counts.delivered),
      "logged:                     " + Number(evidence.logs.records) + " in " +
          Number(evidence.logs.files) + " files",
      "overruns, by cause:         " + Overruns(evidence, run),
      "content, frame by frame:    " + Content(counts, evidence.logs),
      "page:                       " + Page(evidence.page),
      "names taken ahead:          " + Taken(evidence),
      "longest gap between reads:  " + Milliseconds(counts.longest_gap_us) + " of the " +
          Milliseconds(run.covered_us) + " that the queue covers; " + Number(too_long) +
          " were longer than that",
      "queue's high-water mark:    " + Number(counts.high_water) + " of " + Number(run.queue),
      "memory after a minute:      " + Memory(memory) + "; " + Number(memory.GrownKb()) +
          " kB of growth, " + Number(MemoryUse::kGrowthKb) + " kB fail; " +
          (memory.TellsOf(run.last_us) ? "watched for " : "not watched to the end, only for ") +
          Number(memory.watched_us / kSecondUs) + " s",
      "longest flush:              " + LongestOf(OfCause(run.gaps, kFlush)),
      "longest events:             " + LongestOf(OfCause(run.gaps, kEvents)),
  };
}

/// The gaps in which the program began an hour of names, in the run's order.
std::vector<CausedGap> Searches(const Run& run) {
  std::vector<CausedGap> searches = OfCause(run.gaps, kSearchAndFlush);
  std::ranges::sort(searches, {}, [](const CausedGap& caused) { return caused.gap.delivered; });
  return searches;
}

Lines ToldGaps(const std::vector<CausedGap>& gaps, const std::vector<Moment>& moments) {
  Lines lines;
  for (const CausedGap& caused : gaps) {
    lines.push_back("gap behind frame " + Number(caused.gap.delivered) + ": " +
                    Told(caused, moments));
  }
  return lines;
}

/// The longest losses; nothing when none were.
Lines ToldLosses(const SoakEvidence& evidence, const Run& run) {
  std::vector<Loss> losses = evidence.logs.losses;
  std::ranges::stable_sort(losses, std::ranges::greater{}, &Loss::frames);
  losses.resize(std::min(losses.size(), kTold));
  Lines lines;
  for (const Loss& loss : losses) {
    const CausedGap* const gap = GapOf(loss, run.gaps, run.queue);
    lines.push_back(
        "lost behind record " + Number(loss.behind) + ": " + Counted(loss.frames, "frame") + ", " +
        (gap == nullptr ? "no gap of those that were kept" : Told(*gap, evidence.moments)));
  }
  return lines;
}

std::string Row(const SoakEvidence& evidence, const Run& run) {
  const BenchRun& counts = evidence.counts;
  std::string searches;
  for (const CausedGap& search : Searches(run)) {
    searches += (searches.empty() ? "" : ", ") + Milliseconds(search.gap.us);
  }
  std::string longest;
  for (std::size_t i = 0; i < std::min(run.gaps.size(), kToldInRow); ++i) {
    longest += (i == 0 ? "" : "; ") + Told(run.gaps[i], evidence.moments);
  }
  return RowOf({Memory(evidence.memory),
                Number(run.queue) + " (" + Milliseconds(run.covered_us) + ")", Number(run.frames),
                Number(counts.delivered), Number(evidence.logs.records),
                Content(counts, evidence.logs), Page(evidence.page), Overruns(evidence, run),
                Number(counts.high_water), searches, longest});
}

void Append(const Lines& more, Lines& lines) {
  lines.insert(lines.end(), more.begin(), more.end());
}

}  // namespace

SoakVerdict Judge(const SoakEvidence& evidence) {
  const Run run(evidence);
  Lines lines = Figures(evidence, run);
  Append(ToldGaps(Searches(run), evidence.moments), lines);
  Append(ToldLosses(evidence, run), lines);
  std::vector<CausedGap> longest = run.gaps;
  longest.resize(std::min(longest.size(), kTold));
  Append(ToldGaps(longest, evidence.moments), lines);
  return {.lines = lines, .row = Row(evidence, run), .outcome = Outcome(evidence, run)};
}

}  // namespace tolvane::soak
