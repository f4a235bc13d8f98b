#include "platform/screen_place.h"

#include <gtest/gtest.h>

#include <ostream>

namespace tolvane::platform {

void PrintTo(const ScreenPlace& place, std::ostream* stream) {
  *stream << place.width << "x" << place.height << " at " << place.left << "," << place.top;
}

namespace {

struct Screen {
  const char* label;
  ScreenPlace area;  // pixels
  std::int32_t dpi;
};

// A task bar of 48 units below, or at another edge.
constexpr Screen kScreens[] = {
    {"1920x1080 at 100 %", {0, 0, 1920, 1032}, 96},
    {"1920x1080 at 125 %", {0, 0, 1920, 1020}, 120},
    {"1920x1080 at 150 %", {0, 0, 1920, 1008}, 144},
    {"1366x768 at 100 %", {0, 0, 1366, 720}, 96},
    {"1280x800 at 150 %, bar at the left", {72, 0, 1208, 800}, 144},
    {"1280x720 at 200 %, bar above", {0, 96, 1280, 624}, 192},
    {"800x600 at 100 %", {0, 0, 800, 552}, 96},
    {"1024x768 at 200 %", {0, 0, 1024, 672}, 192},
    {"a screen left of the first one", {-1920, 40, 1920, 1000}, 96},
};

class ScreenPlaceTest : public testing::TestWithParam<Screen> {
 protected:
  [[nodiscard]] static Extent Pixels(Extent units) {
    return {units.width * GetParam().dpi / 96, units.height * GetParam().dpi / 96};
  }
  static void ExpectInArea(const ScreenPlace& place) {
    const ScreenPlace& area = GetParam().area;
    EXPECT_GE(place.left, area.left);
    EXPECT_GE(place.top, area.top);
    EXPECT_LE(place.left + place.width, area.left + area.width);
    EXPECT_LE(place.top + place.height, area.top + area.height);
    EXPECT_GT(place.width, 0);
    EXPECT_GT(place.height, 0);
  }
};

constexpr Extent kFirst{1016, 699};  // units of a first window, its frame and menu included

TEST_P(ScreenPlaceTest, AFirstWindowLiesInsideTheWorkAreaWhereverTheSystemBeginsIt) {
  const ScreenPlace& area = GetParam().area;
  for (const std::int32_t offset : {-50, 0, 26, 104, 700, 3000}) {
    const ScreenPlace place = Inside(area, area.left + offset, area.top + offset, Pixels(kFirst));
    SCOPED_TRACE(testing::PrintToString(place));
    ExpectInArea(place);
  }
}

TEST_P(ScreenPlaceTest, ALayoutIsDrawnSmallerOnlyWhereItWouldLeaveTheScreen) {
  const ScreenPlace& area = GetParam().area;
  constexpr Extent kClient{820, 360};
  constexpr Extent kFrame{16, 59};
  const std::int32_t dpi = GetParam().dpi;
  const std::int32_t fitting = FittingDpi(dpi, kClient, kFrame, {area.width, area.height});
  // In 96ths of a pixel.
  const auto width = [&](std::int32_t at) { return kClient.width * at + kFrame.width * 96; };
  const auto height = [&](std::int32_t at) { return kClient.height * at + kFrame.height * 96; };
  EXPECT_LE(fitting, dpi);
  EXPECT_LE(width(fitting), area.width * 96);
  EXPECT_LE(height(fitting), area.height * 96);
  if (fitting < dpi) {
    const bool fits =
        width(fitting + 1) <= area.width * 96 && height(fitting + 1) <= area.height * 96;
    EXPECT_FALSE(fits) << "smaller than need be";
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, ScreenPlaceTest, testing::ValuesIn(kScreens),
                         [](const auto& test) { return std::to_string(test.index); });

TEST(ScreenPlace, AWindowThatFitsStandsWhereTheSystemBeginsIt) {
  EXPECT_EQ(Inside({0, 0, 1920, 1032}, 104, 78, {1016, 699}), (ScreenPlace{104, 78, 1016, 699}));
}

TEST(ScreenPlace, AWindowThatIsTooTallIsMovedUpAndCut) {
  EXPECT_EQ(Inside({0, 0, 1920, 1008}, 104, 78, {1524, 1048}), (ScreenPlace{104, 0, 1524, 1008}));
}

TEST(ScreenPlace, AWindowInTheMiddleOfAnotherIsMovedOntoTheScreenAndKeepsItsSize) {
  const ScreenPlace area{0, 0, 1280, 680};
  EXPECT_EQ(InMiddle({100, 100, 800, 400}, {200, 100}, area), (ScreenPlace{400, 250, 200, 100}));
  EXPECT_EQ(InMiddle({1000, 500, 800, 400}, {600, 300}, area), (ScreenPlace{680, 380, 600, 300}));
  EXPECT_EQ(InMiddle({-500, -500, 400, 400}, {600, 300}, area), (ScreenPlace{0, 0, 600, 300}));
  EXPECT_EQ(InMiddle({0, 0, 800, 400}, {1500, 900}, area), (ScreenPlace{0, 0, 1500, 900}));
}

TEST(ScreenPlace, ALayoutOnAScreenWithoutRoomIsStillALayout) {
  EXPECT_EQ(FittingDpi(96, {820, 360}, {16, 59}, {10, 10}), 1);
}

}  // namespace
}  // namespace tolvane::platform
