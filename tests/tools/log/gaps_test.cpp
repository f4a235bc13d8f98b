#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "tests/tools/log/gaps_bed.h"

namespace tolvane::logtool {
namespace {

using Gaps = GapsBed;

TEST_F(Gaps, ACompleteLogHasNone) {
  const JudgedRun judged = Judged({{0x100, 10.0}, {0x200, 100.0}, {0x300, 1000.0}}, 60'000.0,
                                  [](auto, auto) { return false; });
  EXPECT_TRUE(judged.gaps.empty());
  ASSERT_EQ(judged.identifiers.size(), 3U);
  EXPECT_EQ(judged.identifiers[1].cycle, 100.0);
  EXPECT_EQ(judged.identifiers[1].statistics->frames, 601U);
}

TEST_F(Gaps, AnIdentifierThatStopsForAWhileIsToldByItself) {
  const JudgedRun judged = Judged(
      {{0x100, 10.0}, {0x200, 100.0}}, 60'000.0,
      [](auto id, double time) { return id == 0x200 && time > 20'000.0 && time < 22'000.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  ASSERT_NE(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].identifier->id, 0x200U);
  EXPECT_EQ(judged.gaps[0].silence.begin, 20'000.0);
  EXPECT_EQ(judged.gaps[0].silence.length, 2'000.0);
  EXPECT_EQ(judged.gaps[0].lost, 19.0);
  EXPECT_EQ(judged.gaps[0].edge, Gap::Edge::kNone);
}

TEST_F(Gaps, AreToldAtTheEdgesOfTheLogToo) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}, {0x300, 100.0}}, 60'000.0, [](auto id, double time) {
        return (id == 0x200 && time < 2'000.0) || (id == 0x300 && time > 58'000.0);
      });
  ASSERT_EQ(judged.gaps.size(), 2U);
  EXPECT_EQ(judged.gaps[0].identifier->id, 0x200U);
  EXPECT_EQ(judged.gaps[0].edge, Gap::Edge::kBegin);
  EXPECT_EQ(judged.gaps[0].silence.end, 2'000.0);
  EXPECT_EQ(judged.gaps[1].identifier->id, 0x300U);
  EXPECT_EQ(judged.gaps[1].edge, Gap::Edge::kEnd);
  EXPECT_EQ(judged.gaps[1].silence.begin, 58'000.0);
}

TEST_F(Gaps, OfAFastIdentifierThatStopsForGoodAreItsOwn) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 500.0}}, 20'000.0,
             [](auto id, double time) { return id == 0x100 && time > 10'000.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  ASSERT_EQ(Own(judged, 0x100).size(), 1U);
  EXPECT_EQ(judged.gaps[0].silence.length, 10'000.0);
  EXPECT_EQ(judged.gaps[0].edge, Gap::Edge::kEnd);
}

TEST_F(Gaps, OfAFastIdentifierThatStopsForAWhileAreItsOwn) {
  const JudgedRun judged = Judged(
      {{0x100, 10.0}, {0x200, 100.0}}, 20'000.0,
      [](auto id, double time) { return id == 0x100 && time > 10'000.0 && time < 11'000.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  ASSERT_EQ(Own(judged, 0x100).size(), 1U);
  EXPECT_EQ(judged.gaps[0].silence.length, 1'000.0);
  EXPECT_EQ(judged.gaps[0].lost, 99.0);
}

TEST_F(Gaps, OfIdentifiersThatBeginLaterAreTheirOwn) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x101, 10.0}, {0x700, 200.0}}, 120'000.0,
             [](auto id, double time) { return id != 0x700 && time < 60'000.0; });
  ASSERT_EQ(judged.gaps.size(), 2U);
  for (const std::uint32_t id : {0x100U, 0x101U}) {
    ASSERT_EQ(Own(judged, id).size(), 1U);
    EXPECT_EQ(Own(judged, id)[0].edge, Gap::Edge::kBegin);
    EXPECT_EQ(Own(judged, id)[0].silence.length, 60'000.0);
  }
}

TEST_F(Gaps, OfAnIdentifierWithVeryManyAreCounted) {
  const JudgedRun judged =
      Judged({{0x100, 1.0}, {0x200, 10.0}}, 100'000.0, [](auto id, double time) {
        return id == 0x200 && std::fmod(time, 1000.0) > 500.0 && std::fmod(time, 1000.0) < 600.0;
      });
  EXPECT_EQ(judged.gaps.size(), 64U);
  EXPECT_EQ(judged.gaps_left_out, 36U);
  EXPECT_EQ(judged.identifiers[1].gaps, 100U);
}

// Three frames close together every second, as of questions and answers: the median is 1 ms, and a
// third of the cycles 998 ms.
TEST_F(Gaps, AnIdentifierThatComesAtOddTimesHasNone) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1.0}}, 60'000.0,
             [](auto id, double time) { return id == 0x200 && std::fmod(time, 1000.0) >= 3.0; });
  EXPECT_TRUE(judged.gaps.empty());
  EXPECT_EQ(judged.identifiers[1].cycle, 1.0);
  EXPECT_FALSE(judged.identifiers[1].regular);
  EXPECT_EQ(judged.identifiers[1].gaps, 0U);
}

TEST_F(Gaps, FromThreeRegularCyclesInFourOnOneIsRegular) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1.0}}, 60'000.0,
             [](auto id, double time) { return id == 0x200 && std::fmod(time, 1000.0) >= 4.0; });
  EXPECT_TRUE(judged.identifiers[1].regular);
}

TEST_F(Gaps, SilencesThatAreOneInTwentyCyclesAreGapsAndMoreOfThemASlowerRate) {
  for (const double frames : {21.0, 20.0, 19.0}) {
    run = {};
    added.clear();
    const JudgedRun judged = Judged(
        {{0x100, 10.0}, {0x200, 1.0}}, 60'999.0,
        [&](auto id, double time) { return id == 0x200 && std::fmod(time, 1000.0) >= frames; });
    EXPECT_EQ(judged.identifiers[1].gaps, frames > 19.0 ? 60U : 0U) << frames;
  }
}

// Those as long as the limit are no gaps, and tell nothing of how alike the gaps are.
TEST_F(Gaps, CyclesAtTheLimitMakeNoSlowerRate) {
  double time = 0.0;
  const auto add = [&](double cycle, int count) {
    for (int i = 0; i < count; ++i) {
      time += cycle;
      Add(1, time);
    }
  };
  add(10.0, 800);
  add(50.0, 200);
  add(60.0, 30);
  add(1000.0, 29);
  EXPECT_EQ(Judged().identifiers[0].gaps, 59U);
}

// Of a short log, they are more than one in twenty cycles, and yet no rate.
TEST_F(Gaps, TwentySilencesThatAreAlikeAreARate) {
  for (const int silences : {19, 20}) {
    run = RunStatistics();
    added.clear();
    double time = 0.0;
    for (int silence = 0; silence < silences; ++silence, time += 90.0) {
      for (int frame = 0; frame < 15; ++frame, time += 10.0) Add(0x100, time);
    }
    Add(0x100, time);
    EXPECT_EQ(Judged().identifiers[0].gaps, silences == 19 ? 19U : 0U);
  }
}

TEST_F(Gaps, AFewSilencesThatAreAlikeAreGaps) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}}, 5500.0, [](auto id, double time) {
        const double in_turn = std::fmod(time, 1500.0);
        return id == 0x200 && time > 500.0 && in_turn > 0.0 && in_turn < 1000.0;
      });
  EXPECT_EQ(judged.identifiers[1].gaps, 3U);
  EXPECT_EQ(judged.identifiers[1].lost, 27.0);
}

// Silences of any length are no rate, however many they are.
TEST_F(Gaps, ManySilencesThatAreNotAlikeAreGaps) {
  double time = 0.0;
  for (int i = 0; i < 1000; ++i) {
    const double silences[] = {60.0, 500.0, 4000.0, 30'000.0};
    time += i % 10 == 9 ? silences[i / 10 % 4] : 10.0;
    Add(1, time);
  }
  EXPECT_EQ(Judged().identifiers[0].gaps, 100U);
}

TEST_F(Gaps, OfASlowerRateAreLongForThat) {
  double time = 0.0;
  for (int i = 0; i < 7500; ++i) {
    time += i < 6000 ? 10.0 : 100.0;
    if (i == 7000) time += 300.0;
    if (i == 7200) time += 500.0;
    Add(1, time);
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].silence.length, 600.0);
  EXPECT_EQ(judged.gaps[0].lost, 5.0);
}

// A burst, as of a block of data, says nothing of what would have come in the rest of the hour.
TEST_F(Gaps, AtTheEdgesOfTheLogNobodyKnowsWhatWasLost) {
  const JudgedRun judged =
      Judged({{0x100, 100.0}, {0x700, 10.0}}, 3'600'000.0, [](auto id, double time) {
        return id == 0x700 && (time < 1'800'000.0 || time >= 1'800'200.0);
      });
  ASSERT_EQ(judged.gaps.size(), 2U);
  for (const Gap& gap : judged.gaps) {
    EXPECT_NE(gap.edge, Gap::Edge::kNone);
    EXPECT_FALSE(gap.lost);
  }
}

// As of a button that was pressed three times, evenly apart by chance.
TEST_F(Gaps, AtTheEdgesOfTheLogAreNoneOfAnIdentifierOfFewCycles) {
  for (const double presses : {5.0, 6.0}) {
    run = {};
    added.clear();
    const JudgedRun judged = Judged({{0x100, 0.0, 3'600'000.0, 100.0},
                                     {0x200, 10'000.0, 9'000.0 + presses * 1'000.0, 1'000.0}});
    ASSERT_TRUE(judged.identifiers[1].regular);
    EXPECT_EQ(judged.gaps.size(), presses > 5.0 ? 2U : 0U);
  }
}

TEST_F(Gaps, OfOneIdentifierAreToldBesideAnyNumberOfAll) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 12.5}}, 1'099'990.0, [](auto id, double time) {
        const bool is_alone = id == 0x200 && std::fmod(time, 100'000.0) >= 50'000.0 &&
                              std::fmod(time, 100'000.0) < 50'300.0;
        return std::fmod(time, 1000.0) >= 400.0 || is_alone;
      });
  std::uint64_t own = 0;
  for (const Gap& gap : judged.gaps) {
    if (gap.identifier == nullptr) continue;
    ++own;
    EXPECT_EQ(gap.identifier->id, 0x200U);
    EXPECT_EQ(std::fmod(gap.silence.end, 100'000.0), 50'300.0);
  }
  EXPECT_EQ(own, 11U);
  EXPECT_EQ(judged.gaps.size() + judged.gaps_left_out, 1099U + 11U);
}

TEST_F(Gaps, AreNotJudgedWhereNoIdentifierIsRegular) {
  const JudgedRun judged = Judged({{0x200, 1.0}}, 60'000.0,
                                  [](auto, double time) { return std::fmod(time, 1000.0) >= 3.0; });
  EXPECT_FALSE(judged.is_judged);
  EXPECT_TRUE(judged.gaps.empty());
}

TEST_F(Gaps, AJumpOfTheClockIsInNoCycleAndNoSilence) {
  const auto add = [&](double time, std::uint32_t id, double ahead) {
    Add({.time = time, .id = id, .extended = false, .bytes = 0, .length = 0, .data = {}}, ahead);
  };
  for (double time = 0.0; time < 1000.0; time += 10.0) add(time, 0x100, 0.0);
  for (double time = 1000.0; time < 2000.0; time += 10.0) {
    add(time + 30'000.0, 0x100, 30'000.0);
    add(time + 30'000.0, 0x200, 30'000.0);
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U) << "of the one that came later";
  EXPECT_EQ(judged.gaps[0].identifier->id, 0x200U);
  EXPECT_EQ(judged.gaps[0].silence.end, 31'000.0);
  EXPECT_EQ(judged.gaps[0].silence.length, 1'000.0);
  EXPECT_EQ(judged.identifiers[0].statistics->cycles.Longest(), 10.0);
  EXPECT_EQ(judged.identifiers[0].gaps, 0U);
}

TEST_F(Gaps, StandInTheOrderInWhichTheyCameWhateverTheClockTold) {
  const auto add = [&](double begin, double end, double ahead) {
    for (double time = begin; time <= end; time += 10.0) {
      const double told = time + ahead;
      Add({.time = told, .id = 0x100, .extended = false, .bytes = 0, .length = 0, .data = {}},
          ahead);
    }
  };
  add(0.0, 10'000.0, 0.0);
  add(12'000.0, 20'000.0, 0.0);
  add(20'010.0, 22'000.0, -1'000'000.0);
  add(25'000.0, 30'000.0, -1'000'000.0);
  const std::vector<std::pair<double, double>> ends = {{10'000.0, 12'000.0},
                                                       {-978'000.0, -975'000.0}};
  EXPECT_EQ(Ends(Judged().gaps), ends);
}

TEST_F(Gaps, ALoneFrameHasNoCycleAndNoGap) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1e6}}, 60'000.0, [](auto, auto) { return false; });
  EXPECT_TRUE(judged.gaps.empty());
  EXPECT_EQ(judged.identifiers[1].cycle, 0.0);
}

TEST_F(Gaps, ATimeThatStepsBackIsNoCycle) {
  for (const double time : {0.0, 10.0, 20.0, 5.0, 15.0}) {
    Add(1, time);
  }
  EXPECT_EQ(run.StepsBack(), 1U);
  EXPECT_EQ(Judged().identifiers[0].statistics->cycles.Longest(), 10.0);
}

// A pause of the time ahead of the step stands ahead of nothing that comes behind it.
TEST_F(Gaps, BehindATimeThatStepsBackAreThoseOfAllAgain) {
  const auto add = [&](std::uint32_t id, double begin, double end) {
    for (double time = begin; time <= end; time += 10.0) Add(id, time);
  };
  add(0x100, 0.0, 10'000.0);
  add(0x200, 12'000.0, 20'000.0);
  add(0x200, 5'000.0, 6'000.0);
  add(0x200, 8'000.0, 9'000.0);
  const JudgedRun judged = Judged();
  const std::vector<std::pair<double, double>> again = {{6'000.0, 8'000.0}};
  EXPECT_EQ(Ends(Common(judged)), again);
  EXPECT_EQ(Own(judged, 0x200).size(), 1U) << "until its first frame";
}

TEST_F(Gaps, OfAllStayWhereATimeStepsBackBehindThem) {
  for (double time = 0.0; time <= 10'000.0; time += 10.0) Add(0x100, time);
  for (double time = 40'000.0; time <= 60'000.0; time += 10.0) {
    Add(0x200, time == 50'000.0 ? 49'980.0 : time);
  }
  EXPECT_EQ(run.StepsBack(), 1U);
  const std::vector<std::pair<double, double>> ahead = {{10'000.0, 40'000.0}};
  EXPECT_EQ(Ends(Common(Judged())), ahead);
}

}  // namespace
}  // namespace tolvane::logtool
