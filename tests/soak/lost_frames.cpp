#include "tests/soak/lost_frames.h"

#include <algorithm>
#include <map>
#include <utility>

#include "tests/soak/told.h"

namespace tolvane::soak {

const CausedGap* GapOf(const Loss& loss, const std::vector<CausedGap>& gaps, std::int64_t queue) {
  const auto gap = std::ranges::find_if(gaps, [&](const CausedGap& caused) {
    const std::int64_t waited = loss.behind - caused.gap.delivered;
    return waited >= 0 && waited <= queue;
  });
  return gap == gaps.end() ? nullptr : &*gap;
}

std::string LossesByCause(const std::vector<Loss>& losses, const std::vector<CausedGap>& gaps,
                          const std::vector<Moment>& moments, std::int64_t queue) {
  struct Sum {
    std::int64_t frames = 0;
    std::int64_t places = 0;
  };
  std::map<std::string, Sum> sums;
  for (const Loss& loss : losses) {
    const CausedGap* const gap = GapOf(loss, gaps, queue);
    Sum& sum = sums[gap == nullptr ? "no gap of those that were kept" : MainCause(*gap, moments)];
    sum.frames += loss.frames;
    ++sum.places;
  }
  std::vector<std::pair<std::string, Sum>> by_frames(sums.begin(), sums.end());
  std::ranges::stable_sort(by_frames, std::ranges::greater{},
                           [](const auto& cause) { return cause.second.frames; });
  std::string text;
  for (const auto& [cause, sum] : by_frames) {
    text += (text.empty() ? "" : "; ") + Counted(sum.frames, "frame") + " at " +
            Counted(sum.places, "place") + ": " + cause;
  }
  return text;
}

}  // namespace tolvane::soak
