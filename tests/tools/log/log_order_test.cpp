#include "tools/log/runs/log_order.h"

#include <gtest/gtest.h>

namespace tolvane::logtool {
namespace {

using Paths = std::vector<std::string>;

TEST(LogOrder, IsThatOfHourAndNumber) {
  const Paths written = {"KL26112009-999.csv", "KL26112009-1000.csv", "KL26112010-001.csv",
                         "KL26112010-002.csv", "KL27010100-001.csv"};
  Paths given(written.rbegin(), written.rend());
  EXPECT_EQ(InOrderOfWriting(given), written);
}

TEST(LogOrder, KeepsFoldersApart) {
  EXPECT_EQ(InOrderOfWriting({"b/KL26112009-002.csv", "a\\KL26112009-001.csv",
                              "b/KL26112009-001.csv", "KL26112009-001.csv"}),
            (Paths{"b/KL26112009-001.csv", "b/KL26112009-002.csv", "a\\KL26112009-001.csv",
                   "KL26112009-001.csv"}));
}

TEST(LogOrder, StaysWhereOneNameIsNone) {
  for (const char* const other :
       {"log.csv", "KS26112009-001.csv", "KL26112009-001.txt", "KL26112009-01.csv",
        "KL2611200-001.csv", "KL26112009_001.csv", "KL26112009-00x.csv", "KL2611200x-001.csv",
        "KL26112009-.csv", "KL26112009-99999999999.csv", "KL.csv", ""}) {
    const Paths given = {"KL26112009-002.csv", other, "KL26112009-001.csv"};
    EXPECT_EQ(InOrderOfWriting(given), given) << other;
  }
}

TEST(LogOrder, CountsTheNumbersThatAreMissingBetween) {
  struct Row {
    const char* before;
    const char* path;
    std::uint32_t missing;
  };
  for (const Row& row : {Row{"KL26112009-001.csv", "KL26112009-002.csv", 0},
                         {"KL26112009-001.csv", "KL26112009-003.csv", 1},
                         {"KL26112009-999.csv", "KL26112009-1000.csv", 0},
                         {"KL26112009-005.csv", "KL26112010-001.csv", 0},
                         {"KL26112009-005.csv", "KL26112010-004.csv", 3},
                         {"KL26112009-003.csv", "KL26112009-001.csv", 0},
                         {"a/KL26112009-001.csv", "b/KL26112009-009.csv", 0},
                         {"a/KL26112009-001.csv", "a/KL26112009-009.csv", 7},
                         {"one.csv", "KL26112009-009.csv", 0}}) {
    EXPECT_EQ(NumbersBetween(row.before, row.path), row.missing) << row.before << " " << row.path;
  }
}

}  // namespace
}  // namespace tolvane::logtool
