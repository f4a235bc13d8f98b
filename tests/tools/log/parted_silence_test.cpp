#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "tests/tools/log/gaps_bed.h"

namespace tolvane::logtool {
namespace {

/// What is told of 0x100, which is missing from 20'000.0 to 60'000.0 while others come once each.
class PartedSilence : public GapsBed {
 protected:
  JudgedRun Parted(int others, double first, double step) {
    for (double time = 0.0; time <= 20'000.0; time += 10.0) Add(0x100, time);
    for (int other = 0; other < others; ++other) {
      Add(0x400 + static_cast<std::uint32_t>(other), first + other * step);
    }
    for (double time = 60'000.0; time <= 80'000.0; time += 10.0) Add(0x100, time);
    return Judged();
  }
  /// One of an identifier of its own at each time.
  static void AddStrays(std::vector<Spell>& spells, const std::vector<double>& times) {
    std::uint32_t id = 0x400;
    for (const double time : times) spells.push_back({id++, time, time});
  }
};

TEST_F(PartedSilence, IsOfAllInSixteenPartsAndNoMore) {
  EXPECT_EQ(Common(Parted(15, 21'000.0, 1'000.0)).size(), 16U);
}

TEST_F(PartedSilence, OfSeventeenPartsIsTheIdentifiersOwn) {
  const JudgedRun judged = Parted(16, 21'000.0, 1'000.0);
  EXPECT_TRUE(Common(judged).empty());
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

TEST_F(PartedSilence, IsOfAllWhereTheBusWasSilentForNineTenthsOfIt) {
  EXPECT_EQ(Common(Parted(101, 30'000.0, 40.0)).size(), 2U) << "without 4 of 40 s";
}

TEST_F(PartedSilence, WhereTheBusWasSilentForLessIsTheIdentifiersOwn) {
  const JudgedRun judged = Parted(102, 30'000.0, 40.0);
  EXPECT_TRUE(Common(judged).empty());
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

// Another begins and stops within that silence, and has nine parts of it for itself.
TEST_F(PartedSilence, OfTooManyPartsHidesNoneOfAnother) {
  const auto add = [&](std::uint32_t id, double begin, double end, double step) {
    for (double time = begin; time <= end; time += step) Add(step > 100.0 ? id++ : id, time);
  };
  add(0x100, 0.0, 10'000.0, 10.0);
  add(0x400, 11'000.0, 19'100.0, 900.0);
  add(0x200, 20'500.0, 20'600.0, 10.0);
  add(0x500, 22'000.0, 36'000.0, 2'000.0);
  for (double time = 40'000.0; time <= 60'000.0; time += 10.0) {
    Add(0x100, time);
    Add(0x200, time);
  }
  const JudgedRun judged = Judged();
  EXPECT_EQ(Common(judged).size(), 9U);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

// More strays than pauses are kept undecided.
TEST_F(PartedSilence, AmongVeryManyStraysAreOfTheIdentifiers) {
  const JudgedRun judged =
      Judged({{0x100, 10.0}, {0x7DF, 1.0}}, 200'000.0, [](auto id, double time) {
        return id == 0x100 ? time > 10'000.0 && time < 190'000.0 : std::fmod(time, 300.0) >= 3.0;
      });
  ASSERT_FALSE(judged.identifiers[1].regular);
  ASSERT_EQ(judged.gaps.size(), 1U);
  EXPECT_EQ(judged.gaps[0].lost, 17'999.0);
  EXPECT_NE(judged.gaps[0].identifier, nullptr);
}

using EndsOfGaps = std::vector<std::pair<double, double>>;

// 0x700 comes every 5 s as ever, at last behind a pause of 0x200, which then is of that alone.
// Nobody of before the first one comes back.
TEST_F(PartedSilence, StaysWhereAFurtherPartWasNone) {
  const JudgedRun judged = Judged({{0x100, 0.0, 10'000.0},
                                   {0x200, 10'500.0, 10'600.0},
                                   {0x200, 15'560.0, 40'000.0},
                                   {0x700, 10'550.0, 35'550.0, 5'000.0}});
  EXPECT_EQ(Ends(Common(judged)), (EndsOfGaps{{10'000.0, 10'500.0}}));
  EXPECT_EQ(Own(judged, 0x200).size(), 2U) << "one until its first frame";
}

// As ahead, with another pause in which it was no part any more, and none is taken out twice.
TEST_F(PartedSilence, LosesNothingByAPauseThatWasNoPartOfIt) {
  const JudgedRun judged = Judged({{0x100, 0.0, 10'000.0},
                                   {0x200, 10'500.0, 10'600.0},
                                   {0x200, 10'650.0, 10'700.0},
                                   {0x200, 15'560.0, 40'000.0},
                                   {0x700, 10'550.0, 35'550.0, 5'000.0}});
  EXPECT_EQ(Ends(Common(judged)), (EndsOfGaps{{10'000.0, 10'500.0}}));
}

// One begins 2 s ahead of the others, and its own pauses are found to be none as often as they
// come. They are far more than a silence may have parts.
TEST_F(PartedSilence, IsPartedByNoPauseOfOneThatBeginsInIt) {
  const JudgedRun judged = Judged(
      {{0x100, 0.0, 10'000.0}, {0x100, 42'040.0, 60'000.0}, {0x300, 40'000.0, 60'000.0, 100.0}});
  EXPECT_EQ(Ends(Common(judged)), (EndsOfGaps{{10'000.0, 40'000.0}}));
}

// Six strays part it near its begin, where less than nine tenths were silent for a moment.
TEST_F(PartedSilence, ThatLastsAgainIsOfAll) {
  std::vector<Spell> spells = {{0x100, 0.0, 10'000.0}, {0x100, 40'000.0, 60'000.0}};
  AddStrays(spells, {10'100.0, 10'103.0, 10'105.0, 10'120.0, 10'130.0, 10'190.0});
  EXPECT_EQ(Ends(Common(Judged(spells))), (EndsOfGaps{{10'000.0, 10'100.0}, {10'190.0, 40'000.0}}));
}

// As ahead, where the first one behind it is a slow one that is just due, and most are back then.
TEST_F(PartedSilence, ThatLastsAgainIsOfAllBehindASlowOneThatWasJustDue) {
  std::vector<Spell> spells = {{0x700, 0.0, 40'000.0, 5'000.0}};
  for (const std::uint32_t id : {0x100U, 0x101U, 0x102U}) {
    spells.push_back({id, 0.0, 10'000.0});
    spells.push_back({id, 15'010.0, 40'000.0});
  }
  AddStrays(spells, {10'100.0, 10'103.0, 10'105.0, 10'120.0, 10'130.0, 10'190.0});
  EXPECT_EQ(Ends(Common(Judged(spells))), (EndsOfGaps{{10'000.0, 10'100.0}, {10'190.0, 15'000.0}}));
}

// What lasts again are the pauses of one that has begun, and comes at its times.
TEST_F(PartedSilence, ThatLastsAgainByPausesOfAnotherIsTheIdentifiersOwn) {
  std::vector<Spell> spells = {
      {0x100, 0.0, 10'000.0}, {0x100, 11'750.0, 20'000.0}, {0x300, 10'500.0, 20'000.0, 100.0}};
  AddStrays(spells, {10'200.0, 10'210.0, 10'220.0, 10'230.0, 10'290.0});
  const JudgedRun judged = Judged(spells);
  EXPECT_EQ(Ends(Common(judged)), EndsOfGaps{});
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

// The parts of the first one are left, and nobody will decide them.
TEST_F(PartedSilence, IsOfAllThoughOneOfTooManyPartsIsBeforeIt) {
  std::vector<Spell> spells = {
      {0x100, 0.0, 10'000.0}, {0x100, 44'000.0, 54'000.0}, {0x100, 84'000.0, 94'000.0}};
  std::vector<double> strays;
  for (double time = 12'000.0; time <= 42'000.0; time += 2'000.0) strays.push_back(time);
  strays.push_back(54'500.0);
  AddStrays(spells, strays);
  const JudgedRun judged = Judged(spells);
  ASSERT_EQ(Common(judged).size(), 2U);
  EXPECT_EQ(Common(judged)[0].silence.begin, 54'000.0);
  EXPECT_EQ(Common(judged)[1].silence.begin, 54'500.0);
  EXPECT_EQ(Own(judged, 0x100).size(), 1U);
}

TEST_F(PartedSilence, ThatIsOverHasNoPartsOfAllWhereAnotherStoppedBefore) {
  std::vector<Spell> spells = {{0x001, 0.0, 10'000.0},
                               {0x100, 15'000.0, 30'000.0},
                               {0x100, 45'000.0, 60'000.0},
                               {0x200, 32'010.0, 60'000.0}};
  AddStrays(spells, {31'000.0, 32'000.0});
  const JudgedRun judged = Judged(spells);
  ASSERT_EQ(Common(judged).size(), 1U);
  EXPECT_EQ(Common(judged)[0].silence.begin, 10'000.0);
  ASSERT_EQ(Own(judged, 0x100).size(), 2U) << "with the one ahead of it";
  EXPECT_EQ(Own(judged, 0x100)[1].silence.length, 15'000.0);
}

}  // namespace
}  // namespace tolvane::logtool
