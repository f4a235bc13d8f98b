#include "tools/log/info/gaps.h"

#include <algorithm>
#include <cmath>

namespace tolvane::logtool {

namespace {

constexpr std::uint64_t kCycles_MIN = 2;

class Judge {
 public:
  Judge(const RunStatistics& run, double multiple) : run_(run), multiple_(multiple) {}

  JudgedRun Result() {
    for (const IdentifierStatistics* const statistics : run_.Identifiers()) Measure(*statistics);
    FindCommonGaps();
    common_ = result_.gaps;
    for (const JudgedIdentifier& identifier : result_.identifiers) {
      if (identifier.regular) FindGapsOf(identifier);
    }
    std::ranges::stable_sort(result_.gaps, {}, [](const Gap& gap) { return gap.silence.begin; });
    return std::move(result_);
  }

 private:
  void Measure(const IdentifierStatistics& statistics) {
    const CycleStatistics& cycles = statistics.cycles;
    JudgedIdentifier judged{.statistics = &statistics, .cycle = 0.0, .regular = false, .lost = {}};
    if (cycles.Count() >= kCycles_MIN) {
      judged.cycle = cycles.Median();
      judged.regular = judged.cycle > 0.0 &&
                       cycles.Between(judged.cycle / 2, judged.cycle * 2) * 4 >= cycles.Count() * 3;
    }
    if (judged.regular) TakeRegular(judged);
    result_.identifiers.push_back(judged);
  }

  void TakeRegular(JudgedIdentifier& judged) {
    judged.lost = judged.statistics->cycles.Above(multiple_ * judged.cycle, judged.cycle);
    frames_per_ms_ += 1.0 / judged.cycle;
    if (judged.statistics->frames <= most_frames_) return;
    most_frames_ = judged.statistics->frames;
    result_.cycle = judged.cycle;
  }

  void FindCommonGaps() {
    if (!result_.IsJudged()) return;
    const double limit = multiple_ * result_.cycle;
    for (const Silence& silence : run_.Silences().Kept()) {
      if (silence.length <= limit) continue;
      result_.gaps.push_back({nullptr, silence, std::round(silence.length * frames_per_ms_)});
    }
    const std::uint64_t all = run_.SilencesAbove(limit);
    result_.gaps_left_out = all - std::min<std::uint64_t>(all, result_.gaps.size());
  }

  void FindGapsOf(const JudgedIdentifier& identifier) {
    const IdentifierStatistics& statistics = *identifier.statistics;
    const std::size_t before = result_.gaps.size();
    std::uint64_t seen = 0;
    for (const Silence& silence : statistics.silences.Kept()) {
      seen += silence.length > multiple_ * identifier.cycle ? 1 : 0;
      AddGap(identifier, silence, Gap::Edge::kNone);
    }
    // Where gaps of all explain the longest silences, they explain the others.
    if (result_.gaps.size() > before) {
      result_.gaps_left_out += identifier.lost.gaps - std::min(identifier.lost.gaps, seen);
    }
    AddGap(identifier, {run_.First(), statistics.first}, Gap::Edge::kBegin);
    AddGap(identifier, {statistics.last, run_.Last()}, Gap::Edge::kEnd);
  }

  void AddGap(const JudgedIdentifier& identifier, const Silence& silence, Gap::Edge edge) {
    const double own = silence.length - CommonWithin(silence);
    if (own <= multiple_ * identifier.cycle) return;
    result_.gaps.push_back(
        {identifier.statistics, silence, FramesLostIn(silence.length, identifier.cycle), edge});
  }

  /// How much of a silence were gaps of all.
  [[nodiscard]] double CommonWithin(const Silence& silence) const {
    double length = 0.0;
    for (const Gap& gap : common_) {
      const bool is_within = gap.silence.begin >= silence.begin && gap.silence.end <= silence.end;
      if (is_within) length += gap.silence.length;
    }
    return length;
  }

  const RunStatistics& run_;
  const double multiple_;
  double frames_per_ms_ = 0.0;  // of all regular identifiers together
  std::uint64_t most_frames_ = 0;
  std::vector<Gap> common_;
  JudgedRun result_;
};

}  // namespace

JudgedRun JudgeRun(const RunStatistics& run, double multiple) {
  return Judge(run, multiple).Result();
}

}  // namespace tolvane::logtool
