#include "platform/memory/system/wall_clock.h"

#include <gtest/gtest.h>

namespace tolvane::platform::memory {
namespace {

TEST(WallClock, WritesDatesAsJapaneseSystemsDo) {
  WallClock clock({2026, 11, 20, 5, 9, 5, 7});
  EXPECT_EQ(clock.GeneralDate(clock.Now()), u"2026/11/20 9:05:07");
  EXPECT_EQ(clock.ShortWeekday(clock.Now()), u"金");
  clock.Set({2027, 1, 3, 0, 23, 0, 0});
  EXPECT_EQ(clock.GeneralDate(clock.Now()), u"2027/01/03 23:00:00");
  EXPECT_EQ(clock.ShortWeekday(clock.Now()), u"日");
}

TEST(WallClock, MidnightIsTheDateAlone) {
  WallClock clock({});
  EXPECT_EQ(clock.GeneralDate({2027, 1, 3, 0, 0, 0, 0}), u"2027/01/03");
  EXPECT_EQ(clock.GeneralDate({2027, 1, 3, 0, 0, 0, 1}), u"2027/01/03 0:00:01");
  EXPECT_EQ(clock.GeneralDate({2027, 1, 3, 0, 0, 1, 0}), u"2027/01/03 0:01:00");
}

}  // namespace
}  // namespace tolvane::platform::memory
