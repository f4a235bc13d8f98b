#include "tests/soak/moments.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/soak/process_watch.h"

namespace tolvane::soak {
namespace {

constexpr Moment kMoment{
    .at_us = 5'000'100, .over_us = 1'050, .waited_us = 700, .grown_kb = -4, .asleep_us = 350};

TEST(SoakMoments, AreALineEach) {
  EXPECT_EQ(MomentLine(kMoment), "5000100 1050 700 -4 350\n");
  EXPECT_EQ(
      ReadMoments("5000100 1050 700 -4 350\nno moment\n1 2 3 4 5 6\n1 2 3 4\n9 8 7 6 0\n7 7"),
      (std::vector<Moment>{kMoment, {.at_us = 9, .over_us = 8, .waited_us = 7, .grown_kb = 6}}));
}

TEST(SoakMoments, ThoseThatTouchAGapBelongToIt) {
  const std::vector<Moment> moments = {
      {.at_us = 900, .over_us = 100, .waited_us = 1},
      {.at_us = 1'100, .over_us = 200, .waited_us = 10},
      {.at_us = 1'500, .over_us = 100, .grown_kb = 8, .asleep_us = 40},
      {.at_us = 2'100, .over_us = 200, .waited_us = 20, .asleep_us = 180},
      {.at_us = 2'300, .over_us = 300, .waited_us = 100}};
  EXPECT_EQ(
      Within({.us = 1'000, .at_us = 2'000}, moments),
      (Moment{.at_us = 2'000, .over_us = 1'000, .waited_us = 30, .grown_kb = 8, .asleep_us = 40}))
      << "where it slept behind the gap is not the gap's";
}

TEST(SoakMoments, NoTimeIsLongerThanTheGap) {
  const Moment within = Within({.us = 50, .at_us = 1'000},
                               {{.at_us = 990, .over_us = 900, .waited_us = 30, .asleep_us = 800}});
  EXPECT_EQ(within.waited_us, 30);
  EXPECT_EQ(within.asleep_us, 20);
}

TEST(SoakMoments, TheWatchSeesAProcessSleepAndEnd) {
  const pid_t child = fork();
  if (child == 0) {
    pause();
    _exit(0);
  }
  ProcessWatch watch(child);
  // Until the child is in its pause.
  std::optional<Moment> moment = watch.Look();
  for (int look = 0; look < 10'000 && moment && moment->asleep_us == 0; ++look) {
    usleep(1'000);
    moment = watch.Look();
  }
  ASSERT_TRUE(moment);
  EXPECT_GT(moment->asleep_us, 0);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_FALSE(watch.Look());
}

}  // namespace
}  // namespace tolvane::soak
