#include "tools/log/info/gaps.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvane::logtool {

namespace {

constexpr std::uint64_t kCycles_MIN = 2;

JudgedIdentifier Judged(const IdentifierStatistics& statistics, double multiple) {
  const CycleStatistics& cycles = statistics.cycles;
  JudgedIdentifier judged{.statistics = &statistics, .cycle = 0.0, .regular = false, .lost = {}};
  if (cycles.Count() < kCycles_MIN) return judged;
  judged.cycle = cycles.Median();
  judged.regular = judged.cycle > 0.0 &&
                   cycles.Between(judged.cycle / 2, judged.cycle * 2) * 4 >= cycles.Count() * 3;
  if (judged.regular) judged.lost = cycles.Above(multiple * judged.cycle, judged.cycle);
  return judged;
}

}  // namespace

GapFinder::GapFinder(const RunStatistics& run, double multiple)
    : run_(run), multiple_(multiple), last_(run.First()) {
  std::uint64_t most_frames = 0;
  for (const IdentifierStatistics* const statistics : run.Identifiers()) {
    const JudgedIdentifier judged = Judged(*statistics, multiple);
    result_.identifiers.push_back(judged);
    if (!judged.regular) continue;
    Follower follower{.judged = judged, .last = run.First()};
    followers_.emplace(statistics->Key(), std::move(follower));
    frames_per_ms_ += 1.0 / judged.cycle;
    if (statistics->frames <= most_frames) continue;
    most_frames = statistics->frames;
    result_.cycle = judged.cycle;
  }
}

void GapFinder::Add(const LogFrame& frame, double ahead) {
  const Moment moment{frame.time, ahead};
  const Silence silence(std::exchange(last_, moment), moment);
  if (result_.IsJudged() && silence.length > multiple_ * result_.cycle) {
    common_ += silence.length;
    common_gaps_.Add(silence);
  }
  const auto follower = followers_.find(KeyOf(frame.extended, frame.id));
  if (follower != followers_.end()) Follow(follower->second, moment);
}

void GapFinder::Follow(Follower& follower, const Moment& moment) {
  const Silence silence(std::exchange(follower.last, moment), moment);
  const double common = common_ - std::exchange(follower.common, common_);
  const Gap::Edge edge = std::exchange(follower.edge, Gap::Edge::kNone);
  if (silence.length - common <= multiple_ * follower.judged.cycle) return;
  if (edge == Gap::Edge::kNone) {
    follower.gaps.Add(silence);
  } else {
    Take(follower, silence, edge);
  }
}

void GapFinder::Take(const Follower& follower, const Silence& silence, Gap::Edge edge) {
  result_.gaps.push_back({follower.judged.statistics, silence,
                          FramesLostIn(silence.length, follower.judged.cycle), edge});
}

JudgedRun GapFinder::Result() {
  for (const Silence& silence : common_gaps_.Kept()) {
    result_.gaps.push_back({nullptr, silence, std::round(silence.length * frames_per_ms_)});
  }
  result_.gaps_left_out = common_gaps_.LeftOut();
  for (const JudgedIdentifier& identifier : result_.identifiers) {
    if (!identifier.regular) continue;
    Follower& follower = followers_.at(identifier.statistics->Key());
    for (const Silence& silence : follower.gaps.Kept()) Take(follower, silence, Gap::Edge::kNone);
    result_.gaps_left_out += follower.gaps.LeftOut();
    follower.edge = Gap::Edge::kEnd;
    Follow(follower, run_.Last());
  }
  std::ranges::stable_sort(result_.gaps, {}, [](const Gap& gap) { return gap.silence.begin; });
  return std::move(result_);
}

}  // namespace tolvane::logtool
