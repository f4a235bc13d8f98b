#include "tests/soak/memory_use.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/soak/process_watch.h"

namespace tolvane::soak {
namespace {

constexpr std::int64_t kBeganUs = 7'000'000;

/// `kb` at the end of each second from the first one on.
std::string Seconds(int count, std::int64_t kb, int from = 0) {
  std::string text;
  for (int second = from; second < from + count; ++second) {
    text += MemoryLine(kBeganUs + second * 1'000'000, kb);
  }
  return text;
}

TEST(SoakMemory, IsALineEach) { EXPECT_EQ(MemoryLine(5'000'100, 30'004), "5000100 30004\n"); }

TEST(SoakMemory, GrowthBeginsWithTheSecondMinute) {
  const MemoryUse use =
      ReadMemory(Seconds(40, 90'000) + Seconds(15, 30'000, 40) + Seconds(6, 30'500, 55) +
                 Seconds(10, 30'400, 61) + Seconds(1, 31'700, 71) + Seconds(4, 30'200, 72));
  EXPECT_EQ(use.first_kb, 30'500) << "the most of the ten seconds in which the first minute ends";
  EXPECT_EQ(use.most_kb, 31'700);
  EXPECT_EQ(use.last_kb, 30'200);
  EXPECT_EQ(use.GrownKb(), 1'200);
}

TEST(SoakMemory, ARunOfAMinuteHasNotGrown) {
  const MemoryUse use = ReadMemory(Seconds(61, 30'000));
  EXPECT_EQ(use.first_kb, 30'000);
  EXPECT_EQ(use.GrownKb(), 0);
}

TEST(SoakMemory, AWatchThatEndedEarlyTellsOfNoRun) {
  constexpr std::int64_t kTwoMinutesUs = 120'000'000;
  EXPECT_TRUE(ReadMemory(Seconds(125, 30'000)).StayedIn(kTwoMinutesUs));
  EXPECT_TRUE(ReadMemory(Seconds(116, 30'000)).StayedIn(kTwoMinutesUs));
  EXPECT_FALSE(ReadMemory(Seconds(115, 30'000)).StayedIn(kTwoMinutesUs));
  EXPECT_FALSE(ReadMemory("").StayedIn(kTwoMinutesUs));
  EXPECT_FALSE(ReadMemory(Seconds(1, 30'000)).StayedIn(kTwoMinutesUs));
  EXPECT_FALSE(ReadMemory("").StayedIn(60'000'000));
}

TEST(SoakMemory, AWatchThatSawNoMemoryTellsOfNoRun) {
  EXPECT_FALSE(ReadMemory(Seconds(125, 0)).StayedIn(120'000'000));
}

TEST(SoakMemory, AWatchThatMissedTheFirstMinutesEndTellsOfNoRun) {
  EXPECT_FALSE(ReadMemory(Seconds(40, 30'000) + Seconds(60, 30'000, 65)).StayedIn(120'000'000));
}

TEST(SoakMemory, GrowthIsJudged) {
  MemoryUse use = ReadMemory(Seconds(125, 30'000));
  use.most_kb += MemoryUse::kGrowthKb - 1;
  EXPECT_TRUE(use.StayedIn(120'000'000));
  ++use.most_kb;
  EXPECT_FALSE(use.StayedIn(120'000'000));
}

TEST(SoakMemory, TheWatchTellsWhatAProcessUses) {
  const pid_t child = fork();
  if (child == 0) {
    pause();
    _exit(0);
  }
  ProcessWatch watch(child);
  EXPECT_TRUE(watch.Look());
  EXPECT_GT(watch.ResidentKb(), 100);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace tolvane::soak
