#include "platform/rich_text_page.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/counting/allocations.h"

namespace tolvane::platform {
namespace {

/// A page with a text, a colour and a background.
RichTextPage PaintedPage() {
  RichTextPage page;
  page.text = u"ID\r\n1A0";
  page.colours.Paint(4, 7, 0x0000FF);
  page.backgrounds.Paint(0, 2, 0x80FFFF);
  return page;
}

void ExpectEmpty(const RichTextPage& page) {
  EXPECT_EQ(page.text, u"");
  EXPECT_TRUE(page.colours.Runs().empty());
  EXPECT_TRUE(page.backgrounds.Runs().empty());
}

/// Takes the memory of `page` where there is none for its text, colours or backgrounds.
void TakeMemoryWhereThereIsNone(RichTextPage& page) {
  counting::RefuseAbove(100);  // bytes
  page.TakeMemory();
  counting::RefuseAbove(std::numeric_limits<std::size_t>::max());
}

TEST(RichTextPage, MemoryThatIsTakenHoldsTheLargestPageAndLeavesItEmpty) {
  RichTextPage page = PaintedPage();
  page.TakeMemory();
  ExpectEmpty(page);
  const std::int64_t before = counting::Allocations();
  page.text.append(RichTextPage::kCharacters_MAX, u'x');
  for (std::int32_t i = 0; i < std::int32_t{RichTextPage::kColours_MAX}; ++i) {
    page.colours.Paint(i, i + 1, i);
  }
  for (std::int32_t i = 0; i < std::int32_t{RichTextPage::kBackgrounds_MAX}; ++i) {
    page.backgrounds.Paint(i, i + 1, i);
  }
  EXPECT_EQ(counting::Allocations(), before);
}

TEST(RichTextPage, WithoutMemoryAheadItIsEmptyAllTheSame) {
  RichTextPage page = PaintedPage();
  TakeMemoryWhereThereIsNone(page);
  ExpectEmpty(page);
}

TEST(RichTextPage, WithMemoryForItsTextAloneItIsEmptyAllTheSame) {
  RichTextPage page = PaintedPage();
  page.text.reserve(RichTextPage::kCharacters_MAX);
  TakeMemoryWhereThereIsNone(page);
  ExpectEmpty(page);
}

}  // namespace
}  // namespace tolvane::platform
