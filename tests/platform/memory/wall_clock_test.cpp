#include "platform/memory/wall_clock.h"

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

}  // namespace
}  // namespace tolvane::platform::memory
