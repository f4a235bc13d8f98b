#include "tools/log/info/gaps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace tolvane::logtool {
namespace {

/// Statistics of frames that come every so many ms.
class Gaps : public ::testing::Test {
 public:
  struct Message {
    std::uint32_t id;
    double cycle;
  };

 protected:
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

TEST_F(Gaps, OfAllHaveLostFramesOfThoseForWhichTheyAreNoGap) {
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
  EXPECT_EQ(judged.gaps[0].lost, 399.0 + 3.0);
}

/// A slow identifier that comes at 21'000.0 as ever, ahead of the others, which may be missing
/// since 20'000.0.
const std::vector<Gaps::Message> kWithASlowOne = {
    {0x300, 1000.0}, {0x100, 10.0}, {0x101, 20.0}, {0x102, 50.0}};

TEST_F(Gaps, OfAllAreFoundBehindASlowOneThatWasJustDue) {
  const JudgedRun judged = Judged(kWithASlowOne, 60'000.0, [](auto, double time) {
    return time > 20'000.0 && time < 21'000.0;
  });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.length, 1'000.0);
  EXPECT_EQ(judged.gaps[0].lost, 99.0 + 49.0 + 19.0);
}

// Two of three within one of their cycles, and the third later.
TEST_F(Gaps, OfAllAreFoundWhereMostAreBackWithinACycle) {
  const JudgedRun judged = Judged(kWithASlowOne, 60'000.0, [](auto id, double time) {
    return time > 20'000.0 &&
           (time < 21'000.0 || (id == 0x100 && time < 21'010.0) ||
            (id == 0x101 && time < 21'020.0) || (id == 0x102 && time < 21'100.0));
  });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].lost, 100.0 + 50.0 + 21.0);
}

TEST_F(Gaps, OfThoseWhoComeBackOneByOneBehindASlowOneAreTheirOwn) {
  const JudgedRun judged = Judged(kWithASlowOne, 60'000.0, [](auto id, double time) {
    return time > 20'000.0 && (time < 21'000.0 || (id == 0x100 && time < 21'020.0) ||
                               (id == 0x101 && time < 21'040.0));
  });
  ASSERT_EQ(judged.gaps.size(), 3U);
  for (const std::uint32_t id : {0x100U, 0x101U, 0x102U}) EXPECT_EQ(Own(judged, id).size(), 1U);
}

TEST_F(Gaps, OfTwoOfWhomOneIsBackWithASlowOneAreTheirOwn) {
  const JudgedRun judged =
      Judged({{0x300, 1000.0}, {0x100, 10.0}, {0x101, 20.0}}, 60'000.0, [](auto id, double time) {
        return time > 20'000.0 && (time < 21'000.0 || (id == 0x101 && time < 21'040.0));
      });
  ASSERT_EQ(judged.gaps.size(), 2U);
  for (const std::uint32_t id : {0x100U, 0x101U}) EXPECT_EQ(Own(judged, id).size(), 1U);
}

TEST_F(Gaps, OfOneThatIsBackWithASlowOneAreItsOwn) {
  const JudgedRun judged = Judged(
      {{0x300, 1000.0}, {0x100, 10.0}}, 60'000.0,
      [](auto id, double time) { return id == 0x100 && time > 20'000.0 && time < 21'000.0; });
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

TEST_F(Gaps, OfOneThatIsBackWithASlowOneShortlyAheadOfTheEndAreItsOwn) {
  const JudgedRun judged =
      Judged({{0x300, 1000.0}, {0x100, 100.0}, {0x101, 100.0}, {0x102, 100.0}}, 21'050.0,
             [](auto id, double time) {
               return id != 0x300 && time > 20'000.0 && (time < 21'000.0 || id != 0x100);
             });
  ASSERT_EQ(Own(judged, 0x100).size(), 1U);
  EXPECT_EQ(Own(judged, 0x100)[0].edge, Gap::Edge::kNone);
}

// Nobody is awaited behind that many frames of others.
TEST_F(Gaps, OfThoseWhoAreBackBehindVeryManyOthersAreTheirOwn) {
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
TEST_F(Gaps, OfAllAreFoundBehindSlowOnesThatFollowOneAnother) {
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

// They have a cycle of their own then, and would come at their time.
TEST_F(Gaps, OfAllAreToldThoughStraysAreEvenlyApart) {
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
TEST_F(Gaps, OfOneThatIsMissingAreItsOwnBesideOneOfFewCycles) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 1000.0}}, 4'800.0,
             [](auto id, double time) { return id == 0x100 && time > 1'490.0 && time < 3'900.0; });
  EXPECT_EQ(judged.identifiers[1].statistics->cycles.Count(), 4U);
  EXPECT_TRUE(Common(judged).empty());
  EXPECT_EQ(Own(judged, 0x100).at(0).lost, 240.0);
}

// Another goes on at odd times, and sometimes leaves the bus silent for a moment.
TEST_F(Gaps, OfOneThatStopsShortlyAheadOfTheEndAreItsOwn) {
  const double steps[] = {60.0, 7.0, 7.0};
  std::size_t step = 0;
  double other = 0.0;
  for (double time = 0.0; time <= 60'000.0; time += 1.0) {
    const auto add = [&](std::uint32_t id) {
      Add({.time = time, .id = id, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
    };
    if (time == other) {
      add(0x7DF);
      other += steps[step++ % 3];
    }
    if (time <= 59'100.0 && std::fmod(time, 10.0) == 0.0) add(0x100);
  }
  const JudgedRun judged = Judged();
  ASSERT_FALSE(judged.identifiers[1].regular);
  EXPECT_TRUE(Common(judged).empty());
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(Own(judged, 0x100).at(0).edge, Gap::Edge::kEnd);
}

// A slow one rests, and is told to have lost no more than the silence of all had room for.
TEST_F(Gaps, OfAllHaveNotLostWhatASlowOneWasMissingAroundThem) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x300, 1000.0}}, 60'000.0, [](auto id, double time) {
        return id == 0x300 ? time > 18'500.0 && time < 22'500.0
                           : time > 20'300.0 && time < 20'390.0;
      });
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].lost, 8.0 + 1.0);
}

// Others have begun ahead of the second one, and others again behind it.
TEST_F(Gaps, OfAllAreToldAsOftenAsNobodyOfBeforeComesBack) {
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
TEST_F(Gaps, OfABurstMakeNoneOfAll) {
  for (double time = 0.0; time <= 10'000.0; time += 1.0) {
    const auto add = [&](std::uint32_t id) {
      Add({.time = time, .id = id, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
    };
    if (std::fmod(time, 10.0) == 0.0 && time != 5'010.0) add(0x100);
    if (time > 5'000.0 && time < 5'005.0) add(0x7E8);
  }
  const JudgedRun judged = Judged();
  ASSERT_TRUE(judged.identifiers[1].regular);
  EXPECT_TRUE(Common(judged).empty());
}

// The first one behind the silence has lost one frame, and comes a little early.
TEST_F(Gaps, OfAllAreToldWhereTheFirstBackIsNotQuiteTwoCyclesLate) {
  constexpr double kLast = 20'000.0;
  for (double time = 0.0; time <= 60'000.0; time += 10.0) {
    const auto add = [&](std::uint32_t id, double at) {
      Add({.time = at, .id = id, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
    };
    if (time > kLast && time < kLast + 1960.0) continue;
    const bool is_first_back = time == kLast + 1960.0;
    if (is_first_back || (std::fmod(time, 1000.0) == 0.0 && time != kLast + 2000.0)) {
      add(0x300, time);
    }
    if (!is_first_back) add(0x100, time);
  }
  const JudgedRun judged = Judged();
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].identifier, nullptr);
  EXPECT_EQ(judged.gaps[0].silence.end, kLast + 1960.0);
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
      Judged({{0x100, 10.0}, {0x300, 50'000.0}, {0x7DF, 280'000.0}}, 290'000.0,
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

// Those as long as the limit are no gaps, and tell nothing of how alike the gaps are.
TEST_F(Gaps, CyclesAtTheLimitMakeNoSlowerRate) {
  double time = 0.0;
  const auto add = [&](double cycle, int count) {
    for (int i = 0; i < count; ++i) {
      time += cycle;
      Add({.time = time, .id = 1, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
    }
  };
  add(10.0, 800);
  add(50.0, 200);
  add(60.0, 30);
  add(1000.0, 29);
  EXPECT_EQ(Judged().identifiers[0].gaps, 59U);
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

}  // namespace
}  // namespace tolvane::logtool
