#include "tools/log/info/info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/tools/log/written_log.h"
#include "tools/log/info/report.h"

namespace tolvane::logtool {
namespace {

TEST(CycleStatistics, TheMedianIsTheOneInTheMiddleOfASort) {
  std::mt19937 random(1);
  for (const int count : {1, 2, 3, 10, 1001, 5000}) {
    CycleStatistics statistics;
    std::vector<double> cycles;
    for (int i = 0; i < count; ++i) {
      cycles.push_back(static_cast<double>(random() % 1500));
      statistics.Add(cycles.back());
    }
    std::ranges::sort(cycles);
    EXPECT_EQ(statistics.Median(), cycles[(cycles.size() - 1) / 2]) << count;
    EXPECT_EQ(statistics.Least(), cycles.front());
    EXPECT_EQ(statistics.Longest(), cycles.back());
    EXPECT_EQ(statistics.Count(), cycles.size());
  }
}

TEST(CycleStatistics, LongCyclesAreRightToATwoThousandth) {
  CycleStatistics statistics;
  for (int i = 0; i < 1001; ++i) statistics.Add(1e6 + 7.7 * i);
  EXPECT_NEAR(statistics.Median(), 1e6 + 7.7 * 500, 1e6 / 2000);
}

TEST(CycleStatistics, FramesAreLostInWholeCycles) {
  EXPECT_EQ(FramesLostIn(51.0, 10.0), 4.0);
  EXPECT_EQ(FramesLostIn(104.0, 10.0), 9.0);
  EXPECT_EQ(FramesLostIn(4.0, 10.0), 0.0);
}

TEST(LongestSilences, TheShortestGoesFirst) {
  LongestSilences silences(3);
  for (const double length : {5.0, 1.0, 4.0, 2.0, 3.0}) {
    silences.Add({{length * 100, 0.0}, {length * 101, 0.0}}, 0.0);
  }
  std::vector<double> kept;
  for (const auto& one : silences.TheKept()) kept.push_back(one.silence.length);
  std::ranges::sort(kept);
  EXPECT_EQ(kept, (std::vector<double>{3.0, 4.0, 5.0}));
}

TEST(LongestSilences, OfEquallyLongOnesTheFirstStay) {
  LongestSilences silences(3);
  for (const double length : {5.0, 7.0, 5.0, 5.0, 5.0, 9.0}) {
    const double begin =
        100.0 * static_cast<double>(silences.TheKept().size() + silences.LeftOut());
    silences.Add({{begin, 0.0}, {begin + length, 0.0}}, 0.0);
  }
  std::vector<double> begins;
  for (const auto& one : silences.TheKept()) begins.push_back(one.silence.begin);
  std::ranges::sort(begins);
  EXPECT_EQ(begins, (std::vector<double>{0.0, 100.0, 500.0}));
  EXPECT_EQ(silences.LeftOut(), 3U);
}

/// Statistics of frames that come every so many ms.
class Gaps : public ::testing::Test {
 protected:
  struct Message {
    std::uint32_t id;
    double cycle;
  };

  /// From 0 to `end`, in the order of time; not where `is_cut` says so.
  template <typename IsCut>
  JudgedRun Judged(const std::vector<Message>& messages, double end, IsCut is_cut) {
    std::vector<LogFrame> frames;
    for (const Message& message : messages) {
      for (double time = 0.0; time <= end; time += message.cycle) {
        if (!is_cut(message.id, time))
          frames.push_back({.time = time,
                            .id = message.id,
                            .extended = false,
                            .bytes = 0,
                            .length = 0,
                            .data = {}});
      }
    }
    std::ranges::stable_sort(frames, {}, &LogFrame::time);
    for (const LogFrame& frame : frames) Add(frame, 0.0);
    return Judged();
  }
  void Add(const LogFrame& frame, double ahead) {
    run.Add(frame, ahead);
    added.emplace_back(frame, ahead);
  }
  JudgedRun Judged() {
    GapFinder finder(run, multiple);
    for (const auto& [frame, ahead] : added) finder.Add(frame, ahead);
    return finder.Result();
  }

  RunStatistics run;
  double multiple = 5.0;
  std::vector<std::pair<LogFrame, double>> added;
};

TEST_F(Gaps, ACompleteLogHasNone) {
  const JudgedRun judged = Judged({{0x100, 10.0}, {0x200, 100.0}, {0x300, 1000.0}}, 60'000.0,
                                  [](auto, auto) { return false; });
  EXPECT_TRUE(judged.gaps.empty());
  ASSERT_EQ(judged.identifiers.size(), 3U);
  EXPECT_EQ(judged.identifiers[1].cycle, 100.0);
  EXPECT_EQ(judged.identifiers[1].statistics->frames, 601U);
}

TEST_F(Gaps, AStretchThatIsCutOutOfAllIsToldOnce) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}, {0x300, 1000.0}}, 60'000.0,
             [](auto, double time) { return time > 20'000.0 && time < 27'000.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.begin, 20'000.0);
  EXPECT_EQ(judged.gaps[0].silence.end, 27'000.0);
  EXPECT_EQ(judged.gaps[0].lost, 774.0) << "699 and 69 and 6";
  EXPECT_EQ(judged.identifiers[0].lost, 699.0);
  EXPECT_EQ(judged.identifiers[0].gaps, 1U);
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

/// Gaps of one identifier, those of all left out.
std::vector<Gap> Own(const JudgedRun& judged, std::uint32_t id) {
  std::vector<Gap> own;
  std::ranges::copy_if(judged.gaps, std::back_inserter(own), [&](const Gap& gap) {
    return gap.identifier != nullptr && gap.identifier->id == id;
  });
  return own;
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

// The two that go on are a pause of the bus for each other, and frames at odd times end it early.
TEST_F(Gaps, AFastIdentifierThatIsMissingMakesNoneOfAllWhoeverEndsThePauses) {
  const JudgedRun judged = Judged({{0x100, 10.0}, {0x200, 500.0}, {0x201, 700.0}, {0x300, 1.0}},
                                  60'000.0, [](auto id, double time) {
                                    const double in_second = std::fmod(time, 1000.0);
                                    return (id == 0x100 && time > 10'000.0 && time < 50'000.0) ||
                                           (id == 0x300 && (in_second < 80.0 || in_second > 82.0));
                                  });
  ASSERT_FALSE(judged.identifiers[3].regular);
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

// Too short for the slow ones to be late by the multiple, and they are missing all the same.
TEST_F(Gaps, OfAllNeedNotBeLongForTheSlowOnes) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}, {0x300, 1000.0}, {0x400, 5000.0}}, 60'000.0,
             [](auto, double time) { return time > 20'300.0 && time < 20'900.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.begin, 20'300.0);
  EXPECT_EQ(judged.gaps[0].silence.length, 600.0);
}

// The first that is heard again is one that comes at odd times.
TEST_F(Gaps, OfAllAreFoundWhoeverIsTheFirstBehindThem) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1000.0}, {0x300, 1.0}}, 60'000.0, [](auto id, double time) {
        const double in_second = std::fmod(time, 1000.0);
        return (time > 20'003.0 && time < 23'995.0) ||
               (id == 0x300 && in_second > 3.0 && time != 23'995.0);
      });
  ASSERT_FALSE(judged.identifiers[2].regular);
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.end, 23'995.0);
  EXPECT_EQ(judged.gaps[0].lost, 399.0);
}

// The third identifier begins right behind the silence, and later stops for less than that.
TEST_F(Gaps, OfAllAreNoneOfAnIdentifierThatBeginsBehindThem) {
  const JudgedRun judged =
      Judged({{0x300, 100.0}, {0x100, 10.0}, {0x200, 10.0}}, 60'000.0, [](auto id, double time) {
        return (time > 20'000.0 && time < 24'000.0) ||
               (id == 0x300 && (time < 24'000.0 || (time > 24'000.0 && time < 26'000.0)));
      });
  ASSERT_EQ(Own(judged, 0x300).size(), 2U);
  EXPECT_EQ(Own(judged, 0x300)[1].silence.begin, 24'000.0);
  EXPECT_EQ(judged.gaps.size(), 3U);
}

// 600 ms of the second identifier, of which 401 ms are of all.
TEST_F(Gaps, OfAllThatAnIdentifierIsMissingInForItsOwnCyclesTooAreToldOnce) {
  for (double time = 0.0; time <= 60'000.0; time += 1.0) {
    const bool is_cut = time > 20'000.0 && time < 20'401.0;
    const bool is_fast = std::fmod(time, 10.0) == 0.0 || time == 20'401.0;
    const bool is_slow = std::fmod(time, 100.0) == 99.0 && time != 20'499.0;
    for (const auto& [id, comes] : {std::pair(0x100U, is_fast), std::pair(0x200U, is_slow)}) {
      if (comes && !is_cut)
        Add({.time = time, .id = id, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
    }
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.identifiers[1].gaps, 1U);
}

// Thirty cycles of the first identifier are its own, and the next is a silence of all.
TEST_F(Gaps, OfAllThatAreNoneForASlowIdentifierHideNoneOfIts) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 500.0}}, 60'000.0, [](auto id, double time) {
        return id == 0x100 ? std::fmod(time, 400.0) > 300.0 : time > 20'000.0 && time < 24'000.0;
      });
  ASSERT_TRUE(judged.identifiers[0].regular);
  ASSERT_EQ(Own(judged, 0x200).size(), 1U);
  EXPECT_EQ(Own(judged, 0x200)[0].silence.length, 4'000.0);
  EXPECT_EQ(judged.identifiers[1].gaps, 1U);
}

TEST_F(Gaps, OfAllHaveLostNoneOfAnIdentifierThatHadStopped) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 10.0}, {0x300, 10.0}}, 60'000.0, [](auto id, double time) {
        return (id == 0x200 && time > 10'000.0) || (id == 0x300 && time < 50'000.0) ||
               (time > 20'000.0 && time < 21'000.0);
      });
  ASSERT_EQ(judged.gaps.size(), 3U);
  EXPECT_EQ(judged.gaps[2].identifier, nullptr);
  EXPECT_EQ(judged.gaps[2].lost, 99.0);
}

/// Gaps of all.
std::vector<Gap> Common(const JudgedRun& judged) {
  std::vector<Gap> common;
  std::ranges::copy_if(judged.gaps, std::back_inserter(common),
                       [](const Gap& gap) { return gap.identifier == nullptr; });
  return common;
}

// The slow one alone is still sending when the bus falls silent, and all come back together.
TEST_F(Gaps, WhatAnIdentifierThatHadStoppedHasLostIsItsOwn) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x101, 10.0}, {0x300, 1000.0}}, 100'000.0, [](auto id, double time) {
        return time > (id == 0x300 ? 14'300.0 : 10'000.0) && time < 55'000.0;
      });
  ASSERT_EQ(judged.gaps.size(), 3U);
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].lost, 40.0);
  for (const std::uint32_t id : {0x100U, 0x101U}) EXPECT_EQ(Own(judged, id).at(0).lost, 4499.0);
}

// Frames that come once or twice in the run are heard while the bus is silent.
TEST_F(Gaps, OfAllAreNoneOfAnIdentifierWhateverStraysIntoThem) {
  const std::vector<Message> regular = {{0x100, 10.0}, {0x101, 10.0}, {0x200, 100.0}};
  const Message strays[] = {{0x7DF, 35'000.0}, {0x7E0, 45'000.0}};
  for (const std::size_t count : {1U, 2U}) {
    run = {};
    added.clear();
    std::vector<Message> messages = regular;
    messages.insert(messages.end(), strays, strays + count);
    const JudgedRun judged = Judged(messages, 65'000.0, [](auto id, double time) {
      return id < 0x700 && time > 10'000.0 && time < 60'000.0;
    });
    ASSERT_EQ(judged.gaps.size(), count + 1) << count;
    EXPECT_EQ(Common(judged).size(), count + 1);
    EXPECT_EQ(judged.gaps[0].silence.begin, 10'000.0);
    EXPECT_EQ(judged.gaps[0].silence.end, 35'000.0);
    EXPECT_EQ(judged.gaps[0].lost, 4999.0 + 4999.0 + 499.0) << "in the longest of them";
    EXPECT_EQ(judged.gaps.back().silence.end, 60'000.0);
  }
}

// One that was not there ahead of the silence begins in it, goes on at its times, and so tells that
// the bus was not silent; what it leaves between its frames is none of all.
TEST_F(Gaps, OfOneThatIsMissingAreItsOwnWhereAnotherBegins) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 1000.0}}, 100'000.0, [](auto id, double time) {
        return id == 0x300 ? time < 15'000.0 : time > 10'000.0 && time < 60'000.0;
      });
  EXPECT_TRUE(Common(judged).empty());
  EXPECT_EQ(Own(judged, 0x100).at(0).lost, 4999.0);
  EXPECT_EQ(judged.identifiers[0].lost, 4999.0);
}

// More strays than pauses are kept undecided.
TEST_F(Gaps, AmongVeryManyStraysAreOfTheIdentifiers) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x7DF, 1.0}}, 200'000.0, [](auto id, double time) {
        return id == 0x100 ? time > 10'000.0 && time < 190'000.0 : std::fmod(time, 300.0) >= 3.0;
      });
  ASSERT_FALSE(judged.identifiers[1].regular);
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].lost, 17'999.0);
  EXPECT_NE(judged.gaps[0].identifier, nullptr);
}

TEST_F(Gaps, WithFewCyclesAllAreOverdueBehindAsFew) {
  multiple = 1.5;
  for (const double time : {0.0, 1000.0, 2000.0, 3000.0, 4800.0, 5800.0, 6800.0}) {
    Add({.time = time, .id = 1, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
}

TEST_F(Gaps, OfAllAreToldWhereNobodyOfBeforeComesBack) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 10.0}}, 120'000.0,
             [](auto id, double time) { return id == 0x100 ? time > 10'000.0 : time < 60'000.0; });
  ASSERT_EQ(judged.gaps.size(), 3U);
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].silence.begin, 10'000.0);
  EXPECT_EQ(Common(judged)[0].silence.end, 60'000.0);
  EXPECT_EQ(Own(judged, 0x100).at(0).edge, Gap::Edge::kEnd);
  EXPECT_EQ(Own(judged, 0x200).at(0).edge, Gap::Edge::kBegin);
}

// The slow one is not due before the end, and the bus may have waited for it.
TEST_F(Gaps, OfAllAreNotToldAtTheEndWhereOneIsNotOverdue) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 100'000.0}, {0x7DF, 280'000.0}}, 290'000.0,
             [](auto id, double time) { return id == 0x100 && time > 250'000.0; });
  ASSERT_TRUE(judged.identifiers[1].regular);
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

TEST_F(Gaps, OwnOnesBesideACommonOneAreTold) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}}, 60'000.0, [](auto id, double time) {
        return (time > 20'000.0 && time < 21'000.0) ||
               (id == 0x200 && time >= 21'000.0 && time < 25'000.0);
      });
  ASSERT_EQ(judged.gaps.size(), 2U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[1].identifier->id, 0x200U);
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

// Of a short log, they are more than one in twenty cycles, and yet no rate.
TEST_F(Gaps, AFewSilencesThatAreAlikeAreGaps) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}}, 5500.0, [](auto id, double time) {
        const double in_turn = std::fmod(time, 1500.0);
        return id == 0x200 && time > 500.0 && in_turn > 0.0 && in_turn < 1000.0;
      });
  EXPECT_EQ(judged.identifiers[1].gaps, 3U);
  EXPECT_EQ(judged.identifiers[1].lost, 27.0);
}

// One that comes at its time decides only what it was sending up to.
TEST_F(Gaps, OfAllStayUndecidedBehindAPauseOfAnother) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 10.0}, {0x300, 1000.0}}, 60'000.0, [](auto id, double time) {
        if (id == 0x100) return time > 10'000.0;
        if (time < 40'000.0) return true;
        return id == 0x200 && time > 45'000.0 && time < 47'500.0;
      });
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].silence.begin, 10'000.0);
  EXPECT_EQ(Common(judged)[0].silence.end, 40'000.0);
}

// Silences of any length are no rate, however many they are.
TEST_F(Gaps, ManySilencesThatAreNotAlikeAreGaps) {
  double time = 0.0;
  for (int i = 0; i < 1000; ++i) {
    const double silences[] = {60.0, 500.0, 4000.0, 30'000.0};
    time += i % 10 == 9 ? silences[i / 10 % 4] : 10.0;
    Add({.time = time, .id = 1, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
  }
  EXPECT_EQ(Judged().identifiers[0].gaps, 100U);
}

TEST_F(Gaps, OfASlowerRateAreLongForThat) {
  double time = 0.0;
  for (int i = 0; i < 7500; ++i) {
    time += i < 6000 ? 10.0 : 100.0;
    if (i == 7000) time += 300.0;
    if (i == 7200) time += 500.0;
    Add({.time = time, .id = 1, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
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

// The cycles of odd times say nothing of how many frames a silence of all has cost.
TEST_F(Gaps, OfAllAreReckonedByTheRegularOnes) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1.0}}, 60'000.0, [](auto id, double time) {
        return (time > 20'000.0 && time < 21'000.0) ||
               (id == 0x200 && std::fmod(time, 1000.0) >= 3.0);
      });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].lost, 99.0);
}

// Every half second of the first identifier is followed by one of silence: far more than are kept.
TEST_F(Gaps, OfAllAreCountedBeyondThoseThatAreKept) {
  const JudgedRun judged = Judged({{0x100, 10.0}}, 599'990.0, [](auto, double time) {
    return std::fmod(time, 1000.0) >= 500.0;
  });
  EXPECT_EQ(judged.gaps.size(), GapFinder::kCommon_MAX);
  EXPECT_EQ(judged.gaps.size() + judged.gaps_left_out, 599U);
  EXPECT_EQ(judged.identifiers[0].gaps, 599U);
}

// Once a second all are silent for equally long, more often than gaps are kept.
TEST_F(Gaps, OfAllThatAreEquallyLongAreNoneOfAnIdentifier) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 97.0}}, 1'099'990.0,
             [](auto, double time) { return std::fmod(time, 1000.0) >= 400.0; });
  ASSERT_TRUE(judged.identifiers[1].regular);
  EXPECT_EQ(judged.gaps.size(), GapFinder::kCommon_MAX);
  EXPECT_EQ(judged.gaps.size() + judged.gaps_left_out, 1099U);
  for (const Gap& gap : judged.gaps) EXPECT_EQ(gap.identifier, nullptr) << gap.silence.begin;
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

// The slow one misses the moment at which the others are back.
TEST_F(Gaps, TwoOfAllTogetherAreNoneOfAnIdentifier) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1000.0}}, 120'000.0, [](auto id, double time) {
        const bool is_back = id == 0x100 && time >= 40'100.0 && time <= 40'200.0;
        return time > 20'000.0 && time < 60'000.0 && !is_back;
      });
  EXPECT_EQ(judged.gaps.size(), 2U);
  for (const Gap& gap : judged.gaps) EXPECT_EQ(gap.identifier, nullptr) << gap.silence.begin;
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

TEST_F(Gaps, ALoneFrameHasNoCycleAndNoGap) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1e6}}, 60'000.0, [](auto, auto) { return false; });
  EXPECT_TRUE(judged.gaps.empty());
  EXPECT_EQ(judged.identifiers[1].cycle, 0.0);
}

TEST_F(Gaps, ATimeThatStepsBackIsNoCycle) {
  for (const double time : {0.0, 10.0, 20.0, 5.0, 15.0}) {
    Add({.time = time, .id = 1, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
  }
  EXPECT_EQ(run.StepsBack(), 1U);
  EXPECT_EQ(Judged().identifiers[0].statistics->cycles.Longest(), 10.0);
}

TEST(ReportTexts, AreThoseOfTheLog) {
  IdentifierStatistics identifier;
  identifier.id = 0x1A;
  EXPECT_EQ(IdentifierText(identifier), "01A");
  identifier.extended = true;
  EXPECT_EQ(IdentifierText(identifier), "0000001A");
  EXPECT_EQ(NumberText(1.5), "1.5");
  EXPECT_EQ(LengthsText(1U << 0 | 1U << 8 | IdentifierStatistics::kOtherLengths), "0, 8, others");
  EXPECT_EQ(LengthsText(IdentifierStatistics::kOtherLengths), "others");
}

class Info : public WrittenLog {
 protected:
  std::string Of(const InfoWishes& wishes) {
    TakeFiles();
    return OfTaken(wishes);
  }
  std::string OfTaken(const InfoWishes& wishes) {
    std::vector<std::string> paths;
    for (const auto& [path, text] : log_files.texts) paths.push_back(path);
    std::string said;
    TextSink sink(said);
    Complaints complaints(sink, false);
    const auto runs = FindRuns(paths, log_files, complaints);
    return InfoOf(runs, wishes, log_files, code_page, complaints);
  }
};

TEST_F(Info, IsATableForPeople) {
  for (int i = 0; i < 100; ++i) {
    if (i < 40 || i >= 60) db.csv_DataInput(i * 10.0, 0x1A0, i == 7 ? 2 : 8, kBytes);
    if (i == 50) RollOverNow();
  }
  Flush(2);
  EXPECT_EQ(Of({}),
            "run 1\n"
            "  files         2: KL26112009-001.csv to KL26112009-002.csv\n"
            "                KL26112009-001.csv has 40 records and is not full, but "
            "KL26112009-002.csv goes on\n"
            "  program       Tolvane Ver1.23\n"
            "  adapter       CANUSB ABCD 、V1.0\n"
            "  bit rate      500k bps\n"
            "  comment       ＣＡＮ受信ログ\n"
            "  written       2026/11/20 9:05:07 to 2026/11/20 9:05:07\n"
            "  frames        80\n"
            "  identifiers   1, 11-bit mode\n"
            "  first, last   0 ms, 990 ms\n"
            "  span          0.99 s\n"
            "\n"
            "  identifier     frames  median ms   least ms longest ms     gaps     lost  length\n"
            "  1A0                80         10         10        210        1       20  2, 8\n"
            "\n"
            "  silent longer than 5 cycles: 1\n"
            "  identifier       from ms         to ms    silent ms         lost\n"
            "  all                  390           600          210     about 20\n");
}

TEST_F(Info, IsJsonForPrograms) {
  device.t_LogComment = u"a \"quoted\\\" comment";
  Begin29BitRun();
  for (int i = 0; i < 3; ++i) db.csv_DataInput29(i * 2.5, 0x123, 8, kBytes, 1);
  db.csv_DataInput29(7.5, 0x7FF, 0, kBytes, 0);
  Flush(1);
  EXPECT_EQ(
      Of({.as_json = true}),
      "{\"runs\": [{\"files\": [{\"path\": \"KL26112009-001.csv\", \"written\": \"2026/11/20 "
      "9:05:07\", \"frames\": 4}], \"odd_seams\": [], \"is_whole_at_its_begin\": true, "
      "\"program\": \"Tolvane Ver1.23\", "
      "\"adapter\": \"CANUSB ABCD 、V1.0\", \"bit_rate\": \"500k bps\", \"comment\": \"a "
      "\\\"quoted\\\\\\\" comment\", \"id_bits\": 29, \"frames\": 4, \"first_ms\": 0, \"last_ms\": "
      "7.5, \"span_ms\": 7.5, \"steps_back\": 0, \"bare_ids\": 0, \"stray_zeros\": 0, "
      "\"clock_jump\": null, \"gap_multiple\": 5, \"identifiers\": [{\"id\": \"7FF\", "
      "\"extended\": false, \"frames\": 1, \"first_ms\": 7.5, \"last_ms\": 7.5, \"cycle_ms\": "
      "null, \"lengths\": [0], \"gaps\": null, \"lost\": null}, {\"id\": \"00000123\", "
      "\"extended\": "
      "true, \"frames\": 3, \"first_ms\": 0, \"last_ms\": 5, \"cycle_ms\": {\"median\": 2.5, "
      "\"least\": 2.5, \"longest\": 2.5}, \"lengths\": [8], \"gaps\": 0, \"lost\": 0}], \"gaps\": "
      "[], \"gaps_left_out\": 0}], \"faults\": 0}\n");
}

TEST_F(Info, TellsOfEachRunAndOfOneWithoutItsBegin) {
  db.csv_DataInput(5.0, 0x1A0, 0, kBytes);
  RollOverNow();
  StartRun();
  FileName_Date = u"26112009";
  FileName_No = u"002";
  db.csv_DataInput(0.0, 0x1A0, 0, kBytes);
  RollOverNow();
  const std::string text = Of({});
  EXPECT_NE(text.find("they begin at 5 ms: those ahead of them are missing"), std::string::npos);
  EXPECT_NE(text.find("\nrun 2\n"), std::string::npos);
}

TEST_F(Info, OfACompleteLogWithAJumpOfTheClockTellsTheJumpAndNoGap) {
  // 200 s that begin at the reading 30000 of a clock which starts over behind 60000.
  for (int i = 0; i < 20'000; ++i) {
    const double time = i * 10 + (i > 3000 ? 30'000 : 0);
    db.csv_DataInput(time, 0x100, 0, kBytes);
    if (i % 10 == 0) db.csv_DataInput(time, 0x200, 0, kBytes);
    if (i % 100 == 0) db.csv_DataInput(time, 0x300, 0, kBytes);
    if (i == 10'000) RollOverNow();
  }
  Flush(2);
  const std::string text = Of({});
  EXPECT_NE(text.find("  span          199.99 s\n"
                      "  clock jump    30000 ms behind 30000 ms, right to 0 ms if the bus was not "
                      "silent there\n"
                      "                it is no silence: it counts in no cycle, gap or span, and "
                      "the times have it (see --mend-clock)\n"
                      "                a silence that ends just there looks the same\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("  100             20000         10         10         10        0        0"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("  silent longer than 5 cycles: none\n"), std::string::npos);
  const std::string json = Of({.as_json = true});
  EXPECT_NE(json.find("\"clock_jump\": {\"at_ms\": 30000, \"jump_ms\": 30000, \"doubt_ms\": 0, "
                      "\"in_times\": true}"),
            std::string::npos)
      << json;
  EXPECT_NE(json.find("\"last_ms\": 229990, \"span_ms\": 199990"), std::string::npos) << json;
  EXPECT_TRUE(json.ends_with("\"gaps\": [], \"gaps_left_out\": 0}], \"faults\": 0}\n"));
}

TEST_F(Info, OfIdentifiersThatAllComeAtOddTimesIsNotJudged) {
  for (int i = 0; i < 30; ++i) db.csv_DataInput(i / 3 * 1000 + i % 3, 0x100, 0, kBytes);
  Flush(1);
  EXPECT_TRUE(
      Of({}).ends_with("silent longer than 5 cycles: not judged: no identifier comes regularly\n"));
  const std::string json = Of({.as_json = true});
  EXPECT_TRUE(json.ends_with("\"gaps\": null, \"gaps_left_out\": null}], \"faults\": 0}\n"));
}

TEST_F(Info, OfAPathThatIsNoUtf8IsUtf8) {
  db.csv_DataInput(0.0, 0x100, 0, kBytes);
  Flush(1);
  TakeFiles();
  const std::pair<const char*, const char*> rows[] = {
      {"走\U0001F600.csv", "走\U0001F600.csv"},
      {"\x91\x96.csv", "\uFFFD\uFFFD.csv"},
      {"a\xE8\xB5", "a\uFFFD\uFFFD"},
      {"\xC0\xAF", "\uFFFD\uFFFD"},
      {"\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}};
  const std::string log = log_files.texts[Path("001")];
  for (const auto& [path, shown] : rows) {
    log_files.texts = {{path, log}};
    EXPECT_TRUE(
        OfTaken({.as_json = true})
            .starts_with("{\"runs\": [{\"files\": [{\"path\": \"" + std::string(shown) + "\""))
        << shown;
  }
}

TEST_F(Info, OfARunWithoutFramesEndsBehindItsHead) {
  Flush(1);
  EXPECT_TRUE(Of({}).ends_with("  frames        0\n  identifiers   0, 11-bit mode\n"));
}

TEST_F(Info, ShowsTheLongestOfManyGaps) {
  double time = 0.0;
  for (int i = 0; i < 2500; ++i) {
    time += i % 25 == 24 ? 1000.0 + i : 10.0;
    db.csv_DataInput(time, 0x1A0, 0, kBytes);
  }
  Flush(1);
  const std::string text = Of({});
  EXPECT_NE(text.find("silent longer than 5 cycles: 100\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("  and 50 more, none of them longer\n")) << text;
  EXPECT_EQ(text.find(" 2249 "), std::string::npos);
  EXPECT_NE(text.find(" 2274 "), std::string::npos);
}

}  // namespace
}  // namespace tolvane::logtool
