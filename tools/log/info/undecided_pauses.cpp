#include "tools/log/info/undecided_pauses.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tolvane::logtool {

namespace {

/// Part that pauses have at least in the time of a silence, where they are one that others part.
constexpr double kMost = 0.9;

bool BeginTogether(const Pause& one, const Pause& other) {
  return one.begin.To(other.begin) == 0.0;
}

}  // namespace

bool UndecidedPauses::Undecided::Lasts(const Moment& moment, double another) const {
  return silent + another >= kMost * parts.front().begin.To(moment);
}

template <typename IsOut>
void UndecidedPauses::Undecided::TakeOut(IsOut is_out) {
  parts.erase(std::remove_if(parts.begin() + 1, parts.end(), is_out), parts.end());
  silent = std::accumulate(parts.begin(), parts.end(), 0.0,
                           [](double sum, const Pause& part) { return sum + part.Length(); });
}

std::vector<Pause> UndecidedPauses::Between(std::size_t first, std::size_t end) const {
  std::vector<Pause> pauses;
  for (std::size_t place = first; place < end; ++place) pauses.push_back(At(place));
  return pauses;
}

std::vector<Pause> UndecidedPauses::PartsBetween(std::size_t first, std::size_t end) const {
  std::vector<Pause> pauses = Between(first, end);
  std::erase_if(pauses, [&](const Pause& pause) {
    return std::ranges::none_of(undecided_[first].parts,
                                [&](const Pause& part) { return BeginTogether(part, pause); });
  });
  return pauses;
}

std::size_t UndecidedPauses::FirstFrom(const Moment& moment) const {
  std::size_t place = 0;
  while (place < Count() && moment.To(At(place).begin) < 0.0) ++place;
  return place;
}

bool UndecidedPauses::LastsThroughItsParts(std::size_t place) const {
  return Lasts(place, undecided_[place].parts.back().end);
}

bool UndecidedPauses::OneLastsAgainWith(const Pause& pause) {
  const double length = pause.Length();
  bool lasts_again = false;
  for (Undecided& begun : undecided_) {
    if (length <= begun.limit) continue;
    const bool lasted = std::exchange(begun.lasted, begun.Lasts(pause.end, length));
    lasts_again = lasts_again || (begun.lasted && !lasted);
  }
  return lasts_again;
}

void UndecidedPauses::Part(const Pause& pause, bool is_to_a_stray_alone) {
  const double length = pause.Length();
  for (Undecided& begun : undecided_) {
    if (length <= begun.limit) continue;
    if (!is_to_a_stray_alone && !begun.Lasts(pause.end, length)) continue;
    begun.silent += length;
    begun.parts.push_back(pause);
  }
  std::erase_if(undecided_, [](const Undecided& begun) { return begun.parts.size() > kParts_MAX; });
}

void UndecidedPauses::Add(const Pause& pause, double limit) {
  if (Count() >= kPauses_MAX) {
    undecided_.erase(std::ranges::min_element(undecided_, {}, [&](const Undecided& begun) {
      return std::pair(begun.Lasts(pause.end, 0.0), begun.parts.front().Length());
    }));
  }
  undecided_.push_back({.limit = limit, .silent = pause.Length(), .parts = {pause}});
}

void UndecidedPauses::Drop(std::size_t first, std::size_t end) {
  undecided_.erase(undecided_.begin() + static_cast<std::ptrdiff_t>(first),
                   undecided_.begin() + static_cast<std::ptrdiff_t>(end));
}

void UndecidedPauses::AreNoSilence(const std::vector<Pause>& pauses) {
  for (Undecided& begun : undecided_) {
    begun.TakeOut([&](const Pause& part) {
      return std::ranges::any_of(pauses,
                                 [&](const Pause& pause) { return BeginTogether(part, pause); });
    });
  }
}

void UndecidedPauses::StepBackTo(const Moment& moment) {
  const auto is_behind = [&](const Pause& pause) { return moment.To(pause.begin) > 0.0; };
  std::erase_if(undecided_, [&](const Undecided& begun) { return is_behind(begun.parts.front()); });
  for (Undecided& begun : undecided_) begun.TakeOut(is_behind);
}

}  // namespace tolvane::logtool
