#include "platform/colour_fade.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "platform/memory/system/support_library.h"

namespace tolvane::platform {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

struct Row {
  const char* label;
  std::int32_t colour;
  std::int32_t remaining;
  std::int32_t total;
  std::int32_t expected;
};

class FadeRow : public testing::TestWithParam<Row> {};

TEST_P(FadeRow, GivesTheStatedColour) {
  const Row& row = GetParam();
  EXPECT_EQ(FadeToBlack(row.colour, row.remaining, row.total), row.expected);
  memory::SupportLibrary in_memory;
  EXPECT_EQ(in_memory.ColorAttenuation(row.colour, row.remaining, row.total), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    ColourFade, FadeRow,
    testing::Values(Row{"FullTimeIsTheColourItself", 0x336699, 60000, 60000, 0x336699},
                    Row{"HalfTimeIsHalfOfEachChannel", 0x204060, 30000, 60000, 0x102030},
                    Row{"LastStepIsAlmostBlack", 0x0000FF, 30, 60000, 0},
                    Row{"NothingLeftIsBlack", 0xFFFFFF, 0, 60000, 0},
                    Row{"LessThanNothingIsBlack", 0xFFFFFF, -30, 60000, 0},
                    Row{"LeastRemainingIsBlack", 0xFFFFFF, kMin, kMax, 0},
                    Row{"MoreThanTheTotalCountsAsTheTotal", 0x123456, 60001, 60000, 0x123456},
                    Row{"TotalOfZeroDoesNotFade", 0x123456, 1, 0, 0x123456},
                    Row{"NegativeTotalDoesNotFade", 0x123456, 1, -60000, 0x123456},
                    Row{"LeastTotalDoesNotFade", 0x123456, kMax, kMin, 0x123456},
                    Row{"NegativeTotalWithNothingLeftIsBlack", 0x123456, -1, -2, 0},
                    Row{"LongestTimesDoNotOverflow", 0xFFFFFF, kMax - 1, kMax, 0xFEFEFE},
                    Row{"HighByteIsDroppedWhileFading", kMin | 0xFF, 1, 2, 0x7F},
                    Row{"HighByteStaysWhileNothingFades", kMin | 0xFF, 2, 2, kMin | 0xFF}),
    [](const testing::TestParamInfo<Row>& row) { return std::string(row.param.label); });

TEST(ColourFade, FallsSteadilyInEachChannelFromTheColourToBlack) {
  constexpr std::int32_t kColour = 0xFF8001;
  std::int32_t previous = kColour;
  for (std::int32_t remaining = 60000; remaining >= 0; remaining -= 30) {
    const std::int32_t faded = FadeToBlack(kColour, remaining, 60000);
    for (int shift = 0; shift <= 16; shift += 8) {
      ASSERT_LE((faded >> shift) & 0xFF, (previous >> shift) & 0xFF) << remaining;
    }
    previous = faded;
  }
  EXPECT_EQ(previous, 0);
}

}  // namespace
}  // namespace tolvane::platform
