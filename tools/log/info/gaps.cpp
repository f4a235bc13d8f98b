#include "tools/log/info/gaps.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace tolvane::logtool {

namespace {

constexpr std::uint64_t kCycles_MIN = 2;
/// Cycles after which a frame is overdue; a regular one seldom takes more.
constexpr double kOverdue = 2.0;

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

/// By begin, those of all ahead of others, then by kind and number.
bool OfTheirOrder(const Gap& one, const Gap& other) {
  const auto order = [](const Gap& gap) {
    return std::tuple(gap.silence.begin, gap.identifier == nullptr ? 0 : gap.identifier->Key() + 1);
  };
  return order(one) < order(other);
}

}  // namespace

GapFinder::GapFinder(const RunStatistics& run, double multiple) : run_(run), last_(run.First()) {
  for (const IdentifierStatistics* const statistics : run.Identifiers()) {
    result_.identifiers.push_back(Judged(*statistics, multiple));
    const JudgedIdentifier& judged = result_.identifiers.back();
    if (!judged.regular) continue;
    followers_.push_back({.statistics = statistics,
                          .cycle = judged.cycle,
                          .limit = multiple * judged.cycle,
                          .last = run.First()});
  }
  result_.is_judged = !followers_.empty();
  std::ranges::stable_sort(followers_, {}, &Follower::cycle);
  for (const Follower& follower : followers_)
    places_.emplace(follower.statistics->Key(), places_.size());
}

void GapFinder::Add(const LogFrame& frame, double ahead) {
  const Moment moment{frame.time, ahead};
  const Pause pause{std::exchange(last_, moment), moment};
  if (IsTooLongForOneThatWasSending(pause)) pause_ = pause;
  const auto place = places_.find(KeyOf(frame.extended, frame.id));
  if (place == places_.end()) return;
  Follower& follower = followers_[place->second];
  if (pause_ && WasSending(follower, pause_->begin)) {
    const double cycle = follower.last.To(moment) - follower.common;
    if (cycle > kOverdue * follower.cycle) AddCommon({pause_->begin, pause_->end});
    pause_.reset();
  }
  Follow(follower, moment);
}

bool GapFinder::WasSending(const Follower& follower, const Moment& moment) {
  const double silence = follower.last.To(moment);
  return follower.edge == Gap::Edge::kNone && silence >= 0.0 &&
         silence - follower.common <= follower.limit;
}

bool GapFinder::IsTooLongForOneThatWasSending(const Pause& pause) const {
  const double length = pause.begin.To(pause.end);
  for (const Follower& follower : followers_) {
    if (length <= follower.limit) return false;
    if (WasSending(follower, pause.begin)) return true;
  }
  return false;
}

void GapFinder::AddCommon(const Silence& silence) {
  common_gaps_.Add(silence);
  for (Follower& follower : followers_) {
    if (silence.length <= follower.cycle) return;
    if (follower.last.time <= silence.begin) follower.common += silence.length;
  }
}

void GapFinder::Follow(Follower& follower, const Moment& moment) {
  const Silence silence(std::exchange(follower.last, moment), moment);
  const double common = std::exchange(follower.common, 0.0);
  const Gap::Edge edge = std::exchange(follower.edge, Gap::Edge::kNone);
  if (silence.length - common <= follower.limit) return;
  if (edge == Gap::Edge::kNone) {
    follower.gaps.Add(silence);
  } else {
    Take(follower, silence, edge);
  }
}

void GapFinder::Take(const Follower& follower, const Silence& silence, Gap::Edge edge) {
  result_.gaps.push_back(
      {follower.statistics, silence, FramesLostIn(silence.length, follower.cycle), edge});
}

double GapFinder::LostOfAll(const Silence& silence) const {
  double frames_per_ms = 0.0;
  for (const Follower& follower : followers_) {
    const IdentifierStatistics& its = *follower.statistics;
    const bool goes_on = its.first.time <= silence.begin && its.last.time >= silence.end;
    if (goes_on) frames_per_ms += 1.0 / follower.cycle;
  }
  return std::round(silence.length * frames_per_ms);
}

JudgedRun GapFinder::Result() {
  for (const Silence& silence : common_gaps_.Kept()) {
    result_.gaps.push_back({nullptr, silence, LostOfAll(silence)});
  }
  result_.gaps_left_out = common_gaps_.LeftOut();
  for (Follower& follower : followers_) {
    for (const Silence& silence : follower.gaps.Kept()) Take(follower, silence, Gap::Edge::kNone);
    result_.gaps_left_out += follower.gaps.LeftOut();
    follower.edge = Gap::Edge::kEnd;
    Follow(follower, run_.Last());
  }
  std::ranges::stable_sort(result_.gaps, OfTheirOrder);
  return std::move(result_);
}

}  // namespace tolvane::logtool
