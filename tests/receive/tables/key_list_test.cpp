#include "receive/tables/key_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace tolvane {
namespace {

/// The search as it would be written without any thought of speed.
std::optional<std::int16_t> LinearSearch(const CAN_ReadDB29& frames, std::int32_t id,
                                         std::uint8_t flag) {
  for (std::int32_t p = 0; p <= frames.CAN29_Received_ID_Counter; ++p) {
    if (p > CAN_ReadDB29::kArayy_MAX) break;  // after a full table
    const auto position = static_cast<std::int16_t>(p);
    if (frames.CAN29_Received_ID(position) == id && frames.CAN29_ExtendFlag(position) == flag) {
      return position;
    }
  }
  return std::nullopt;
}

class KeyList : public testing::Test {
 protected:
  struct Key {
    std::int32_t id;
    std::int32_t ext;
    std::int32_t row;
    friend bool operator==(const Key&, const Key&) = default;
  };

  std::int16_t Alloc(std::int32_t id, std::uint8_t ext = 0) {
    return Alloc_CAN29_Slot(*frames_, id, ext);
  }
  [[nodiscard]] Key At(std::int32_t p) const {
    const auto position = static_cast<std::int16_t>(p);
    return {frames_->CAN29_Received_ID(position), frames_->CAN29_ExtendFlag(position),
            frames_->CAN29_ArrayNo(position)};
  }
  void Fill() {
    for (std::int32_t id = 1; id <= 4001; ++id) Alloc(id * 2);
  }

  std::unique_ptr<CAN_ReadDB29> frames_ = std::make_unique<CAN_ReadDB29>();
};

TEST_F(KeyList, FirstKeyTakesPositionZeroAndRowZero) {
  EXPECT_EQ(Alloc(0x123, 1), 0);
  EXPECT_EQ(At(0), (Key{0x123, 1, 0}));
  EXPECT_EQ(At(1), (Key{0, 0, 0}));
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 1);
}

TEST_F(KeyList, KeysAreSortedWhileRowsFollowTheArrival) {
  EXPECT_EQ(Alloc(0x300), 0);
  EXPECT_EQ(Alloc(0x100), 0);
  EXPECT_EQ(Alloc(0x200), 1);
  EXPECT_EQ(At(0), (Key{0x100, 0, 1}));
  EXPECT_EQ(At(1), (Key{0x200, 0, 2}));
  EXPECT_EQ(At(2), (Key{0x300, 0, 0}));
  EXPECT_EQ(At(3), (Key{0, 0, 0}));
}

TEST_F(KeyList, StandardKeyComesBeforeTheExtendedOneOfItsNumber) {
  EXPECT_EQ(Alloc(0x123, 1), 0);
  EXPECT_EQ(Alloc(0x123, 0), 0);
  EXPECT_EQ(Alloc(0x123, 2), 2);
  EXPECT_EQ(At(0), (Key{0x123, 0, 1}));
  EXPECT_EQ(At(1), (Key{0x123, 1, 0}));
  EXPECT_EQ(At(2), (Key{0x123, 2, 2}));
}

TEST_F(KeyList, NewKeyGoesBeforeItsEqualsAndIsFoundFirst) {
  Alloc(0x50);
  Alloc(0x123);
  EXPECT_EQ(Alloc(0x123), 1);
  EXPECT_EQ(At(1).row, 2);
  EXPECT_EQ(At(2).row, 1);
  EXPECT_EQ(Find_CAN29_Slot(*frames_, 0x123, 0), 1);
}

TEST_F(KeyList, NegativeIdsSortBelowAllOthers) {
  Alloc(5);
  EXPECT_EQ(Alloc(-5, 1), 0);
  EXPECT_EQ(Alloc(INT32_MIN, 1), 0);
  EXPECT_EQ(At(1), (Key{-5, 1, 1}));
  EXPECT_EQ(At(2), (Key{5, 0, 0}));
  EXPECT_EQ(Find_CAN29_Slot(*frames_, -5, 1), 1);
  EXPECT_EQ(Find_CAN29_Slot(*frames_, INT32_MIN, 1), 0);
}

TEST_F(KeyList, NegativeKeyAboveAllOthersTakesTheBlankItself) {
  Alloc(-5);
  EXPECT_EQ(Alloc(-3), 1);
  EXPECT_EQ(At(1), (Key{-3, 0, 1}));
  EXPECT_EQ(At(2), (Key{0, 0, 0}));
}

TEST_F(KeyList, IdZeroStandardMatchesTheBlank) {
  EXPECT_EQ(Find_CAN29_Slot(*frames_, 0, 0), 0);
  Alloc(0x10);
  EXPECT_EQ(Find_CAN29_Slot(*frames_, 0, 0), 1);
  EXPECT_EQ(Find_CAN29_Slot(*frames_, 0, 1), std::nullopt);
}

TEST_F(KeyList, FourThousandAndOneKeysFit) {
  Fill();
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 4001);
  EXPECT_EQ(At(4000), (Key{8002, 0, 4000}));
  EXPECT_EQ(Find_CAN29_Slot(*frames_, 8002, 0), 4000);
}

TEST_F(KeyList, FullTableGivesPositionZeroAndStaysAsItIs) {
  Fill();
  EXPECT_EQ(Alloc(1), 0);
  EXPECT_EQ(Alloc(9999), 0);
  EXPECT_EQ(frames_->CAN29_Received_ID_Counter, 4001);
  EXPECT_EQ(At(0), (Key{2, 0, 0}));
  EXPECT_EQ(At(4000), (Key{8002, 0, 4000}));
}

TEST_F(KeyList, FullTableHasNoBlankToMatch) {
  Fill();
  EXPECT_EQ(Find_CAN29_Slot(*frames_, 0, 0), std::nullopt);
  EXPECT_EQ(Find_CAN29_Slot(*frames_, 8003, 0), std::nullopt);
}

TEST_F(KeyList, SearchFindsExactlyWhatALinearSearchFinds) {
  std::mt19937 random(20260501);  // NOLINT: the same sequence each time
  KeySearch search;               // keeps what it learned over cleared tables
  const std::int32_t id_ranges[] = {3, 40, 3000, INT32_MAX};
  for (const std::int32_t range : id_ranges) {
    frames_->Param_ALL_Clear();
    std::uniform_int_distribution<std::int32_t> ids(-range / 2, range - range / 2);
    std::uniform_int_distribution<int> flags(0, 2);
    for (int step = 0; step < 4200; ++step) {
      const std::int32_t id = ids(random);
      const auto flag = static_cast<std::uint8_t>(flags(random));
      const auto expected = LinearSearch(*frames_, id, flag);
      ASSERT_EQ(Find_CAN29_Slot(*frames_, id, flag), expected) << range << ' ' << step;
      ASSERT_EQ(search.Find(*frames_, id, flag), expected) << range << ' ' << step;
      ASSERT_EQ(search.Find(*frames_, id, flag), expected) << range << ' ' << step;
      ASSERT_EQ(search.Find(*frames_, 0, 0), LinearSearch(*frames_, 0, 0));
      // Every third key is made although it exists, as remote frames do.
      if (!expected || step % 3 == 0) Alloc(id, flag);
    }
  }
}

TEST_F(KeyList, SearchLooksFirstWhereItFoundTheKeyBefore) {
  for (std::int32_t id = 1; id <= 7; ++id) Alloc(id * 2);
  KeySearch search;
  ASSERT_EQ(search.Find(*frames_, 14, 0), 6);
  frames_->CAN29_Received_ID(3, 99);  // in the middle, where a search by halves begins
  ASSERT_EQ(Find_CAN29_Slot(*frames_, 14, 0), std::nullopt);
  EXPECT_EQ(search.Find(*frames_, 14, 0), 6);
}

// Two remote frames of ID 0 put their keys where the blank was found before.
TEST_F(KeyList, SearchGivesTheFirstOfEqualsThoughItRemembersTheSecond) {
  for (const bool lower_key : {false, true}) {
    frames_->Param_ALL_Clear();
    KeySearch search;
    if (lower_key) Alloc(-5);
    Alloc(0x100, 1);
    ASSERT_EQ(search.Find(*frames_, 0, 0), lower_key ? 2 : 1) << "the blank";
    Alloc(0);
    Alloc(0);
    EXPECT_EQ(search.Find(*frames_, 0, 0), lower_key ? 1 : 0);
  }
}

TEST_F(KeyList, KeysStaySortedAndRowsArePermutedWhateverArrives) {
  std::mt19937 random(7);  // NOLINT: the same sequence each time
  std::uniform_int_distribution<std::int32_t> ids(-200, 200);
  for (int step = 0; step < 4001; ++step) {
    const std::int32_t id = ids(random);
    const auto p = Alloc(id, static_cast<std::uint8_t>(step % 2));
    ASSERT_EQ(At(p), (Key{id, step % 2, step}));
  }
  std::vector<bool> used(4001, false);
  for (std::int32_t p = 0; p < 4001; ++p) {
    used[static_cast<std::size_t>(At(p).row)] = true;
    if (p == 0) continue;
    const Key left = At(p - 1);
    const Key right = At(p);
    EXPECT_TRUE(left.id < right.id || (left.id == right.id && left.ext <= right.ext)) << p;
  }
  EXPECT_EQ(std::count(used.begin(), used.end(), true), 4001);
}

}  // namespace
}  // namespace tolvane
