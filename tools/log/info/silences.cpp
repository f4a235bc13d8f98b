#include "tools/log/info/silences.h"

#include <algorithm>
#include <tuple>

namespace tolvane::logtool {

namespace {

std::tuple<double, double> Rank(const Silence& silence) {
  return {silence.length, -silence.passed};
}

bool StaysLonger(const LongestSilences::Kept& one, const LongestSilences::Kept& other) {
  return Rank(one.silence) > Rank(other.silence);
}

}  // namespace

void LongestSilences::Add(const Silence& silence, double lost) {
  ++count_;
  if (kept_.size() == most_) {
    if (IsTooShort(silence)) return;
    std::ranges::pop_heap(kept_, StaysLonger);
    kept_.pop_back();
  }
  kept_.push_back({silence, lost});
  std::ranges::push_heap(kept_, StaysLonger);
}

void LongestSilences::Lose(const Silence& silence, double lost) {
  if (kept_.size() == most_ && IsTooShort(silence)) return;
  const auto kept =
      std::ranges::find(kept_, silence.passed, [](const Kept& one) { return one.silence.passed; });
  if (kept != kept_.end()) kept->lost += lost;
}

bool LongestSilences::IsTooShort(const Silence& silence) const {
  return Rank(silence) < Rank(kept_.front().silence);
}

}  // namespace tolvane::logtool
