#include "tests/fuzz/judged_gaps.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "tests/fuzz/input.h"
#include "tools/log/info/gaps.h"

namespace tolvane::fuzz {

namespace {

using namespace tolvane::logtool;

/// An identifier of so many may be one that strays into a silence.
constexpr std::size_t kFewFrames = 5;

/// What is told of one identifier, and its frames.
struct Told {
  const JudgedIdentifier* judged = nullptr;
  std::vector<Moment> moments;
  std::vector<const Gap*> own;
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
  return around.length > std::min(1.5, multiple) * its.judged->slow && around.end >= moment &&
         around.end <= moment + its.judged->slow;
}

/// The pauses of the bus that are too long for anyone, whoever was sending then.
std::vector<Silence> LongPauses(const std::vector<LogFrame>& frames, const ToldOfAll& told,
                                double multiple) {
  double least = HUGE_VAL;  // ms
  for (const auto& [key, its] : told) {
    if (its.judged->regular) least = std::min(least, multiple * its.judged->slow);
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
  return alive <= (multiple * its.judged->slow + 0.1 * missing) * (1 + 1e-9);
}

/// A silence between two frames of the run that follow one another, too long for one that came
/// shortly ahead of it, and the first one that comes back behind it, be it at the run's end, is not
/// one that comes at its time; or two others at least are back shortly behind that.
void JudgeOneOfAll(const Gap& gap, const ToldOfAll& told, const std::vector<Silence>& pauses,
                   const Moment& end, double multiple) {
  const Silence& silence = gap.silence;
  bool is_too_long = false;
  double overdue = HUGE_VAL;      // ms, when the first one is back
  double at_its_time = HUGE_VAL;  // of those that certainly decide
  std::vector<std::pair<Silence, const Told*>> around_it;
  for (const auto& [key, its] : told) {
    if (!its.judged->regular) continue;
    const bool is_missing =
        its.moments.size() > kFewFrames && silence.length > multiple * its.judged->slow;
    for (std::size_t i = 1; i <= its.moments.size(); ++i) {
      const Silence around(its.moments[i - 1], i < its.moments.size() ? its.moments[i] : end);
      Require(!(around.begin > silence.begin && around.begin < silence.end));
      if (!IsWithin(silence, around)) continue;
      around_it.emplace_back(around, &its);
      is_too_long =
          is_too_long || (is_missing && WasSendingUpTo(silence, around, its, pauses, multiple));
      if (around.length > std::min(1.5, multiple) * its.judged->slow) {
        overdue = std::min(overdue, around.end);
      } else if (its.moments.size() > kFewFrames) {
        at_its_time = std::min(at_its_time, around.end);
      }
    }
  }
  const auto back = std::ranges::count_if(around_it, [&](const auto& one) {
    return IsBackShortlyBehind(at_its_time, one.first, *one.second, multiple);
  });
  Require(is_too_long && (overdue <= at_its_time || back >= 2));
  Require(gap.lost.value_or(1.0) > 0.0 && gap.edge == Gap::Edge::kNone);
}

void JudgeOwn(const Told& its, double multiple) {
  for (const Gap* const gap : its.own) {
    Require(its.judged->regular);
    Require(gap->silence.length > multiple * its.judged->slow);
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
  const double limit = multiple * its.judged->slow;
  std::size_t own = 0;
  for (std::size_t i = 1; i < its.moments.size(); ++i) {
    const Silence silence(its.moments[i - 1], its.moments[i]);
    if (silence.length <= limit) continue;
    double common = 0.0;
    for (const Gap* const gap : of_all) {
      if (IsWithin(gap->silence, silence) && gap->silence.length > its.judged->cycle)
        common += gap->silence.length;
    }
    const bool is_told = std::ranges::any_of(its.own, [&](const Gap* gap) {
      return gap->silence.begin == silence.begin && gap->silence.end == silence.end;
    });
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
  Require(of_gaps == of_identifiers || std::abs(of_gaps - of_identifiers) <= 1e-9 * of_identifiers);
}

}  // namespace

void JudgeGaps(const std::vector<LogFrame>& frames, double multiple) {
  RunStatistics statistics;
  for (const LogFrame& frame : frames) statistics.Add(frame, 0.0);
  GapFinder finder(statistics, multiple);
  for (const LogFrame& frame : frames) finder.Add(frame, 0.0);
  const JudgedRun run = finder.Result();
  const ToldOfAll told = ByIdentifier(frames, run);
  for (const auto& [key, its] : told) JudgeOwn(its, multiple);
  // Of frames whose times step back nobody says what lies between them.
  if (statistics.StepsBack() > 0 || run.gaps_left_out > 0) return;
  std::vector<const Gap*> of_all;
  for (const Gap& gap : run.gaps) {
    if (gap.identifier == nullptr) of_all.push_back(&gap);
  }
  const std::vector<Silence> pauses = LongPauses(frames, told, multiple);
  for (const Gap* const gap : of_all) {
    JudgeOneOfAll(*gap, told, pauses, statistics.Last(), multiple);
  }
  for (const auto& [key, its] : told) JudgeThatNoneIsHidden(its, of_all, multiple);
  JudgeTheSums(run);
}

}  // namespace tolvane::fuzz
