#include "platform/windows/rich_text/line_ends.h"

#include <gtest/gtest.h>

namespace tolvane::platform::windows {
namespace {

// Page: a b CR LF c CR LF CR LF d; control: a b CR c CR CR d.
constexpr StringView kMixedEnds = u"ab\rc\r\rd";

TEST(LineEnds, EachCountsTwoOnThePageAndOneInTheControl) {
  const std::size_t control_of_page[] = {0, 1, 2, 2, 3, 4, 4, 5, 5, 6, 7};
  for (std::size_t page = 0; page < std::size(control_of_page); ++page) {
    EXPECT_EQ(ControlPosition(kMixedEnds, page), control_of_page[page]) << page;
  }
  const std::size_t page_of_control[] = {0, 1, 2, 4, 5, 7, 9, 10};
  for (std::size_t control = 0; control < std::size(page_of_control); ++control) {
    EXPECT_EQ(PagePosition(kMixedEnds, control), page_of_control[control]) << control;
  }
}

TEST(LineEnds, PositionsBehindTheTextStopAtItsEnd) {
  EXPECT_EQ(ControlPosition(kMixedEnds, 1000), kMixedEnds.size());
  EXPECT_EQ(PagePosition(kMixedEnds, 1000), 10U);
  EXPECT_EQ(ControlPosition(u"", 3), 0U);
}

TEST(LineEnds, PageTextHasBothCharacters) {
  EXPECT_EQ(WithPageLineEnds(kMixedEnds), u"ab\r\nc\r\n\r\nd");
}

}  // namespace
}  // namespace tolvane::platform::windows
