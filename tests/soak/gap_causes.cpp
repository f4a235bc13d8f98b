#include "tests/soak/gap_causes.h"

#include <algorithm>

#include "tests/soak/expected_log.h"
#include "tests/soak/told.h"

namespace tolvane::soak {
namespace {

using simulator::ReadGap;

constexpr std::int64_t kNotableUs = 100;
constexpr std::int64_t kNotableKb = 64;
constexpr const char* kWithoutProcessor = " without a processor";
constexpr const char* kAsleep = " waiting for Wine, the screen or the disk";

const char* CauseBehindFrame(const ReadGap& gap, const std::vector<std::int64_t>& first_logs) {
  const std::int64_t log = gap.delivered / ExpectedLog::kRecordsPerFile;
  if (log == 0 || gap.delivered % ExpectedLog::kRecordsPerFile != 0) return kBetweenFrames;
  return std::ranges::find(first_logs, log) != first_logs.end() ? kSearchAndFlush : kFlush;
}

}  // namespace

std::vector<CausedGap> GapsByLength(const BenchRun& run,
                                    const std::vector<std::int64_t>& first_logs) {
  std::vector<CausedGap> gaps;
  for (const ReadGap& gap : run.behind_frame) {
    gaps.push_back({gap, CauseBehindFrame(gap, first_logs)});
  }
  for (const ReadGap& gap : run.behind_empty_read) gaps.push_back({gap, kEvents});
  std::ranges::stable_sort(gaps, std::ranges::greater{},
                           [](const CausedGap& g) { return g.gap.us; });
  return gaps;
}

std::vector<CausedGap> OfCause(const std::vector<CausedGap>& gaps, std::string_view cause) {
  std::vector<CausedGap> some = gaps;
  std::erase_if(some, [cause](const CausedGap& caused) { return caused.cause != cause; });
  return some;
}

std::string Told(const CausedGap& caused, const std::vector<Moment>& moments) {
  const Moment within = Within(caused.gap, moments);
  std::string text = Milliseconds(caused.gap.us) + ": " + caused.cause;
  if (within.waited_us >= kNotableUs) {
    text += ", " + Milliseconds(within.waited_us) + kWithoutProcessor;
  }
  if (within.grown_kb >= kNotableKb) {
    text += ", " + std::to_string(within.grown_kb) + " kB of memory used for the first time";
  }
  if (within.asleep_us >= kNotableUs) {
    text += ", about " + Milliseconds(within.asleep_us) + kAsleep;
  }
  return text;
}

std::string MainCause(const CausedGap& caused, const std::vector<Moment>& moments) {
  const Moment within = Within(caused.gap, moments);
  std::string text = caused.cause;
  if (within.waited_us * 2 >= caused.gap.us) return text + ", mostly" + kWithoutProcessor;
  if (within.asleep_us * 2 >= caused.gap.us) return text + ", mostly" + kAsleep;
  return text;
}

}  // namespace tolvane::soak
