#include "tests/soak/lost_frames.h"

#include <gtest/gtest.h>

namespace tolvane::soak {
namespace {

constexpr std::int64_t kQueue = 512;

TEST(SoakLosses, BelongToTheLongestGapAheadInWhichTheQueueMayHaveRunFull) {
  const std::vector<CausedGap> gaps = {{{.us = 9'000, .delivered = 600}, kFlush},
                                       {{.us = 8'000, .delivered = 100}, kEvents}};
  EXPECT_EQ(GapOf({.behind = 600, .frames = 1}, gaps, kQueue), &gaps[0]);
  EXPECT_EQ(GapOf({.behind = 1'112, .frames = 1}, gaps, kQueue), &gaps[0]);
  EXPECT_EQ(GapOf({.behind = 1'113, .frames = 1}, gaps, kQueue), nullptr);
  EXPECT_EQ(GapOf({.behind = 599, .frames = 1}, gaps, kQueue), &gaps[1]);
}

TEST(SoakLosses, AreAddedUpByCauseHoweverManyThereAre) {
  std::vector<CausedGap> gaps;
  std::vector<Loss> losses;
  std::vector<Moment> moments;
  for (std::int64_t i = 1; i <= 30; ++i) {
    const std::int64_t at = i * 10'000;
    gaps.push_back(
        {{.us = 20'000, .delivered = at, .at_us = i * 1'000'000}, i <= 20 ? kFlush : kEvents});
    losses.push_back({.behind = at + kQueue, .frames = 2});
    // Every second one of the flushes had no processor for half of its time.
    if (i <= 20 && i % 2 == 0) {
      moments.push_back({.at_us = i * 1'000'000, .over_us = 12'000, .waited_us = 10'000});
    }
  }
  losses.push_back({.behind = 999'999, .frames = 70});
  EXPECT_EQ(LossesByCause(losses, gaps, moments, kQueue),
            "70 frames at 1 place: no gap of those that were kept; "
            "20 frames at 10 places: events (tick with its paint, clicks); "
            "20 frames at 10 places: flush; "
            "20 frames at 10 places: flush, mostly without a processor");
  EXPECT_EQ(LossesByCause({}, gaps, moments, kQueue), "");
}

}  // namespace
}  // namespace tolvane::soak
