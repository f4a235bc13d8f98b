#include "tests/fuzz/judged_gaps.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/fuzz/input.h"
#include "tools/log/info/gaps.h"

namespace tolvane::fuzz {

namespace {

using namespace tolvane::logtool;

/// An identifier of so many may be one that strays into a silence.
constexpr std::size_t kFewFrames = 5;

/// What is reckoned may differ from what is read by so much of it.
constexpr double kSlack = 1e-9;

/// The gaps that are found in frames, each of which may come from a clock that is ahead.
struct Finding {
  Finding(const std::vector<LogFrame>& frames, const std::vector<double>& aheads, double multiple) {
    for (std::size_t i = 0; i < frames.size(); ++i) statistics.Add(frames[i], aheads[i]);
    GapFinder finder(statistics, multiple);
    for (std::size_t i = 0; i < frames.size(); ++i) finder.Add(frames[i], aheads[i]);
    run = finder.Result();
  }

  RunStatistics statistics;
  JudgedRun run;
};

/// What is told of one identifier, and its frames.
struct Told {
  const JudgedIdentifier* judged = nullptr;
  std::vector<Moment> moments;
  std::vector<const Gap*> own;

  /// Silences that are longer are gaps; ms.
  [[nodiscard]] double Limit(double multiple) const { return multiple * judged->slow; }
  /// After one that is longer it does not come at its time; ms.
  [[nodiscard]] double Overdue(double multiple) const {
    return std::min(1.5, multiple) * judged->slow;
  }
  /// Whether its frame tells of any silence.
  [[nodiscard]] bool Decides() const { return judged->regular && moments.size() > kFewFrames; }
};

using ToldOfAll = std::map<std::uint64_t, Told>;

ToldOfAll ByIdentifier(const std::vector<LogFrame>& frames, const JudgedRun& run) {
  ToldOfAll told;
  for (const JudgedIdentifier& judged : run.identifiers) {
    told[judged.statistics->Key()].judged = &judged;
  }
  for (const LogFrame& frame : frames) {
    told.at(KeyOf(frame.extended, frame.id)).moments.push_back({frame.time, 0.0});
  }
  for (const Gap& gap : run.gaps) {
    if (gap.identifier != nullptr) told.at(gap.identifier->Key()).own.push_back(&gap);
  }
  return told;
}

bool IsWithin(const Silence& inner, const Silence& outer) {
  return inner.begin >= outer.begin && inner.end <= outer.end;
}

/// Whether one that is overdue is back within its own cycle behind that moment, ms.
bool IsBackShortlyBehind(double moment, const Silence& around, const Told& its, double multiple) {
  return around.length > its.Overdue(multiple) && around.end >= moment &&
         around.end <= moment + its.judged->slow;
}

/// The pauses of the bus that are too long for anyone, whoever was sending then.
std::vector<Silence> LongPauses(const std::vector<LogFrame>& frames, const ToldOfAll& told,
                                double multiple) {
  double least = HUGE_VAL;  // ms
  for (const auto& [key, its] : told) {
    if (its.judged->regular) least = std::min(least, its.Limit(multiple));
  }
  std::vector<Silence> pauses;
  for (std::size_t i = 1; i < frames.size(); ++i) {
    const Silence pause({frames[i - 1].time, 0.0}, {frames[i].time, 0.0});
    if (pause.length > least) pauses.push_back(pause);
  }
  return pauses;
}

/// Whether one that is missing in `around` was sending up to this part of it: to its end there are
/// little but such pauses.
bool WasSendingUpTo(const Silence& silence, const Silence& around, const Told& its,
                    const std::vector<Silence>& pauses, double multiple) {
  const double missing = silence.end - around.begin;
  double alive = missing;  // ms
  for (const Silence& pause : pauses) {
    if (pause.begin >= around.begin && pause.end <= silence.end) alive -= pause.length;
  }
  return alive <= (its.Limit(multiple) + 0.1 * missing) * (1 + kSlack);
}

/// A silence that is too long for one that came shortly ahead of it, and the first one that comes
/// back behind it, be it at the run's end, is not one that comes at its time; or two others at
/// least are back shortly behind that, one of whom may have been seen first in a later part.
void JudgeOneOfAll(const Gap& gap, const ToldOfAll& told, const std::vector<Silence>& pauses,
                   const Moment& end, double multiple) {
  const Silence& silence = gap.silence;
  bool is_too_long = false;
  double overdue = HUGE_VAL;      // ms, when the first one is back
  double at_its_time = HUGE_VAL;  // of those that certainly decide
  std::vector<std::pair<Silence, const Told*>> arounds;
  for (const auto& [key, its] : told) {
    if (!its.judged->regular) continue;
    const bool is_missing = its.Decides() && silence.length > its.Limit(multiple);
    for (std::size_t i = 1; i <= its.moments.size(); ++i) {
      const Silence around(its.moments[i - 1], i < its.moments.size() ? its.moments[i] : end);
      Require(!(around.begin > silence.begin && around.begin < silence.end));
      arounds.emplace_back(around, &its);
      if (!IsWithin(silence, around)) continue;
      is_too_long =
          is_too_long || (is_missing && WasSendingUpTo(silence, around, its, pauses, multiple));
      if (around.length > its.Overdue(multiple)) {
        overdue = std::min(overdue, around.end);
      } else if (its.Decides()) {
        at_its_time = std::min(at_its_time, around.end);
      }
    }
  }
  const auto back = std::ranges::count_if(arounds, [&](const auto& one) {
    return IsBackShortlyBehind(at_its_time, one.first, *one.second, multiple);
  });
  Require(is_too_long && (overdue <= at_its_time || back >= 2));
  Require(gap.lost.value_or(1.0) > 0.0 && gap.edge == Gap::Edge::kNone);
}

/// Each from one frame of the run to the next, and none of them twice.
void JudgeThatThoseOfAllArePauses(const std::vector<LogFrame>& frames,
                                  const std::vector<const Gap*>& of_all) {
  double last_end = -HUGE_VAL;
  for (const Gap* const gap : of_all) {
    const auto next = std::ranges::upper_bound(frames, gap->silence.begin, {}, &LogFrame::time);
    Require(next != frames.begin() && next != frames.end());
    Require(std::prev(next)->time == gap->silence.begin && next->time == gap->silence.end);
    Require(gap->silence.begin >= last_end);
    last_end = gap->silence.end;
  }
}

bool IsTold(const Silence& silence, const std::vector<const Gap*>& gaps) {
  return std::ranges::any_of(gaps, [&](const Gap* gap) {
    return gap->silence.begin == silence.begin && gap->silence.end == silence.end;
  });
}

/// What one that was sending up to it ends, and comes too late then, is told of all, if it is too
/// long for anyone who was sending up to it, whatever else is undecided or over.
void JudgeThatThoseOfAllAreTold(const std::vector<LogFrame>& frames, const ToldOfAll& told,
                                const std::vector<const Gap*>& of_all, double multiple) {
  std::map<const Told*, double> last;  // frames of those who decide
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const Told& its = told.at(KeyOf(frames[i].extended, frames[i].id));
    const Silence pause({frames[i > 0 ? i - 1 : 0].time, 0.0}, {frames[i].time, 0.0});
    const auto was_sending = [&](const auto& one) {
      return pause.begin - one.second <= one.first->Limit(multiple) * (1 - kSlack);
    };
    const auto is_missing = [&](const auto& one) {
      return was_sending(one) && pause.length > one.first->Limit(multiple) * (1 + kSlack);
    };
    const auto before = last.find(&its);
    if (before != last.end() && was_sending(*before) &&
        pause.length > its.Overdue(multiple) * (1 + kSlack) &&
        std::ranges::any_of(last, is_missing)) {
      Require(IsTold(pause, of_all));
    }
    if (its.Decides()) last[&its] = frames[i].time;
  }
}

/// Where one identifier alone is regular, nobody but that has a say in its silences: of one that is
/// mostly of pauses when it comes back, the first of these is told of all, and so is the last one,
/// whatever parts them.
void JudgeThatPartedOnesAreTold(const ToldOfAll& told, const std::vector<Silence>& pauses,
                                const std::vector<const Gap*>& of_all, double multiple) {
  const auto is_regular = [](const auto& one) { return one.second.judged->regular; };
  if (std::ranges::count_if(told, is_regular) != 1) return;
  const Told& its = std::ranges::find_if(told, is_regular)->second;
  if (!its.Decides() || pauses.size() > UndecidedPauses::kPauses_MAX) return;
  for (std::size_t i = 1; i < its.moments.size(); ++i) {
    const Silence around(its.moments[i - 1], its.moments[i]);
    std::vector<Silence> parts;
    std::ranges::copy_if(pauses, std::back_inserter(parts),
                         [&](const Silence& pause) { return IsWithin(pause, around); });
    if (parts.empty() || parts.size() > UndecidedPauses::kParts_MAX) continue;
    const double begin = parts.front().begin;
    double silent = 0.0;
    for (const Silence& part : parts) silent += part.length;
    if (begin - around.begin > its.Limit(multiple) * (1 - kSlack)) continue;
    if (silent < 0.9 * (around.end - begin) * (1 + kSlack)) continue;
    Require(IsTold(parts.front(), of_all));
    Require(parts.back().end < around.end || IsTold(parts.back(), of_all));
  }
}

void JudgeOwn(const Told& its, double multiple) {
  for (const Gap* const gap : its.own) {
    Require(its.judged->regular);
    Require(gap->silence.length > its.Limit(multiple));
    Require(gap->edge == Gap::Edge::kNone || its.Decides());
    const double lost = std::max(0.0, std::round(gap->silence.length / its.judged->slow) - 1.0);
    Require(gap->edge == Gap::Edge::kNone ? gap->lost == lost : !gap->lost);
  }
}

/// Each silence of a regular identifier that is long enough is told as its own, or is not as long
/// without those of all in it that are longer than its cycle; so the numbers agree where there are
/// none of all.
void JudgeThatNoneIsHidden(const Told& its, const std::vector<const Gap*>& of_all,
                           double multiple) {
  if (!its.judged->regular) return;
  const double limit = its.Limit(multiple);
  std::size_t own = 0;
  for (std::size_t i = 1; i < its.moments.size(); ++i) {
    const Silence silence(its.moments[i - 1], its.moments[i]);
    if (silence.length <= limit) continue;
    double common = 0.0;
    for (const Gap* const gap : of_all) {
      if (IsWithin(gap->silence, silence) && gap->silence.length > its.judged->cycle)
        common += gap->silence.length;
    }
    const bool is_told = IsTold(silence, its.own);
    const bool is_own = silence.length - common > limit;
    // One of few frames may be back before a silence in which it was missing too is known as one of
    // all.
    Require(is_told == is_own || (is_told && its.moments.size() <= kFewFrames));
    own += is_told ? 1 : 0;
  }
  const auto edges =
      std::ranges::count_if(its.own, [](const Gap* gap) { return gap->edge != Gap::Edge::kNone; });
  Require(own + static_cast<std::size_t>(edges) == its.own.size());
}

/// What the gaps have lost together is what the identifiers have, each frame once.
void JudgeTheSums(const JudgedRun& run) {
  double of_gaps = 0.0;
  for (const Gap& gap : run.gaps) {
    if (gap.edge == Gap::Edge::kNone) of_gaps += gap.lost.value_or(0.0);
  }
  double of_identifiers = 0.0;
  for (const JudgedIdentifier& judged : run.identifiers) of_identifiers += judged.lost;
  Require(of_gaps == of_identifiers ||
          std::abs(of_gaps - of_identifiers) <= kSlack * of_identifiers);
}

/// A gap with its ends by another clock.
using Row = std::tuple<double, double, std::uint64_t, double, double, Gap::Edge>;

std::vector<Row> RowsOf(const JudgedRun& run, const std::map<double, double>& clock) {
  std::vector<Row> rows;
  for (const Gap& gap : run.gaps) {
    rows.emplace_back(clock.at(gap.silence.begin), clock.at(gap.silence.end),
                      gap.identifier == nullptr ? 0 : gap.identifier->Key() + 1, gap.silence.length,
                      gap.lost.value_or(-1.0), gap.edge);
  }
  std::ranges::sort(rows);
  return rows;
}

}  // namespace

void JudgeGaps(const std::vector<LogFrame>& frames, double multiple) {
  const Finding finding(frames, std::vector<double>(frames.size(), 0.0), multiple);
  const ToldOfAll told = ByIdentifier(frames, finding.run);
  for (const auto& [key, its] : told) JudgeOwn(its, multiple);
  // Of frames whose times step back nobody says what lies between them.
  if (finding.statistics.StepsBack() > 0 || finding.run.gaps_left_out > 0) return;
  std::vector<const Gap*> of_all;
  for (const Gap& gap : finding.run.gaps) {
    if (gap.identifier == nullptr) of_all.push_back(&gap);
  }
  const std::vector<Silence> pauses = LongPauses(frames, told, multiple);
  JudgeThatThoseOfAllArePauses(frames, of_all);
  for (const Gap* const gap : of_all) {
    JudgeOneOfAll(*gap, told, pauses, finding.statistics.Last(), multiple);
  }
  JudgeThatThoseOfAllAreTold(frames, told, of_all, multiple);
  JudgeThatPartedOnesAreTold(told, pauses, of_all, multiple);
  for (const auto& [key, its] : told) JudgeThatNoneIsHidden(its, of_all, multiple);
  JudgeTheSums(finding.run);
}

void JudgeJumps(const std::vector<LogFrame>& frames, std::size_t between, double multiple) {
  constexpr double kJump = 1e6;  // ms; longer than all frames together
  std::vector<LogFrame> jumping = frames;
  std::vector<double> aheads;
  std::map<double, double> steady;
  std::map<double, double> mended;
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const std::size_t jumps = i / between;
    aheads.push_back(kJump * static_cast<double>(jumps) * (jumps % 2 == 0 ? 1.0 : -1.0));
    jumping[i].time += aheads.back();
    steady[frames[i].time] = frames[i].time;
    mended[jumping[i].time] = frames[i].time;
  }
  const Finding plain(frames, std::vector<double>(frames.size(), 0.0), multiple);
  const Finding other(jumping, aheads, multiple);
  Require(plain.run.gaps_left_out == other.run.gaps_left_out);
  Require(RowsOf(plain.run, steady) == RowsOf(other.run, mended));
}

}  // namespace tolvane::fuzz
