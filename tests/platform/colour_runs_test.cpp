#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <map>
#include <ostream>
#include <random>
#include <vector>

#include "platform/rich_text_page.h"

namespace tolvane::platform {

void PrintTo(const ColourRun& run, std::ostream* out) {
  *out << run.start << " to " << run.end << " in " << run.colour;
}

namespace {

using Runs = std::vector<ColourRun>;

TEST(ColourRuns, PaintingInRisingOrderAppends) {
  ColourRuns runs;
  runs.Paint(1, 3, 7);
  runs.Paint(4, 6, 8);
  runs.Paint(6, 7, 9);
  EXPECT_EQ(runs.Runs(), (Runs{{1, 3, 7}, {4, 6, 8}, {6, 7, 9}}));
}

TEST(ColourRuns, LaterPaintCoversEarlierPaint) {
  struct Row {
    const char* label;
    std::int32_t start, end;
    Runs painted;
  };
  const Row rows[] = {
      {"inside one run", 12, 14, {{10, 12, 1}, {12, 14, 9}, {14, 20, 1}, {30, 40, 2}}},
      {"the head of a run", 10, 12, {{10, 12, 9}, {12, 20, 1}, {30, 40, 2}}},
      {"the tail of a run", 18, 20, {{10, 18, 1}, {18, 20, 9}, {30, 40, 2}}},
      {"one run exactly", 10, 20, {{10, 20, 9}, {30, 40, 2}}},
      {"more than all", 0, 50, {{0, 50, 9}}},
      {"from run to run", 15, 35, {{10, 15, 1}, {15, 35, 9}, {35, 40, 2}}},
      {"the gap", 20, 30, {{10, 20, 1}, {20, 30, 9}, {30, 40, 2}}},
      {"before all", 0, 5, {{0, 5, 9}, {10, 20, 1}, {30, 40, 2}}},
      {"inside the last run", 32, 33, {{10, 20, 1}, {30, 32, 2}, {32, 33, 9}, {33, 40, 2}}},
      {"behind all", 40, 41, {{10, 20, 1}, {30, 40, 2}, {40, 41, 9}}},
      {"nothing", 15, 15, {{10, 20, 1}, {30, 40, 2}}},
      {"less than nothing", 15, 5, {{10, 20, 1}, {30, 40, 2}}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.label);
    ColourRuns runs;
    runs.Paint(10, 20, 1);
    runs.Paint(30, 40, 2);
    runs.Paint(row.start, row.end, 9);
    EXPECT_EQ(runs.Runs(), row.painted);
  }
}

TEST(ColourRuns, BothEndsOfTheRangeAreTaken) {
  using Limits = std::numeric_limits<std::int32_t>;
  ColourRuns runs;
  runs.Paint(Limits::min(), Limits::max(), 1);
  runs.Paint(Limits::max(), Limits::min(), 2);
  EXPECT_EQ(runs.Runs(), (Runs{{Limits::min(), Limits::max(), 1}}));
}

TEST(ColourRuns, ClearingForgetsEverything) {
  ColourRuns runs;
  runs.Paint(1, 3, 7);
  runs.Clear();
  EXPECT_EQ(runs.Runs(), Runs{});
  runs.Paint(0, 1, 8);
  EXPECT_EQ(runs.Runs(), (Runs{{0, 1, 8}}));
}

/// What a painter with one cell per character would have.
using Cells = std::map<std::int32_t, std::int32_t>;

Cells CellsOf(const ColourRuns& runs) {
  Cells cells;
  std::int32_t last_end = std::numeric_limits<std::int32_t>::min();
  for (const ColourRun& run : runs.Runs()) {
    EXPECT_LT(run.start, run.end);
    EXPECT_GE(run.start, last_end);
    last_end = run.end;
    for (std::int32_t i = run.start; i < run.end; ++i) cells[i] = run.colour;
  }
  return cells;
}

TEST(ColourRuns, AnyPaintingEqualsCellByCellPainting) {
  std::mt19937 random(20261120);
  std::uniform_int_distribution<std::int32_t> position(-5, 60);
  std::uniform_int_distribution<std::int32_t> length(-3, 12);
  for (int round = 0; round < 500; ++round) {
    ColourRuns runs;
    Cells cells;
    for (std::int32_t colour = 1; colour <= 25; ++colour) {
      const std::int32_t start = position(random);
      const std::int32_t end = start + length(random);
      runs.Paint(start, end, colour);
      for (std::int32_t i = start; i < end; ++i) cells[i] = colour;
      ASSERT_EQ(CellsOf(runs), cells) << "round " << round << ", paint " << colour;
    }
  }
}

TEST(ColourWalk, FindsTheRunAtEachPositionAndWhereThatChanges) {
  ColourRuns runs;
  runs.Paint(2, 4, 10);
  runs.Paint(4, 5, 20);
  runs.Paint(8, 9, 30);
  constexpr std::int32_t kNever = 0x7FFFFFFF;
  const struct {
    std::int32_t position;
    std::int32_t colour;  // 0 where no run is
    std::int32_t next_change;
  } rows[] = {{0, 0, 2}, {2, 10, 4}, {3, 10, 4}, {4, 20, 5}, {5, 0, 8}, {8, 30, 9}, {9, 0, kNever}};
  ColourWalk walk(runs);
  for (const auto& row : rows) {
    const ColourRun* run = walk.At(row.position);
    EXPECT_EQ(run != nullptr ? run->colour : 0, row.colour) << row.position;
    EXPECT_EQ(walk.NextChange(), row.next_change) << row.position;
  }
  const ColourRuns none;
  EXPECT_EQ(ColourWalk(none).At(0), nullptr);
  for (const auto& row : rows) {
    ColourWalk from_there(runs, row.position);
    const ColourRun* run = from_there.At(row.position);
    EXPECT_EQ(run != nullptr ? run->colour : 0, row.colour) << "from " << row.position;
    EXPECT_EQ(from_there.NextChange(), row.next_change) << "from " << row.position;
  }
}

TEST(ColourRuns, MemoryThatIsTakenHoldsTheRunsAndLeavesNone) {
  ColourRuns runs;
  runs.Paint(0, 1, 5);
  runs.TakeMemory(3);
  EXPECT_TRUE(runs.Runs().empty());
  const ColourRun* storage = runs.Runs().data();
  for (std::int32_t i = 0; i < 3; ++i) runs.Paint(i, i + 1, i);
  EXPECT_EQ(runs.Runs().data(), storage);
}

}  // namespace
}  // namespace tolvane::platform
