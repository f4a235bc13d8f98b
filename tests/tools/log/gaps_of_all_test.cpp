#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "tests/tools/log/gaps_bed.h"

namespace tolvane::logtool {
namespace {

using GapsOfAll = GapsBed;

/// A slow identifier that comes at 21'000.0 as ever, ahead of the others, which may be missing
/// since 20'000.0.
const std::vector<GapsBed::Message> kWithASlowOne = {
    {0x300, 1000.0}, {0x100, 10.0}, {0x101, 20.0}, {0x102, 50.0}};

TEST_F(GapsOfAll, AStretchThatIsCutOutOfAllIsToldOnce) {
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

// The two that go on are a pause of the bus for each other, and frames at odd times end it early.
TEST_F(GapsOfAll, AFastIdentifierThatIsMissingMakesNoneOfAllWhoeverEndsThePauses) {
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
TEST_F(GapsOfAll, NeedNotBeLongForTheSlowOnes) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}, {0x300, 1000.0}, {0x400, 5000.0}}, 60'000.0,
             [](auto, double time) { return time > 20'300.0 && time < 20'900.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.begin, 20'300.0);
  EXPECT_EQ(judged.gaps[0].silence.length, 600.0);
}

TEST_F(GapsOfAll, HaveLostFramesOfThoseForWhichTheyAreNoGap) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}, {0x300, 1000.0}}, 60'000.0,
             [](auto, double time) { return time > 20'300.0 && time < 21'250.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].lost, 94.0 + 9.0 + 1.0);
  EXPECT_EQ(judged.identifiers[1].gaps, 1U);
  EXPECT_EQ(judged.identifiers[2].gaps, 0U);
  EXPECT_EQ(judged.identifiers[2].lost, 1.0);
}

// The first that is heard again is one that comes at odd times.
TEST_F(GapsOfAll, AreFoundWhoeverIsTheFirstBehindThem) {
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
  EXPECT_EQ(judged.gaps[0].lost, 399.0 + 3.0);
}

TEST_F(GapsOfAll, AreFoundBehindASlowOneThatWasJustDue) {
  const JudgedRun judged = Judged(kWithASlowOne, 60'000.0, [](auto, double time) {
    return time > 20'000.0 && time < 21'000.0;
  });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.length, 1'000.0);
  EXPECT_EQ(judged.gaps[0].lost, 99.0 + 49.0 + 19.0);
}

// Two of three within one of their cycles, and the third later.
TEST_F(GapsOfAll, AreFoundWhereMostAreBackWithinACycle) {
  const JudgedRun judged = Judged(kWithASlowOne, 60'000.0, [](auto id, double time) {
    return time > 20'000.0 &&
           (time < 21'000.0 || (id == 0x100 && time < 21'010.0) ||
            (id == 0x101 && time < 21'020.0) || (id == 0x102 && time < 21'100.0));
  });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].lost, 100.0 + 50.0 + 20.0);
}

TEST_F(GapsOfAll, OfThoseWhoComeBackOneByOneBehindASlowOneAreTheirOwn) {
  const JudgedRun judged = Judged(kWithASlowOne, 60'000.0, [](auto id, double time) {
    return time > 20'000.0 && (time < 21'000.0 || (id == 0x100 && time < 21'020.0) ||
                               (id == 0x101 && time < 21'040.0));
  });
  ASSERT_EQ(judged.gaps.size(), 3U);
  for (const std::uint32_t id : {0x100U, 0x101U, 0x102U}) EXPECT_EQ(Own(judged, id).size(), 1U);
}

TEST_F(GapsOfAll, OfTwoOfWhomOneIsBackWithASlowOneAreTheirOwn) {
  const JudgedRun judged =
      Judged({{0x300, 1000.0}, {0x100, 10.0}, {0x101, 20.0}}, 60'000.0, [](auto id, double time) {
        return time > 20'000.0 && (time < 21'000.0 || (id == 0x101 && time < 21'040.0));
      });
  ASSERT_EQ(judged.gaps.size(), 2U);
  for (const std::uint32_t id : {0x100U, 0x101U}) EXPECT_EQ(Own(judged, id).size(), 1U);
}

TEST_F(GapsOfAll, OfOneThatIsBackWithASlowOneAreItsOwn) {
  const JudgedRun judged = Judged(
      {{0x300, 1000.0}, {0x100, 10.0}}, 60'000.0,
      [](auto id, double time) { return id == 0x100 && time > 20'000.0 && time < 21'000.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

TEST_F(GapsOfAll, OfOneThatIsBackWithASlowOneShortlyAheadOfTheEndAreItsOwn) {
  const JudgedRun judged =
      Judged({{0x300, 1000.0}, {0x100, 100.0}, {0x101, 100.0}, {0x102, 100.0}}, 21'050.0,
             [](auto id, double time) {
               return id != 0x300 && time > 20'000.0 && (time < 21'000.0 || id != 0x100);
             });
  ASSERT_EQ(Own(judged, 0x100).size(), 1U);
  EXPECT_EQ(Own(judged, 0x100)[0].edge, Gap::Edge::kNone);
}

// Nobody is awaited behind that many frames of others.
TEST_F(GapsOfAll, OfThoseWhoAreBackBehindVeryManyOthersAreTheirOwn) {
  const auto is_cut = [](auto id, double time) {
    return id == 0x7FF ? std::fmod(time, 20'000.0) < 1'000.0 || std::fmod(time, 20'000.0) > 1'090.0
                       : id != 0x300 && time > 20'000.0 && time < 21'095.0;
  };
  const double step = 90.0 / GapFinder::kHeld_MAX;
  const JudgedRun judged =
      Judged({{0x300, 1000.0}, {0x100, 100.0}, {0x101, 100.0}, {0x7FF, step}}, 60'000.0, is_cut);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
  EXPECT_EQ(Own(judged, 0x101).size(), 1U);
}

// What is looked through for the first pause holds the second, with a slow one behind it as well.
TEST_F(GapsOfAll, AreFoundBehindSlowOnesThatFollowOneAnother) {
  const JudgedRun judged = Judged(
      {{0x300, 2000.0},
       {0x301, 670.0},
       {0x100, 10.0},
       {0x101, 10.0},
       {0x200, 150.0},
       {0x201, 150.0},
       {0x202, 150.0},
       {0x203, 150.0},
       {0x204, 150.0}},
      60'000.0, [](auto id, double time) {
        return (time > 18'000.0 && time < 20'000.0) || (time > 20'010.0 && time < 20'100.0) ||
               (id < 0x200 && time > 20'100.0 && time < 20'130.0) ||
               (id >= 0x200 && id <= 0x204 && time > 18'000.0 && time < 20'100.0);
      });
  ASSERT_EQ(judged.gaps.size(), 2U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.length, 2'000.0);
  EXPECT_EQ(judged.gaps[1].identifier, nullptr);
  EXPECT_EQ(judged.gaps[1].silence.length, 90.0);
}

// Only one of them has missed five.
TEST_F(GapsOfAll, AreFoundBehindASlowOneWhereTheOthersAreOverdueOnly) {
  const JudgedRun judged =
      Judged({{0x700, 1'005.0}, {0x100, 10.0}, {0x200, 20.0}, {0x201, 20.0}, {0x202, 20.0}},
             60'000.0, [](auto, double time) { return time > 20'025.0 && time < 20'100.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].lost, 7.0 + 3.0 * 3.0);
}

// From 400 on the bus has a slower one alone, of which a frame is missing now and then.
TEST_F(GapsOfAll, AreNoneOfThoseWhoStoppedLongBefore) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}}, 30'000.0, [](auto id, double time) {
        return id == 0x100 ? time > 60.0 : time < 400.0 || std::fmod(time, 2'500.0) == 0.0;
      });
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].silence.end, 400.0);
  EXPECT_EQ(judged.identifiers[1].lost, 0.0);
}

TEST_F(GapsOfAll, ThoseWhoStoppedLongBeforeAreNotAwaited) {
  std::vector<Message> messages = kWithASlowOne;
  for (std::uint32_t id = 1; id <= 4; ++id) messages.push_back({id, 10.0 * id});
  const JudgedRun judged = Judged(messages, 60'000.0, [](auto id, double time) {
    return (id < 0x100 ? time > 10'000.0 : time < 15'000.0) || (time > 20'000.0 && time < 21'000.0);
  });
  ASSERT_EQ(Common(judged).size(), 2U);
  EXPECT_EQ(Common(judged)[1].silence.begin, 20'000.0);
  EXPECT_EQ(Common(judged)[1].lost, 99.0 + 49.0 + 19.0);
}

// Each has its time, one behind the other.
TEST_F(GapsOfAll, ThatNobodyDecidesAreKeptThirtyTwoOf) {
  std::vector<Message> messages;
  for (std::uint32_t id = 0; id < 36; ++id) messages.push_back({id, 10.0});
  const JudgedRun judged = Judged(messages, 7'200.0, [](auto id, double time) {
    return time < id * 200.0 || time > id * 200.0 + 100.0;
  });
  ASSERT_EQ(Common(judged).size(), UndecidedPauses::kPauses_MAX);
  EXPECT_EQ(Common(judged).back().silence.end, 7'000.0);
}

// As those, behind one of thirty times their length.
TEST_F(GapsOfAll, ThatNobodyDecidesAreTheLongestThatAreKept) {
  std::vector<Spell> spells = {{0x100, 0.0, 10'000.0}};
  for (std::uint32_t id = 0; id < 34; ++id)
    spells.push_back({id, 40'000.0 + id * 3'000.0, 42'000.0 + id * 3'000.0});
  const JudgedRun judged = Judged(spells);
  ASSERT_EQ(Common(judged).size(), UndecidedPauses::kPauses_MAX);
  EXPECT_EQ(Common(judged).front().silence.length, 30'000.0);
  EXPECT_EQ(Common(judged).back().silence.end, 139'000.0);
}

// Slow enough to have been there ahead of a silence that nobody came back from, which is long over.
TEST_F(GapsOfAll, AreFoundWhereASlowOneIsBackThatWasThereAheadOfAnother) {
  const JudgedRun judged = Judged({{0x300, 9'000.0}, {0x001, 10.0}, {0x100, 10.0}, {0x101, 20.0}},
                                  60'000.0, [](auto id, double time) {
                                    if (id == 0x300) return false;
                                    return (id == 0x001 ? time > 10'000.0 : time < 10'500.0) ||
                                           (time > 17'000.0 && time < 18'000.0);
                                  });
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].silence.begin, 17'000.0);
}

// The last pause is none of all, as the slow one is not overdue at the end.
TEST_F(GapsOfAll, AreToldWhateverTheLastPauseIs) {
  const JudgedRun judged =
      Judged({{0x001, 10.0}, {0x010, 10.0}, {0x300, 1'000.0}}, 119'900.0, [](auto id, double time) {
        return id == 0x001 ? time > 10'000.0 : time < 40'000.0 || time > 119'000.0;
      });
  Add(0x7FF, 119'900.0);
  const JudgedRun with_a_stray = Judged();
  ASSERT_EQ(Common(with_a_stray).size(), 1U);
  EXPECT_EQ(Common(with_a_stray)[0].silence.length, 30'000.0);
  EXPECT_EQ(Common(judged).size(), 1U);
}

// As OfOneThatIsMissingAreItsOwnBesideOneOfFewCycles, behind another that stopped 2 s before.
TEST_F(GapsOfAll, OfOneThatIsMissingAreItsOwnBehindOneThatStoppedBefore) {
  const JudgedRun judged =
      Judged({{0x001, 10.0}, {0x100, 10.0}, {0x300, 1'000.0}}, 7'800.0, [](auto id, double time) {
        if (id == 0x001) return time > 500.0;
        return time < 3'000.0 || (id == 0x100 && time > 4'490.0 && time < 6'900.0);
      });
  EXPECT_EQ(judged.identifiers[2].statistics->cycles.Count(), 4U);
  ASSERT_EQ(Own(judged, 0x100).size(), 2U) << "one until its first frame";
  EXPECT_EQ(Own(judged, 0x100)[1].lost, 240.0);
}

// Of two that were missing the one since shortly ahead of the second part, the first part too is
// one of all.
TEST_F(GapsOfAll, AreTheSameWhoeverIsBackFirst) {
  const Message rows[] = {{0x100, 10.0}, {0x200, 10.0}};
  for (const bool is_first : {true, false}) {
    run = RunStatistics();
    added.clear();
    const JudgedRun judged = Judged(
        {rows[is_first ? 0 : 1], rows[is_first ? 1 : 0]}, 50'000.0, [](auto id, double time) {
          if (id == 0x100) return time > 10'000.0 && time < 30'000.0;
          return time < 10'500.0 || (time > 10'530.0 && time < 30'000.0);
        });
    ASSERT_EQ(Common(judged).size(), 2U) << is_first;
    EXPECT_EQ(Common(judged)[0].silence.length, 500.0);
    EXPECT_EQ(Common(judged)[1].silence.length, 19'470.0);
    EXPECT_TRUE(Own(judged, 0x100).empty());
  }
}

TEST_F(GapsOfAll, HaveLostNoMoreThanTheyHaveRoomForThoughItIsAGap) {
  multiple = 100.0;
  const JudgedRun judged =
      Judged({{0x001, 10.0}, {0x002, 100.0}}, 60'000.0, [](auto id, double time) {
        return (time > 20'000.0 && time < 21'100.0) ||
               (id == 0x002 && time > 15'000.0 && time < 25'100.0);
      });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].lost, 109.0 + 11.0);
}

// The third identifier begins right behind the silence, and later stops for less than that.
TEST_F(GapsOfAll, AreNoneOfAnIdentifierThatBeginsBehindThem) {
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
TEST_F(GapsOfAll, ThatAnIdentifierIsMissingInForItsOwnCyclesTooAreToldOnce) {
  for (double time = 0.0; time <= 60'000.0; time += 1.0) {
    const bool is_cut = time > 20'000.0 && time < 20'401.0;
    const bool is_fast = std::fmod(time, 10.0) == 0.0 || time == 20'401.0;
    const bool is_slow = std::fmod(time, 100.0) == 99.0 && time != 20'499.0;
    for (const auto& [id, comes] : {std::pair(0x100U, is_fast), std::pair(0x200U, is_slow)}) {
      if (comes && !is_cut) Add(id, time);
    }
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.identifiers[1].gaps, 1U);
}

// Thirty cycles of the first identifier are its own, and the next is a silence of all.
TEST_F(GapsOfAll, ThatAreNoneForASlowIdentifierHideNoneOfIts) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 500.0}}, 60'000.0, [](auto id, double time) {
        return id == 0x100 ? std::fmod(time, 400.0) > 300.0 : time > 20'000.0 && time < 24'000.0;
      });
  ASSERT_TRUE(judged.identifiers[0].regular);
  ASSERT_EQ(Own(judged, 0x200).size(), 1U);
  EXPECT_EQ(Own(judged, 0x200)[0].silence.length, 4'000.0);
  EXPECT_EQ(judged.identifiers[1].gaps, 1U);
}

TEST_F(GapsOfAll, HaveLostNoneOfAnIdentifierThatHadStopped) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 10.0}, {0x300, 10.0}}, 60'000.0, [](auto id, double time) {
        return (id == 0x200 && time > 10'000.0) || (id == 0x300 && time < 50'000.0) ||
               (time > 20'000.0 && time < 21'000.0);
      });
  ASSERT_EQ(judged.gaps.size(), 3U);
  EXPECT_EQ(judged.gaps[2].identifier, nullptr);
  EXPECT_EQ(judged.gaps[2].lost, 99.0);
}

// The slow one alone is still sending when the bus falls silent, and all come back together.
TEST_F(GapsOfAll, WhatAnIdentifierThatHadStoppedHasLostIsItsOwn) {
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
TEST_F(GapsOfAll, AreNoneOfAnIdentifierWhateverStraysIntoThem) {
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

// They have a cycle of their own then, and would come at their time.
TEST_F(GapsOfAll, AreToldThoughStraysAreEvenlyApart) {
  const JudgedRun judged = Judged({{0x100, 10.0}, {0x200, 100.0}, {0x7DF, 10'000.0}}, 65'000.0,
                                  [](auto id, double time) {
                                    return id == 0x7DF ? time < 20'000.0 || time > 40'000.0
                                                       : time > 10'000.0 && time < 60'000.0;
                                  });
  ASSERT_TRUE(judged.identifiers[2].regular);
  ASSERT_EQ(Common(judged).size(), 4U);
  EXPECT_EQ(Common(judged)[0].silence.begin, 10'000.0);
  EXPECT_EQ(Common(judged)[3].silence.end, 60'000.0);
  EXPECT_EQ(Own(judged, 0x100).size(), 0U);
  EXPECT_EQ(Own(judged, 0x200).size(), 0U);
}

// The slow one was there ahead of the silence, and comes at its times.
TEST_F(GapsOfAll, OfOneThatIsMissingAreItsOwnBesideOneOfFewCycles) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 1000.0}}, 4'800.0,
             [](auto id, double time) { return id == 0x100 && time > 1'490.0 && time < 3'900.0; });
  EXPECT_EQ(judged.identifiers[1].statistics->cycles.Count(), 4U);
  EXPECT_TRUE(Common(judged).empty());
  EXPECT_EQ(Own(judged, 0x100).at(0).lost, 240.0);
}

// Another goes on at odd times, and sometimes leaves the bus silent for a moment.
TEST_F(GapsOfAll, OfOneThatStopsShortlyAheadOfTheEndAreItsOwn) {
  const double steps[] = {60.0, 7.0, 7.0};
  std::size_t step = 0;
  double other = 0.0;
  for (double time = 0.0; time <= 60'000.0; time += 1.0) {
    if (time == other) {
      Add(0x7DF, time);
      other += steps[step++ % 3];
    }
    if (time <= 59'100.0 && std::fmod(time, 10.0) == 0.0) Add(0x100, time);
  }
  const JudgedRun judged = Judged();
  ASSERT_FALSE(judged.identifiers[1].regular);
  EXPECT_TRUE(Common(judged).empty());
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(Own(judged, 0x100).at(0).edge, Gap::Edge::kEnd);
}

// A slow one rests, and is told to have lost no more than the silence of all had room for.
TEST_F(GapsOfAll, HaveNotLostWhatASlowOneWasMissingAroundThem) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 1000.0}}, 60'000.0, [](auto id, double time) {
        return id == 0x300 ? time > 18'500.0 && time < 22'500.0
                           : time > 20'300.0 && time < 20'390.0;
      });
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].lost, 8.0 + 1.0);
}

// Others have begun ahead of the second one, and others again behind it.
TEST_F(GapsOfAll, AreToldAsOftenAsNobodyOfBeforeComesBack) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 10.0}, {0x300, 10.0}}, 60'000.0, [](auto id, double time) {
        if (id == 0x100) return time > 20'000.0;
        return id == 0x200 ? time < 23'000.0 || time > 40'000.0 : time < 43'000.0;
      });
  ASSERT_EQ(Common(judged).size(), 2U);
  EXPECT_EQ(Common(judged)[0].silence.begin, 20'000.0);
  EXPECT_EQ(Common(judged)[1].silence.end, 43'000.0);
}

// Four frames right behind one another have a cycle, by which any silence would be too long.
TEST_F(GapsOfAll, OfABurstMakeNoneOfAll) {
  for (double time = 0.0; time <= 10'000.0; time += 1.0) {
    if (std::fmod(time, 10.0) == 0.0 && time != 5'010.0) Add(0x100, time);
    if (time > 5'000.0 && time < 5'005.0) Add(0x7E8, time);
  }
  const JudgedRun judged = Judged();
  ASSERT_TRUE(judged.identifiers[1].regular);
  EXPECT_TRUE(Common(judged).empty());
}

// The first one behind the silence has lost one frame, and comes a little early.
TEST_F(GapsOfAll, AreToldWhereTheFirstBackIsNotQuiteTwoCyclesLate) {
  constexpr double kLast = 20'000.0;
  for (double time = 0.0; time <= 60'000.0; time += 10.0) {
    if (time > kLast && time < kLast + 1960.0) continue;
    const bool is_first_back = time == kLast + 1960.0;
    if (is_first_back || (std::fmod(time, 1000.0) == 0.0 && time != kLast + 2000.0)) {
      Add(0x300, time);
    }
    if (!is_first_back) Add(0x100, time);
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.end, kLast + 1960.0);
}

// One that was not there ahead of the silence begins in it, goes on at its times, and so tells that
// the bus was not silent; what it leaves between its frames is none of all.
TEST_F(GapsOfAll, OfOneThatIsMissingAreItsOwnWhereAnotherBegins) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 1000.0}}, 100'000.0, [](auto id, double time) {
        return id == 0x300 ? time < 15'000.0 : time > 10'000.0 && time < 60'000.0;
      });
  EXPECT_TRUE(Common(judged).empty());
  EXPECT_EQ(Own(judged, 0x100).at(0).lost, 4999.0);
  EXPECT_EQ(judged.identifiers[0].lost, 4999.0);
}

TEST_F(GapsOfAll, WithFewCyclesAllAreOverdueBehindAsFew) {
  multiple = 1.5;
  for (const double time : {0.0, 1000.0, 2000.0, 3000.0, 4800.0, 5800.0, 6800.0}) {
    Add(1, time);
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
}

TEST_F(GapsOfAll, AreToldWhereNobodyOfBeforeComesBack) {
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
TEST_F(GapsOfAll, AreNotToldAtTheEndWhereOneIsNotOverdue) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 50'000.0}, {0x7DF, 280'000.0}}, 290'000.0,
             [](auto id, double time) { return id == 0x100 && time > 250'000.0; });
  ASSERT_TRUE(judged.identifiers[1].regular);
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

TEST_F(GapsOfAll, OwnOnesBesideACommonOneAreTold) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 100.0}}, 60'000.0, [](auto id, double time) {
        return (time > 20'000.0 && time < 21'000.0) ||
               (id == 0x200 && time >= 21'000.0 && time < 25'000.0);
      });
  ASSERT_EQ(judged.gaps.size(), 2U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[1].identifier->id, 0x200U);
}

// One that comes at its time decides only what it was sending up to.
TEST_F(GapsOfAll, StayUndecidedBehindAPauseOfAnother) {
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

// The cycles of odd times say nothing of how many frames a silence of all has cost.
TEST_F(GapsOfAll, AreReckonedByTheRegularOnes) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1.0}}, 60'000.0, [](auto id, double time) {
        return (time > 20'000.0 && time < 21'000.0) ||
               (id == 0x200 && std::fmod(time, 1000.0) >= 3.0);
      });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].lost, 99.0);
}

// Every half second of the first identifier is followed by one of silence: far more than are kept.
TEST_F(GapsOfAll, AreCountedBeyondThoseThatAreKept) {
  const JudgedRun judged = Judged({{0x100, 10.0}}, 599'990.0, [](auto, double time) {
    return std::fmod(time, 1000.0) >= 500.0;
  });
  EXPECT_EQ(judged.gaps.size(), GapFinder::kCommon_MAX);
  EXPECT_EQ(judged.gaps.size() + judged.gaps_left_out, 599U);
  EXPECT_EQ(judged.identifiers[0].gaps, 599U);
}

// Once a second all are silent for equally long, more often than gaps are kept.
TEST_F(GapsOfAll, ThatAreEquallyLongAreNoneOfAnIdentifier) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 97.0}}, 1'099'990.0,
             [](auto, double time) { return std::fmod(time, 1000.0) >= 400.0; });
  ASSERT_TRUE(judged.identifiers[1].regular);
  EXPECT_EQ(judged.gaps.size(), GapFinder::kCommon_MAX);
  EXPECT_EQ(judged.gaps.size() + judged.gaps_left_out, 1099U);
  for (const Gap& gap : judged.gaps) EXPECT_EQ(gap.identifier, nullptr) << gap.silence.begin;
}

// The slow one misses the moment at which the others are back.
TEST_F(GapsOfAll, TwoOfAllTogetherAreNoneOfAnIdentifier) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x200, 1000.0}}, 120'000.0, [](auto id, double time) {
        const bool is_back = id == 0x100 && time >= 40'100.0 && time <= 40'200.0;
        return time > 20'000.0 && time < 60'000.0 && !is_back;
      });
  EXPECT_EQ(judged.gaps.size(), 2U);
  for (const Gap& gap : judged.gaps) EXPECT_EQ(gap.identifier, nullptr) << gap.silence.begin;
}

}  // namespace
}  // namespace tolvane::logtool
