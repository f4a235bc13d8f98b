#include "view/back_page.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <vector>

#include "tests/view/tick_bed.h"

namespace tolvane {
namespace {

using PaintedRuns = std::vector<platform::ColourRun>;
constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

/// What the page hands over; it has to be given a new text then.
class Finished {
 public:
  explicit Finished(BackPage& page) { page.SwapInto(view_); }
  const platform::RichTextPage* operator->() const { return view_.page.get(); }

 private:
  TickCalls calls_;
  BedView view_{calls_};
};

TEST(BackPage, PaintingIsClampedToThePage) {
  struct Row {
    const char* label;
    std::int32_t start, length;
    PaintedRuns painted;
  };
  const Row rows[] = {{"inside", 2, 3, {{2, 5, 7}}},
                      {"whole", 0, 10, {{0, 10, 7}}},
                      {"over the end", 8, 5, {{8, 10, 7}}},
                      {"behind the end", 10, 1, {}},
                      {"far behind", kHighest, kHighest, {}},
                      {"without end", 1, kHighest, {{1, 10, 7}}},
                      {"before the head", -5, 2, {{0, 2, 7}}},
                      {"far before", kLowest, kHighest, {{0, 10, 7}}},
                      {"length 0", 3, 0, {}},
                      {"negative length", 3, -1, {}},
                      {"lowest length", kHighest, kLowest, {}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.label);
    BackPage page;
    const auto select = [&] {
      page.Text(u"0123456789");
      page.SelStart(row.start);
      page.SelLength(row.length);
    };
    select();
    page.SelColor(7);
    const Finished coloured(page);
    EXPECT_EQ(coloured->colours.Runs(), row.painted);
    EXPECT_EQ(coloured->backgrounds.Runs(), PaintedRuns{});
    select();
    page.Back_Set_Char_Effect(7);
    const Finished marked(page);
    EXPECT_EQ(marked->colours.Runs(), PaintedRuns{});
    EXPECT_EQ(marked->backgrounds.Runs(), row.painted);
  }
}

TEST(BackPage, NewTextDropsAllFormats) {
  BackPage page;
  page.Text(u"0123456789");
  page.SelStart(0);
  page.SelLength(5);
  page.SelColor(1);
  page.Back_Set_Char_Effect(2);
  page.Text(u"abc");
  const Finished renewed(page);
  EXPECT_EQ(renewed->text, u"abc");
  EXPECT_EQ(renewed->colours.Runs(), PaintedRuns{});
  EXPECT_EQ(renewed->backgrounds.Runs(), PaintedRuns{});
}

TEST(BackPage, NewTextDropsTheSelection) {
  BackPage page;
  page.SelStart(0);
  page.SelLength(5);
  page.Text(u"abc");
  page.SelColor(1);
  EXPECT_EQ(Finished(page)->colours.Runs(), PaintedRuns{});
}

TEST(BackPage, TheFinishedPageCrossesWhole) {
  TickCalls calls;
  BedView view(calls);
  BackPage page;
  page.Text(u"0123");
  page.SelStart(1);
  page.SelLength(2);
  page.SelColor(5);
  page.SwapInto(view);
  EXPECT_EQ(view.page->text, u"0123");
  EXPECT_EQ(view.page->colours.Runs(), (PaintedRuns{{1, 3, 5}}));
  page.Text(u"next");
  EXPECT_EQ(view.page->text, u"0123");
}

}  // namespace
}  // namespace tolvane
