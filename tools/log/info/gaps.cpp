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

/// By the time up to them, those of all ahead of others, then by kind and number.
bool OfTheirOrder(const Gap& one, const Gap& other) {
  const auto order = [](const Gap& gap) {
    return std::tuple(gap.silence.passed,
                      gap.identifier == nullptr ? 0 : gap.identifier->Key() + 1);
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
    pauses_.AreNoSilence(doubt.pauses);
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
  const Pause pause{std::exchange(last_, seen.moment), seen.moment};
  if (pause.Length() < 0.0) pauses_.StepBackTo(pause.end);
  AddPause(pause, is_stray);
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

std::size_t GapFinder::FirstPauseOf(const Follower& follower) const {
  const std::size_t first = pauses_.FirstFrom(follower.last);
  const bool was_sending = first < pauses_.Count() && WasSending(follower, pauses_.At(first).begin);
  return was_sending ? first : pauses_.Count();
}

std::size_t GapFinder::FirstLastingOf(const Follower& follower, const Moment& moment,
                                      double another) const {
  std::size_t place = FirstPauseOf(follower);
  while (place < pauses_.Count() && !(WasSending(follower, pauses_.At(place).begin) &&
                                      pauses_.Lasts(place, moment, another))) {
    ++place;
  }
  return place;
}

bool GapFinder::IsInASilence(const Follower& follower, const Moment& moment, double another) const {
  return FirstLastingOf(follower, moment, another) < pauses_.Count();
}

bool GapFinder::MayDecide(const Follower& follower, const Moment& moment) const {
  if (follower.is_known) return true;
  const std::size_t first = FirstPauseOf(follower);
  if (first == pauses_.Count()) return false;
  for (std::size_t before = 0; before < first; ++before) {
    if (pauses_.Lasts(before, moment)) return false;
  }
  return true;
}

// One that has stopped, with no pause that may yet explain it, is not looked at again before its
// next frame, or before a silence lasts again that may explain it after all.
std::optional<double> GapFinder::LimitOfOneThatMissesIn(const Pause& pause) {
  const double length = pause.Length();
  if (pauses_.OneLastsAgainWith(pause)) {
    for (Follower& follower : followers_) {
      if (follower.is_known && IsInASilence(follower, pause.end, length)) List(follower);
    }
  }
  const auto misses = [&](const Follower* follower) {
    return WasSending(*follower, pause.begin) || IsInASilence(*follower, pause.end, length);
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

void GapFinder::AddPause(const Pause& pause, bool is_to_a_stray) {
  const auto limit = LimitOfOneThatMissesIn(pause);
  pauses_.Part(pause, is_to_a_stray && !limit);
  if (limit) pauses_.Add(pause, *limit);
}

/// By its frame at this moment. Behind a silence that is over it decides nothing.
void GapFinder::Decide(const Follower& follower, const Moment& moment) {
  const std::size_t first = FirstPauseOf(follower);
  const std::size_t end = pauses_.Count();
  if (first == end) return;
  const std::size_t lasting = FirstLastingOf(follower, moment);
  const std::vector<Pause> decided = pauses_.Between(lasting, end);
  const bool is_common = !decided.empty() && IsOverdue(follower, moment);
  std::optional<CommonReturn> back;
  if (!decided.empty() && !is_common) back = ReturnOfTheMissing(moment);
  // Those ahead that it was sending up to are over; the rest it has no say in, and others may.
  std::size_t not_its = first;
  while (not_its < lasting && WasSending(follower, pauses_.At(not_its).begin)) ++not_its;
  pauses_.Drop(lasting, end);
  pauses_.Drop(first, not_its);
  if (is_common) {
    AddCommon(decided);
  } else if (back && back->AreSeveral()) {
    doubt_ = {decided, *std::move(back)};
  } else {
    pauses_.AreNoSilence(decided);
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
  std::vector<bool> begins(pauses_.Count() + 1, false);
  for (const Follower& follower : followers_) {
    if (follower.is_known) begins[FirstPauseOf(follower)] = true;
  }
  begins.back() = true;
  for (std::size_t first = 0; first < pauses_.Count();) {
    std::size_t end = first;
    do ++end;
    while (!begins[end]);
    if (begins[first]) DecideAtTheEndBetween(first, end);
    first = end;
  }
}

void GapFinder::DecideAtTheEndBetween(std::size_t first, std::size_t end) {
  const bool are_overdue = std::ranges::all_of(followers_, [&](const Follower& follower) {
    const std::size_t its = FirstPauseOf(follower);
    return its < first || its >= end || !MayDecide(follower, run_.Last()) ||
           IsOverdue(follower, run_.Last());
  });
  if (are_overdue && pauses_.LastsThroughItsParts(first))
    AddCommon(pauses_.PartsBetween(first, end));
}

void GapFinder::AddCommon(const std::vector<Pause>& pauses) {
  for (const Pause& pause : pauses) AddOneOfAll(pause);
}

void GapFinder::AddOneOfAll(const Pause& pause) {
  const Silence silence(pause.begin, pause.end);
  common_gaps_.Add(silence, 0.0);
  for (Follower& follower : followers_) {
    if (follower.last.To(pause.begin) < 0.0) continue;
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
    if (is_own && follower.is_known)
      result_.gaps.push_back({follower.judged->statistics, silence, {}, edge});
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
