#include "tools/log/runs/clock_jump.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "platform/memory/system/support_library.h"
#include "receive/tables/time_line.h"
#include "run/adapter_kind.h"
#include "tests/tools/log/moments.h"

namespace tolvane::logtool {
namespace {

constexpr double kWrap = AdapterTraitsOf(AdapterKind::kCanusb).timer_wrap;

/// The times that a run logs whose frames come at these moments, with the adapter's timer at
/// `origin` when the first one comes.
std::vector<double> Logged(const std::vector<double>& moments, double origin) {
  platform::memory::SupportLibrary qxt100;
  TimeLine line;
  std::vector<double> times;
  for (const double moment : moments) {
    Common_Function2::Frame_Time_Update(0, line.Time_Origin, line.Message_Time,
                                        line.Time_Last_Elapsed, std::fmod(origin + moment, kWrap),
                                        kWrap, 1.0, qxt100);
    times.push_back(line.Message_Time);
  }
  return times;
}

ClockJump Followed(const std::vector<double>& times) {
  ClockJump clock(kWrap);
  for (const double time : times) clock.Follow(time);
  return clock;
}

TEST(ClockJump, IsTakenOutToItsDoubtWhereverTheRunBegan) {
  for (const double cycle : {1.0, 3.0, 10.0, 70.0}) {
    for (const double origin : {59'990.0, 30'000.0, 12'345.0, 1'000.0}) {
      const std::vector<double> moments = MomentsEvery(cycle, 200'000.0);
      const std::vector<double> times = Logged(moments, origin);
      ASSERT_EQ(times.back() - moments.back(), origin) << "the writer jumps by its first reading";
      ClockJump clock(kWrap);
      for (std::size_t i = 0; i < times.size(); ++i) {
        clock.Follow(times[i]);
        const double mended = times[i] - clock.Ahead();
        const double doubt = clock.TheJump() ? clock.TheJump()->doubt : 0.0;
        ASSERT_NEAR(mended, moments[i], doubt) << origin << " " << cycle << " " << i;
      }
      ASSERT_TRUE(clock.TheJump()) << origin << " " << cycle;
      EXPECT_LE(clock.TheJump()->doubt, std::ceil(cycle / 2.0));
    }
  }
}

TEST(ClockJump, OfAClockThatBeganAtZeroIsNone) {
  EXPECT_FALSE(Followed(Logged(MomentsEvery(10.0, 200'000.0), 0.0)).TheJump());
}

TEST(ClockJump, IsNoneWhereTheLineGoesOnWithoutASteps) {
  EXPECT_FALSE(Followed(MomentsEvery(10.0, 200'000.0)).TheJump());
}

TEST(ClockJump, ABusThatIsOftenSilentIsLeftAlone) {
  std::vector<double> times;
  for (double begin = 0.0; begin < 200'000.0; begin += 9'000.0) {
    for (int i = 0; i < 10; ++i) times.push_back(begin + i);
  }
  EXPECT_FALSE(Followed(times).TheJump());
}

TEST(ClockJump, ALogThatBeginsLaterHasNoneAtItsFirstFrame) {
  EXPECT_FALSE(Followed({70'000, 70'010, 70'020}).TheJump());
  EXPECT_FALSE(Followed({50'000, 50'010, 90'000}).TheJump()) << "that is a silence";
}

TEST(ClockJump, HappensOnce) {
  std::vector<double> times = Logged(MomentsEvery(10.0, 100'000.0), 30'000.0);
  ClockJump clock(kWrap);
  for (const double time : times) clock.Follow(time);
  const double jump = clock.Ahead();
  clock.Follow(times.back() + 60'000.0);
  EXPECT_EQ(clock.Ahead(), jump);
}

TEST(ClockJump, OfAnUnknownAdapterIsNotLookedFor) {
  const auto wrap_of = [](const char* adapter) {
    LogHead head;
    head.adapter = adapter;
    return ClockWrapOf(head);
  };
  EXPECT_EQ(wrap_of("CANUSB ABCD \x81\x41V1.0"), 60'000.0);
  EXPECT_EQ(wrap_of("Interface PCI-485120 RevID:1 ch:1"), 429'491.0);
  EXPECT_EQ(wrap_of("Kvaser Leaf"), 0.0);
  EXPECT_EQ(wrap_of("CANUS"), 0.0);
  ClockJump clock(0.0);
  for (const double time : MomentsEvery(10.0, 1'000.0)) clock.Follow(time);
  clock.Follow(1e9);
  EXPECT_FALSE(clock.TheJump());
}

}  // namespace
}  // namespace tolvane::logtool
