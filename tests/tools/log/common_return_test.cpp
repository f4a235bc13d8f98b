#include "tools/log/info/common_return.h"

#include <gtest/gtest.h>

namespace tolvane::logtool {
namespace {

class CommonReturns : public ::testing::Test {
 protected:
  /// As frames of the run at 1000 ms and later.
  void Add(std::uint64_t key, double time) { back.Add(key, {time, 0.0}); }

  CommonReturn back{Moment{1'000.0, 0.0}};
};

TEST_F(CommonReturns, OfNobodyOrOneAreNotOfSeveral) {
  EXPECT_FALSE(back.AreSeveral());
  back.Await(1, 10.0);
  EXPECT_FALSE(back.AreSeveral());
  Add(1, 1'000.0);
  EXPECT_FALSE(back.AreMostBack());
  back.Await(2, 10.0);
  EXPECT_TRUE(back.AreSeveral());
}

TEST_F(CommonReturns, AreMostWithMoreThanHalfAndDecidedThen) {
  for (std::uint64_t key = 1; key <= 4; ++key) back.Await(key, 10.0);
  Add(1, 1'000.0);
  Add(2, 1'000.0);
  EXPECT_FALSE(back.AreMostBack());
  EXPECT_FALSE(back.IsDecided());
  Add(1, 1'010.0);
  EXPECT_FALSE(back.AreMostBack()) << "the same one again";
  Add(4, 1'010.0);
  EXPECT_TRUE(back.AreMostBack());
  EXPECT_TRUE(back.IsDecided());
}

TEST_F(CommonReturns, CountToOneCycleOfEach) {
  back.Await(1, 50.0);
  back.Await(2, 10.0);
  Add(2, 1'010.5);
  EXPECT_FALSE(back.IsDecided());
  Add(1, 1'050.0);
  EXPECT_TRUE(back.IsDecided()) << "nobody is awaited";
  EXPECT_FALSE(back.AreMostBack());
}

TEST_F(CommonReturns, AreDecidedBehindTheLongestCycle) {
  back.Await(1, 50.0);
  back.Await(2, 10.0);
  Add(9, 1'050.0);
  EXPECT_FALSE(back.IsDecided());
  Add(9, 1'050.5);
  EXPECT_TRUE(back.IsDecided());
}

}  // namespace
}  // namespace tolvane::logtool
