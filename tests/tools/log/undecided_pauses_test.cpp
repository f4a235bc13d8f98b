#include "tools/log/info/undecided_pauses.h"

#include <gtest/gtest.h>

#include <vector>

namespace tolvane::logtool {
namespace {

Moment At(double time) { return {time, 0.0}; }

Pause Between(double begin, double end) { return {At(begin), At(end)}; }

/// Of a bus on which whoever misses has a limit of 50 ms.
class PausesOfTheBus : public ::testing::Test {
 protected:
  static constexpr double kLimit = 50.0;

  /// As one in which somebody is missing.
  void Add(double begin, double end, double limit = kLimit) {
    pauses.Part(Between(begin, end), false);
    pauses.Add(Between(begin, end), limit);
  }
  void AddToAStray(double begin, double end) { pauses.Part(Between(begin, end), true); }
  [[nodiscard]] std::vector<double> Begins() const {
    std::vector<double> begins;
    for (std::size_t place = 0; place < pauses.Count(); ++place)
      begins.push_back(pauses.At(place).begin.time);
    return begins;
  }

  UndecidedPauses pauses;
};

TEST_F(PausesOfTheBus, LastWhileTheirPartsAreNineTenths) {
  Add(0.0, 900.0);
  EXPECT_TRUE(pauses.Lasts(0, At(1'000.0)));
  EXPECT_FALSE(pauses.Lasts(0, At(1'000.5)));
  EXPECT_TRUE(pauses.Lasts(0, At(2'000.0), 900.0)) << "with another part of that length";
  EXPECT_FALSE(pauses.Lasts(0, At(2'000.0), 899.5));
}

TEST_F(PausesOfTheBus, HaveAsPartsThoseBehindThemThatAreTooLongToo) {
  Add(0.0, 900.0);
  AddToAStray(950.0, 1'000.0);
  EXPECT_FALSE(pauses.Lasts(0, At(1'055.0))) << "50 ms are not";
  AddToAStray(1'000.0, 1'055.0);
  EXPECT_TRUE(pauses.Lasts(0, At(1'055.0)));
  EXPECT_TRUE(pauses.LastsThroughItsParts(0));
  EXPECT_EQ(Begins(), std::vector<double>{0.0}) << "nobody misses in it";
}

TEST_F(PausesOfTheBus, ThatAreOverAreNotPartedByThoseOfOthersButByStrays) {
  Add(0.0, 100.0);
  Add(200.0, 300.0);
  EXPECT_TRUE(pauses.Lasts(0, At(100.0)));
  EXPECT_FALSE(pauses.Lasts(0, At(2'000.0), 1'699.5)) << "the second one is no part";
  AddToAStray(300.0, 2'000.0);
  EXPECT_TRUE(pauses.Lasts(0, At(2'000.0)));
  EXPECT_TRUE(pauses.Lasts(1, At(2'000.0)));
}

TEST_F(PausesOfTheBus, OfMoreThanSixteenPartsAreNone) {
  Add(0.0, 10'000.0);
  double time = 10'000.0;
  for (std::size_t part = 1; part < UndecidedPauses::kParts_MAX; ++part, time += 60.0)
    AddToAStray(time, time + 60.0);
  EXPECT_EQ(pauses.Count(), 1U);
  AddToAStray(time, time + 60.0);
  EXPECT_EQ(pauses.Count(), 0U);
}

TEST_F(PausesOfTheBus, CountNoPartThatWasNoSilence) {
  Add(0.0, 10'000.0);
  for (double time = 10'000.0; time < 11'000.0; time += 60.0) {
    Add(time, time + 60.0);
    pauses.Drop(1, 2);
    pauses.AreNoSilence({Between(time, time + 60.0)});
  }
  EXPECT_EQ(Begins(), std::vector<double>{0.0});
  EXPECT_TRUE(pauses.Lasts(0, At(11'100.0)));
  EXPECT_FALSE(pauses.Lasts(0, At(11'200.0)));
}

// Between the two something was sent.
TEST_F(PausesOfTheBus, EndWithTheLastPartThatIsASilence) {
  Add(0.0, 500.0);
  Add(600.0, 5'560.0);
  pauses.Drop(1, 2);
  EXPECT_TRUE(pauses.LastsThroughItsParts(0));
  EXPECT_TRUE(pauses.Lasts(0, At(5'560.0)));
  pauses.AreNoSilence({Between(600.0, 5'560.0)});
  EXPECT_TRUE(pauses.LastsThroughItsParts(0));
  EXPECT_FALSE(pauses.Lasts(0, At(5'560.0)));
  EXPECT_TRUE(pauses.Lasts(0, At(555.0))) << "nothing else is taken out";
}

TEST_F(PausesOfTheBus, LoseNothingByWhatIsNoPartOfThem) {
  Add(0.0, 100.0);
  Add(200.0, 300.0);
  Add(300.0, 5'000.0);
  EXPECT_TRUE(pauses.Lasts(0, At(5'000.0)));
  pauses.Drop(1, 3);
  pauses.AreNoSilence({Between(200.0, 300.0), Between(300.0, 5'000.0)});
  EXPECT_TRUE(pauses.LastsThroughItsParts(0));
  EXPECT_TRUE(pauses.Lasts(0, At(111.0)));
}

TEST_F(PausesOfTheBus, AreTheLongestThatAreKept) {
  constexpr std::size_t kShort = UndecidedPauses::kPauses_MAX - 1;
  Add(0.0, 10'000.0, 20'000.0);
  for (std::size_t n = 0; n < kShort; ++n) {
    const double begin = 20'000.0 + static_cast<double>(n) * 1'000.0;
    Add(begin, begin + 100.0, 20'000.0);
  }
  EXPECT_EQ(pauses.Count(), UndecidedPauses::kPauses_MAX);
  Add(70'000.0, 70'060.0, 20'000.0);
  EXPECT_EQ(pauses.Count(), UndecidedPauses::kPauses_MAX);
  EXPECT_EQ(Begins()[0], 0.0);
  EXPECT_EQ(Begins()[1], 21'000.0) << "of equal ones the first goes";
  Add(80'000.0, 80'100.0, 20'000.0);
  EXPECT_EQ(Begins()[kShort - 1], 50'000.0);
  EXPECT_EQ(Begins()[kShort], 80'000.0) << "and a shorter one ahead of these";
}

TEST_F(PausesOfTheBus, ThatLastAreKeptAheadOfLongerOnesThatAreOver) {
  double begin = 0.0;
  for (std::size_t n = 0; n < UndecidedPauses::kPauses_MAX; ++n, begin += 20'000.0)
    Add(begin, begin + 1'000.0 + static_cast<double>(n), 1'000'000.0);
  Add(begin, begin + 100.0);
  Add(begin + 100.0, begin + 10'000.0);
  EXPECT_EQ(Begins()[UndecidedPauses::kPauses_MAX - 2], begin) << "the begin of what goes on";
  EXPECT_EQ(Begins()[0], 40'000.0);
}

TEST_F(PausesOfTheBus, AreOfOneSilenceWhereTheyAreItsParts) {
  Add(0.0, 900.0);
  Add(900.0, 990.0);
  Add(5'000.0, 5'100.0);
  const std::vector<Pause> parts = pauses.PartsBetween(0, 3);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[1].begin.time, 900.0);
  EXPECT_EQ(pauses.PartsBetween(2, 3).size(), 1U);
}

TEST_F(PausesOfTheBus, LastAgainWhereMoreOfTheTimeIsSilent) {
  EXPECT_FALSE(pauses.OneLastsAgainWith(Between(0.0, 1'000.0)));
  Add(0.0, 1'000.0);
  EXPECT_FALSE(pauses.OneLastsAgainWith(Between(1'000.0, 1'060.0))) << "it was never over";
  EXPECT_FALSE(pauses.OneLastsAgainWith(Between(1'300.0, 1'360.0)));
  EXPECT_TRUE(pauses.OneLastsAgainWith(Between(1'410.0, 20'000.0)));
  AddToAStray(1'410.0, 20'000.0);
  EXPECT_FALSE(pauses.OneLastsAgainWith(Between(20'000.0, 20'060.0))) << "it still does";
}

TEST_F(PausesOfTheBus, DoNotLastAgainWithOneThatIsTooShortForAPart) {
  Add(0.0, 1'000.0);
  EXPECT_FALSE(pauses.OneLastsAgainWith(Between(1'118.0, 1'178.0)));
  AddToAStray(1'118.0, 1'178.0);
  EXPECT_FALSE(pauses.OneLastsAgainWith(Between(1'178.0, 1'228.0))) << "50 ms";
  EXPECT_TRUE(pauses.OneLastsAgainWith(Between(1'178.0, 1'230.0)));
}

TEST_F(PausesOfTheBus, ThatBeginBehindAStepBackOfTheTimeAreDropped) {
  Add(0.0, 1'000.0);
  Add(1'000.0, 2'000.0);
  Add(2'000.0, 3'000.0);
  pauses.StepBackTo(At(1'000.0));
  EXPECT_EQ(Begins(), (std::vector<double>{0.0, 1'000.0}));
  EXPECT_FALSE(pauses.Lasts(0, At(2'500.0))) << "nor are they parts any more";
  EXPECT_TRUE(pauses.Lasts(0, At(2'200.0)));
}

TEST_F(PausesOfTheBus, HaveTheirPlacesInTheOrderOfTime) {
  Add(0.0, 1'000.0);
  Add(1'000.0, 2'000.0);
  Add(3'000.0, 4'000.0);
  EXPECT_EQ(pauses.FirstFrom(At(0.0)), 0U);
  EXPECT_EQ(pauses.FirstFrom(At(0.5)), 1U);
  EXPECT_EQ(pauses.FirstFrom(At(3'000.5)), pauses.Count());
  const std::vector<Pause> behind = pauses.Between(1, 3);
  ASSERT_EQ(behind.size(), 2U);
  EXPECT_EQ(behind[1].begin.time, 3'000.0);
  pauses.Drop(0, 2);
  EXPECT_EQ(Begins(), std::vector<double>{3'000.0});
}

}  // namespace
}  // namespace tolvane::logtool
