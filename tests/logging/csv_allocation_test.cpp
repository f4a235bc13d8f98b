#include <gtest/gtest.h>

#include "tests/counting/allocations.h"
#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

class CsvAllocation : public LogTest {};

TEST_F(CsvAllocation, AChannelOfLinesAllocatesItsBlockOnceAndNothingPerFrame) {
  const auto fill = [&](std::int32_t can_ID) {
    for (std::int32_t i = 0; i <= Excel_OutputDB::kRow_MAX; ++i) {
      db.csv_DataInput29(i * 0.125, can_ID, 8, kBytes, 1);
    }
  };
  const std::int64_t before = counting::Allocations();
  fill(0x1ABCDEF0);
  EXPECT_LE(counting::Allocations() - before, 1);
  db.csv_DB_Initialize(1, device);
  const std::int64_t again = counting::Allocations();
  fill(0x1ABCDEF0);
  EXPECT_EQ(counting::Allocations() - again, 0);
}

}  // namespace
}  // namespace tolvane
