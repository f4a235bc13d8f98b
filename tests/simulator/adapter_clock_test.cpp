#include "simulator/adapter_clock.h"

#include <gtest/gtest.h>

namespace tolvane::simulator {
namespace {

constexpr std::int64_t kSecond = 1'000'000;

struct StampRow {
  const char* label;
  StampUnit unit;
  ClockFaults faults;
  std::int64_t bus_us;
  std::int32_t stamp;
};

class AdapterStamp : public testing::TestWithParam<StampRow> {};

TEST_P(AdapterStamp, FollowsFromBusTime) {
  EXPECT_EQ(Stamp(GetParam().unit, GetParam().faults, GetParam().bus_us), GetParam().stamp);
}

INSTANTIATE_TEST_SUITE_P(
    , AdapterStamp,
    testing::Values(
        StampRow{"CanusbCountsMilliseconds", kCanusbStamps, {}, 1'999, 1},
        StampRow{"CanusbLastBeforeTheWrap", kCanusbStamps, {}, 60 * kSecond - 1, 59'999},
        StampRow{"CanusbStartsOver", kCanusbStamps, {}, 60 * kSecond, 0},
        StampRow{"CanusbStartValue", kCanusbStamps, {.start = 30'000}, 29'990'000, 59'990},
        StampRow{"CanusbStartValueWraps", kCanusbStamps, {.start = 30'000}, 30'010'000, 10},
        StampRow{"CanusbFast", kCanusbStamps, {.ppm = 1'000}, 10 * kSecond, 10'010},
        StampRow{"CanusbSlow", kCanusbStamps, {.ppm = -1'000}, 10 * kSecond, 9'990},
        StampRow{"InterfaceCountsMicroseconds", kIfcanStamps, {}, 123'456'789, 123'456'789},
        StampRow{"InterfaceTurnsNegative", kIfcanStamps, {}, 0x80000000, INT32_MIN},
        StampRow{"InterfaceLastBeforeTheWrap", kIfcanStamps, {}, 0xFFFFFFFF, -1},
        StampRow{"InterfaceStartsOver", kIfcanStamps, {}, 0x100000000, 0},
        StampRow{"LastBeforeAToldWrap", kIfcanStamps, {.wrap = 1'000}, 999, 999},
        StampRow{"AToldWrap", kIfcanStamps, {.wrap = 1'000}, 1'000, 0},
        StampRow{"KvaserHasNoWrapAtAMinute", kCanlibStamps, {}, 60 * kSecond, 60'000},
        StampRow{"KvaserUpperHalfIsNegative", kCanlibStamps, {.start = 0xFFFFFFFF}, 0, -1},
        StampRow{"BeforeAStepBack",
                 kCanlibStamps,
                 {.steps = {{2 * kSecond, -500'000}}},
                 2 * kSecond - 1,
                 1'999},
        StampRow{
            "AtAStepBack", kCanlibStamps, {.steps = {{2 * kSecond, -500'000}}}, 2 * kSecond, 1'500},
        StampRow{"StepsAddUp",
                 kCanlibStamps,
                 {.steps = {{kSecond, -500'000}, {2 * kSecond, 100'000}}},
                 3 * kSecond,
                 2'600},
        StampRow{"AStepBelowZeroWrapsDown", kCanusbStamps, {.steps = {{0, -1'500}}}, 0, 59'998},
        StampRow{"YearsDoNotOverflow",
                 kCanusbStamps,
                 {.ppm = 900'000},
                 std::int64_t{3'000} * 86'400 * kSecond,
                 0}),
    [](const auto& row) { return row.param.label; });

}  // namespace
}  // namespace tolvane::simulator
