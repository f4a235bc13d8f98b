#include "view/highlight_rules.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

#include "view/measured_cycle.h"
#include "view/message_marker.h"

namespace tolvane {
namespace {

using Int32 = std::numeric_limits<std::int32_t>;
using Int64 = std::numeric_limits<std::int64_t>;

TEST(Fallen, StopsAtBothEndsOfTheRange) {
  EXPECT_EQ(highlight_rules::Fallen(60000, 30), 59970);
  EXPECT_EQ(highlight_rules::Fallen(20, 30), -10);
  EXPECT_EQ(highlight_rules::Fallen(Int32::min() + 10, 30), Int32::min());
  EXPECT_EQ(highlight_rules::Fallen(Int32::max(), -30), Int32::max());
}

TEST(IsLate, CountsMovesInBothDirectionsFromTheRatioOn) {
  struct Row {
    double stored, measured;
    bool late;
  };
  const Row rows[] = {{100, 100, false}, {100, 142, false}, {100, 143, true}, {100, 135, false},
                      {100, 77, false},  {100, 76, true},   {130, 100, true}, {70, 100, true},
                      {129, 100, false}, {71, 100, false},  {0, 100, false},  {-5, 100, false}};
  for (const Row& row : rows) {
    EXPECT_EQ(highlight_rules::IsLate(row.stored, row.measured, 30), row.late)
        << row.stored << " then " << row.measured;
  }
}

TEST(IsLate, ComputesInDoublePrecision) {
  struct Row {
    double stored, measured;
    std::int32_t ratio;
    bool late;
  };
  // On each of these a wider register would say the opposite.
  const Row rows[] = {{3, 10, 70, true}, {6, 40, 85, true}, {7, 25, 72, false}, {7, 50, 86, false}};
  for (const Row& row : rows) {
    EXPECT_EQ(highlight_rules::IsLate(row.stored, row.measured, row.ratio), row.late)
        << row.stored << " then " << row.measured;
  }
}

TEST(IsLate, TakesAnyRatio) {
  EXPECT_TRUE(highlight_rules::IsLate(100, 100, 0));
  EXPECT_TRUE(highlight_rules::IsLate(100, 100, Int32::min()));
  EXPECT_FALSE(highlight_rules::IsLate(100, 1, Int32::max()));
}

TEST(IsStopped, WantsMoreThanTheRatio) {
  EXPECT_FALSE(highlight_rules::IsStopped(1250, 1000, 100, 250));
  EXPECT_TRUE(highlight_rules::IsStopped(1250.5, 1000, 100, 250));
  EXPECT_FALSE(highlight_rules::IsStopped(1000, 1000, 0.0001, 0));
}

TEST(MeasuredCycle, WholeNumbersRoundHalvesToEven) {
  EXPECT_EQ(MeasuredCycle(100.5, CycleType::kWhole).ten_thousandths, 1'000'000);
  EXPECT_EQ(MeasuredCycle(101.5, CycleType::kWhole).ten_thousandths, 1'020'000);
  EXPECT_EQ(MeasuredCycle(-59980.2, CycleType::kWhole).ten_thousandths, -599'800'000);
}

TEST(MeasuredCycle, FourDecimalsKeepTheFraction) {
  EXPECT_EQ(MeasuredCycle(100.25, CycleType::kFourDecimals).ten_thousandths, 1'002'500);
  EXPECT_EQ(MeasuredCycle(0.00004, CycleType::kFourDecimals).ten_thousandths, 0);
}

TEST(MeasuredCycle, WhatDoesNotFitStopsAtTheEndsAndAWholeNumberStaysWhole) {
  constexpr std::int64_t kLastWhole = 9'223'372'036'854'770'000;
  EXPECT_EQ(MeasuredCycle(1e300, CycleType::kWhole).ten_thousandths, kLastWhole);
  EXPECT_EQ(MeasuredCycle(-1e300, CycleType::kWhole).ten_thousandths, -kLastWhole);
  for (const double beyond : {922'337'203'685'477.0, 922'337'203'685'478.0, 1e15}) {
    EXPECT_EQ(MeasuredCycle(beyond, CycleType::kWhole).ten_thousandths, kLastWhole) << beyond;
    EXPECT_EQ(MeasuredCycle(-beyond, CycleType::kWhole).ten_thousandths, -kLastWhole) << beyond;
  }
  EXPECT_EQ(MeasuredCycle(922'337'203'685'476.0, CycleType::kWhole).ten_thousandths,
            kLastWhole - 10'000);
  EXPECT_EQ(MeasuredCycle(-922'337'203'685'476.0, CycleType::kWhole).ten_thousandths,
            10'000 - kLastWhole);
  EXPECT_EQ(
      MeasuredCycle(std::numeric_limits<double>::quiet_NaN(), CycleType::kWhole).ten_thousandths,
      -kLastWhole);
  EXPECT_EQ(MeasuredCycle(std::numeric_limits<double>::infinity(), CycleType::kFourDecimals)
                .ten_thousandths,
            Int64::max());
}

TEST(WrapRepaired, AddsTheLengthOfTheCounterToNegativeCyclesOnly) {
  struct Row {
    std::int32_t kind;
    std::int64_t repaired;
  };
  for (const Row& row :
       {Row{1, 200'000}, Row{2, 3'695'110'000}, Row{3, -599'800'000}, Row{0, -599'800'000}}) {
    EXPECT_EQ(WrapRepaired({-599'800'000}, row.kind).ten_thousandths, row.repaired) << row.kind;
  }
  EXPECT_EQ(WrapRepaired({0}, 1).ten_thousandths, 0);
  EXPECT_EQ(WrapRepaired({5}, 1).ten_thousandths, 5);
  EXPECT_EQ(WrapRepaired({Int64::min()}, 1).ten_thousandths, Int64::min() + 600'000'000);
}

TEST(StoredCycleText, IsTheGeneralFormOfWhatTheTableHolds) {
  struct Row {
    std::int64_t ten_thousandths;
    StringView text;
  };
  const Row rows[] = {{1'000'000, u"100"},
                      {1'002'500, u"100.25"},
                      {1, u"0.0001"},
                      {1'234'567'890'123, u"123456789.0123"},
                      {999'999'999'999'999, u"99999999999.9999"},
                      {1'234'567'890'123'456, u"123456789012.346"},
                      {9'223'372'036'854'770'000, u"922337203685477"}};
  for (const Row& row : rows) {
    const double stored = StoredCycle({row.ten_thousandths});
    EXPECT_EQ(StoredCycleText(stored).View(), row.text);
    EXPECT_EQ(StoredCycleText(stored).View(), DecimalText(stored).View());
  }
  EXPECT_EQ(StoredCycleText(0.0).View(), u"0");
}

TEST(MarkerLength, RunsFromTheFirstDigitToTheLast) {
  EXPECT_EQ(MarkerLength(3, 3), 2);
  EXPECT_EQ(MarkerLength(1, 8), 23);
  EXPECT_EQ(MarkerLength(2, 1), -1);
  EXPECT_EQ(MarkerLength(8, 1), -19);
  EXPECT_EQ(MarkerLength(Int32::min(), Int32::max()), Int32::max());
  EXPECT_EQ(MarkerLength(Int32::max(), Int32::min()), Int32::min());
}

TEST(MarkersOf, FindsTheEnabledMarkersOfOneIDInRisingOrder) {
  ELM327_Info device(u"C:\\Tolvane");
  device.Param_ALL_Clear();
  for (const std::int16_t m : std::to_array<std::int16_t>({1, 4, 7})) {
    device.t_MsgMarkerID(m, 0x123);
    device.t_MsgMarker_ON(m, 1);
  }
  device.t_MsgMarker_ON(4, 2);
  const MarkersOf markers(0x123, device);
  EXPECT_EQ(std::vector<std::int16_t>(markers.begin(), markers.end()),
            (std::vector<std::int16_t>{1, 7}));
  EXPECT_TRUE(MarkersOf(0x124, device).Empty());

  device.t_MsgMarker_MAX = 6;
  const MarkersOf bounded(0x123, device);
  EXPECT_EQ(std::vector<std::int16_t>(bounded.begin(), bounded.end()),
            (std::vector<std::int16_t>{1}));
  device.t_MsgMarker_MAX = Int32::max();
  EXPECT_FALSE(MarkersOf(0x123, device).Empty());
  device.t_MsgMarker_MAX = Int32::min();
  EXPECT_TRUE(MarkersOf(0x123, device).Empty());
}

}  // namespace
}  // namespace tolvane
