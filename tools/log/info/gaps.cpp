#include "tools/log/info/gaps.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace tolvane::logtool {

namespace {

/// Cycles after which a frame is overdue, if no fewer are a gap. With one that was lost it is two,
/// and either may come some tenths early or late.
constexpr double kOverdue = 1.5;
/// With fewer cycles an identifier may be one that strays into a silence.
constexpr std::uint64_t kCyclesThatDecide_MIN = 5;
/// Part that pauses of the bus have at least in the time from the first of them to the frame of one
/// that comes back, where they are one silence that others part.
constexpr double kMost = 0.9;

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
    result_.identifiers.push_back(JudgedByItsCycles(*statistics, multiple));
  }
  for (JudgedIdentifier& judged : result_.identifiers) {
    if (!judged.regular) continue;
    followers_.push_back({.judged = &judged,
                          .limit = multiple * judged.slow,
                          .overdue = std::min(multiple, kOverdue) * judged.slow,
                          .is_known = judged.statistics->cycles.Count() >= kCyclesThatDecide_MIN,
                          .last = run.First()});
  }
  result_.is_judged = !followers_.empty();
  std::ranges::stable_sort(followers_, {},
                           [](const Follower& follower) { return follower.judged->cycle; });
  for (const Follower& follower : followers_)
    places_.emplace(follower.judged->statistics->Key(), places_.size());
}

void GapFinder::Add(const LogFrame& frame, double ahead) {
  const Seen seen{KeyOf(frame.extended, frame.id), {frame.time, ahead}};
  if (!doubt_) {
    Take(seen);
    return;
  }
  held_.push_back(seen);
  doubt_->back.Add(seen.key, seen.moment);
  while (doubt_ && (doubt_->back.IsDecided() || held_.size() >= kHeld_MAX)) Settle();
}

void GapFinder::Settle() {
  const Doubt doubt = *std::exchange(doubt_, std::nullopt);
  if (doubt.back.AreMostBack()) {
    AddCommon(doubt.pauses);
  } else {
    AreNoSilence(doubt.pauses);
  }
  while (!held_.empty() && !doubt_) {
    const Seen seen = held_.front();
    held_.pop_front();
    Take(seen);
  }
  for (const Seen& seen : held_) doubt_->back.Add(seen.key, seen.moment);
}

void GapFinder::Take(const Seen& seen) {
  const auto place = places_.find(seen.key);
  Follower* const follower = place != places_.end() ? &followers_[place->second] : nullptr;
  const bool is_stray = follower == nullptr || !follower->is_known;
  AddPause(std::exchange(last_, seen.moment), seen.moment, is_stray);
  if (follower == nullptr) return;
  if (MayDecide(*follower, seen.moment)) Decide(*follower, seen.moment);
  Follow(*follower, seen.moment);
  if (follower->is_known) List(*follower);
}

bool GapFinder::WasSending(const Follower& follower, const Moment& moment) {
  const double silence = follower.last.To(moment);
  return follower.edge == Gap::Edge::kNone && silence >= 0.0 &&
         silence - follower.common <= follower.limit;
}

GapFinder::Pauses::const_iterator GapFinder::PausesOf(const Follower& follower) const {
  const auto first = std::ranges::find_if(
      pauses_, [&](const Pause& pause) { return follower.last.To(pause.begin) >= 0.0; });
  return first != pauses_.end() && WasSending(follower, first->begin) ? first : pauses_.end();
}

bool GapFinder::IsMostlySilent(const Pause& first, const Moment& moment, double another) {
  return first.silent + another >= kMost * first.begin.To(moment);
}

GapFinder::Pauses::const_iterator GapFinder::LastingOf(const Follower& follower,
                                                       const Moment& moment, double another) const {
  return std::find_if(PausesOf(follower), pauses_.cend(), [&](const Pause& pause) {
    return WasSending(follower, pause.begin) && IsMostlySilent(pause, moment, another);
  });
}

bool GapFinder::IsInASilence(const Follower& follower, const Moment& moment, double another) const {
  return LastingOf(follower, moment, another) != pauses_.end();
}

bool GapFinder::MayDecide(const Follower& follower, const Moment& moment) const {
  if (follower.is_known) return true;
  const auto first = PausesOf(follower);
  return first != pauses_.end() && std::none_of(pauses_.begin(), first, [&](const Pause& before) {
           return IsMostlySilent(before, moment);
         });
}

// One that has stopped, with no pause that may yet explain it, is not looked at again before its
// next frame.
std::optional<double> GapFinder::LimitOfOneThatMissesIn(const Moment& begin, const Moment& end) {
  const double length = begin.To(end);
  const auto misses = [&](const Follower* follower) {
    return WasSending(*follower, begin) || IsInASilence(*follower, end, length);
  };
  const auto others = std::ranges::lower_bound(sending_, length, {}, &Follower::limit);
  const auto first = std::find_if(sending_.begin(), others, misses);
  const auto limit = first != others ? std::optional((*first)->limit) : std::nullopt;
  std::for_each(sending_.begin(), first, [](Follower* follower) { follower->is_listed = false; });
  sending_.erase(sending_.begin(), first);
  return limit;
}

void GapFinder::List(Follower& follower) {
  if (std::exchange(follower.is_listed, true)) return;
  sending_.insert(std::ranges::upper_bound(sending_, follower.limit, {}, &Follower::limit),
                  &follower);
}

bool GapFinder::IsOverdue(const Follower& follower, const Moment& moment) {
  return follower.last.To(moment) - follower.common > follower.overdue;
}

void GapFinder::AddPause(const Moment& begin, const Moment& end, bool is_to_a_stray) {
  const double length = begin.To(end);
  const auto limit = LimitOfOneThatMissesIn(begin, end);
  PartSilences(begin, end, limit.has_value() || !is_to_a_stray);
  if (!limit) return;
  if (pauses_.size() >= kPauses_MAX) pauses_.erase(pauses_.begin());
  pauses_.push_back({begin, end, *limit, length, end});
}

/// By a pause. One that is over has nothing to do with those of others.
void GapFinder::PartSilences(const Moment& begin, const Moment& end, bool is_of_others) {
  const double length = begin.To(end);
  for (Pause& first : pauses_) {
    if (length <= first.limit || (is_of_others && !IsMostlySilent(first, end, length))) continue;
    first.silent += length;
    first.last_end = end;
    ++first.parts;
  }
  std::erase_if(pauses_, [](const Pause& first) { return first.parts > kPauses_MAX; });
}

/// Those that were the last ones.
void GapFinder::AreNoSilence(const Pauses& pauses) {
  for (Pause& before : pauses_) {
    for (auto pause = pauses.rbegin(); pause != pauses.rend(); ++pause) {
      const double length = pause->begin.To(pause->end);
      if (length <= before.limit || pause->end.time > before.last_end.time) continue;
      before.silent -= length;
      before.last_end = pause->begin;
    }
  }
}

/// By its frame at this moment. Behind a silence that is over it decides nothing.
void GapFinder::Decide(const Follower& follower, const Moment& moment) {
  const auto first = PausesOf(follower);
  if (first == pauses_.end()) return;
  const auto lasting = LastingOf(follower, moment);
  const Pauses decided(lasting, pauses_.cend());
  const bool is_common = !decided.empty() && IsOverdue(follower, moment);
  std::optional<CommonReturn> back;
  if (!decided.empty() && !is_common) back = ReturnOfTheMissing(moment);
  // Those that are over stay for others who may never come back.
  const auto over = std::find_if(
      first, lasting, [&](const Pause& pause) { return !WasSending(follower, pause.begin); });
  const auto left = lasting - over;
  const auto behind = pauses_.erase(first, over);
  pauses_.erase(behind + left, pauses_.end());
  if (is_common) {
    AddCommon(decided);
  } else if (back && back->AreSeveral()) {
    doubt_ = {decided, *std::move(back)};
  } else {
    AreNoSilence(decided);
  }
}

CommonReturn GapFinder::ReturnOfTheMissing(const Moment& since) const {
  CommonReturn back(since);
  for (const Follower* const follower : sending_) {
    if (!IsOverdue(*follower, since) || !IsInASilence(*follower, since)) continue;
    back.Await(follower->judged->statistics->Key(), follower->judged->slow);
  }
  return back;
}

// What one identifier was missing from on is one silence, and another identifier may have begun in
// between and stopped for another one.
void GapFinder::DecideAtTheEnd() {
  std::vector<bool> begins(pauses_.size() + 1, false);
  for (const Follower& follower : followers_) {
    const auto first = PausesOf(follower);
    if (follower.is_known) begins[static_cast<std::size_t>(first - pauses_.begin())] = true;
  }
  begins.back() = true;
  for (std::size_t first = 0; first < pauses_.size();) {
    std::size_t last = first;
    do ++last;
    while (!begins[last]);
    if (begins[first]) DecideAtTheEnd(first, last);
    first = last;
  }
}

void GapFinder::DecideAtTheEnd(std::size_t first, std::size_t last) {
  const bool are_overdue = std::ranges::all_of(followers_, [&](const Follower& follower) {
    const auto its = static_cast<std::size_t>(PausesOf(follower) - pauses_.cbegin());
    return its < first || its >= last || !MayDecide(follower, run_.Last()) ||
           IsOverdue(follower, run_.Last());
  });
  const Pauses decided(pauses_.begin() + static_cast<std::ptrdiff_t>(first),
                       pauses_.begin() + static_cast<std::ptrdiff_t>(last));
  const Pause& begin = decided.front();
  if (are_overdue && IsMostlySilent(begin, begin.last_end)) AddCommon(decided);
}

void GapFinder::AddCommon(const Pauses& pauses) {
  for (const Pause& pause : pauses) AddCommon({pause.begin, pause.end});
}

void GapFinder::AddCommon(const Silence& silence) {
  common_gaps_.Add(silence, 0.0);
  for (Follower& follower : followers_) {
    if (follower.last.time > silence.begin) continue;
    if (silence.length > follower.judged->cycle) follower.common += silence.length;
    follower.every_common += silence.length;
    if (silence.length > follower.longest_common.length) follower.longest_common = silence;
  }
}

void GapFinder::Follow(Follower& follower, const Moment& moment) {
  const Silence silence(std::exchange(follower.last, moment), moment);
  const double common = std::exchange(follower.common, 0.0);
  const double every_common = std::exchange(follower.every_common, 0.0);
  const Silence longest_common = std::exchange(follower.longest_common, {});
  const Gap::Edge edge = std::exchange(follower.edge, Gap::Edge::kNone);
  const bool is_gap = silence.length > follower.limit;
  const bool is_own = silence.length - common > follower.limit;
  if (edge != Gap::Edge::kNone) {
    if (is_own) result_.gaps.push_back({follower.judged->statistics, silence, {}, edge});
    return;
  }
  double lost = FramesLostIn(silence.length, follower.judged->slow);
  if (!is_own) {
    // Those of all within it may have cost it frames, but no more than they had room for.
    if (every_common == 0.0) return;
    lost = std::min(lost, std::ceil(every_common / follower.judged->slow));
  }
  follower.judged->gaps += is_gap ? 1 : 0;
  follower.judged->lost += lost;
  if (is_own) {
    follower.gaps.Add(silence, lost);
  } else {
    common_gaps_.Lose(longest_common, lost);
  }
}

JudgedRun GapFinder::Result() {
  while (doubt_) Settle();
  DecideAtTheEnd();
  for (const auto& [silence, lost] : common_gaps_.TheKept()) {
    result_.gaps.push_back({nullptr, silence, lost > 0.0 ? std::optional(lost) : std::nullopt});
  }
  result_.gaps_left_out = common_gaps_.LeftOut();
  for (Follower& follower : followers_) {
    for (const auto& [silence, lost] : follower.gaps.TheKept()) {
      result_.gaps.push_back({follower.judged->statistics, silence, lost});
    }
    result_.gaps_left_out += follower.gaps.LeftOut();
    follower.edge = Gap::Edge::kEnd;
    Follow(follower, run_.Last());
  }
  std::ranges::stable_sort(result_.gaps, OfTheirOrder);
  return std::move(result_);
}

}  // namespace tolvane::logtool
