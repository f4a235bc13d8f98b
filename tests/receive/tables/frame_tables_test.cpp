#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "receive/tables/can_readdb.h"
#include "receive/tables/can_readdb29.h"
#include "receive/tables/frame_columns.h"

namespace tolvane {
namespace {

template <typename Table>
class FrameTable : public testing::Test {
 protected:
  static constexpr std::int16_t kLast = Table::kArayy_MAX;

  std::unique_ptr<Table> table_ = std::make_unique<Table>();
};

using Tables = testing::Types<CAN_ReadDB, CAN_ReadDB29>;
TYPED_TEST_SUITE(FrameTable, Tables);

TYPED_TEST(FrameTable, ClearZeroesEveryColumnToItsUpperBound) {
  using C = FrameColumns<TypeParam>;
  TypeParam& table = *this->table_;
  const auto each_byte_column = [](auto use) {
    for (const auto column : {C::Received, C::ReceivedTime_writting, C::BlackoutON, C::DLC}) {
      use(column);
    }
    for (const auto column : C::Data) use(column);
    for (const auto column : C::Data_old) use(column);
  };
  const auto each_time_column = [](auto use) {
    for (const auto column :
         {C::ReceivedTime, C::ReceivedTime_old, C::ReceivedTime_Delta, C::ReadTime_old}) {
      use(column);
    }
  };
  for (const std::int16_t row : {std::int16_t{0}, TestFixture::kLast}) {
    each_byte_column([&](auto column) { column(table)(row, 7); });
    each_time_column([&](auto column) { column(table)(row, 7.5); });
  }
  table.Param_ALL_Clear();
  for (const std::int16_t row : {std::int16_t{0}, TestFixture::kLast}) {
    each_byte_column([&](auto column) { EXPECT_EQ(column(table)(row), 0); });
    each_time_column([&](auto column) { EXPECT_EQ(column(table)(row), 0.0); });
  }
}

TYPED_TEST(FrameTable, ColumnsAreApartFromEachOther) {
  using C = FrameColumns<TypeParam>;
  TypeParam& table = *this->table_;
  std::uint8_t value = 1;
  for (const auto column : C::Data) column(table)(5, value++);
  for (const auto column : C::Data_old) column(table)(5, value++);
  value = 1;
  for (const auto column : C::Data) EXPECT_EQ(column(table)(5), value++);
  for (const auto column : C::Data_old) EXPECT_EQ(column(table)(5), value++);
}

TEST(FrameTable29, ClearResetsCounterBoundAndKeys) {
  const auto table = std::make_unique<CAN_ReadDB29>();
  table->CAN29_Received_ID_Counter = 12;
  table->CAN29_Received_ID_Counter_MAX = 13;
  for (const std::int16_t p : {std::int16_t{0}, std::int16_t{4000}}) {
    table->CAN29_Received_ID(p, -1);
    table->CAN29_ExtendFlag(p, 1);
    table->CAN29_ArrayNo(p, 9);
  }
  table->Param_ALL_Clear();
  EXPECT_EQ(table->CAN29_Received_ID_Counter, 0);
  EXPECT_EQ(table->CAN29_Received_ID_Counter_MAX, 4000);
  for (const std::int16_t p : {std::int16_t{0}, std::int16_t{4000}}) {
    EXPECT_EQ(table->CAN29_Received_ID(p), 0);
    EXPECT_EQ(table->CAN29_ExtendFlag(p), 0);
    EXPECT_EQ(table->CAN29_ArrayNo(p), 0);
  }
}

TEST(FrameTable11, ReadTimeIsClearedThoughNobodyUsesIt) {
  const auto table = std::make_unique<CAN_ReadDB>();
  table->CAN11_ReadTime(2048, 5.0);
  table->Param_ALL_Clear();
  EXPECT_EQ(table->CAN11_ReadTime(2048), 0.0);
}

TEST(ArayyClear, ClearsUpToAndIncludingTheBound) {
  Column<std::uint8_t, 4> bytes;
  Column<std::int32_t, 4> longs;
  Column<double, 4> doubles;
  Column<String, 4> strings;
  Column<Currency, 4> currencies;
  for (std::int16_t i = 0; i < 4; ++i) {
    bytes(i, 1);
    longs(i, 1);
    doubles(i, 1.0);
    strings(i, u"1");
    currencies(i, {1});
  }
  ArayyClear::Arayy_ALL_Clear_zero_byte(2, bytes);
  ArayyClear::Arayy_ALL_Clear_zero_long(2, longs);
  ArayyClear::Arayy_ALL_Clear_zero_double(2, doubles);
  ArayyClear::Arayy_ALL_Clear_zero_string(2, strings);
  ArayyClear::Arayy_ALL_Clear_zero_Currency(2, currencies);
  EXPECT_EQ(bytes(2), 0);
  EXPECT_EQ(longs(2), 0);
  EXPECT_EQ(doubles(2), 0.0);
  EXPECT_EQ(strings(2), u"");
  EXPECT_EQ(currencies(2), Currency{});
  EXPECT_EQ(bytes(3), 1);
  EXPECT_EQ(longs(3), 1);
  EXPECT_EQ(doubles(3), 1.0);
  EXPECT_EQ(strings(3), u"1");
  EXPECT_EQ(currencies(3), Currency{1});
}

TEST(Column, AFillTakesItsBoundInAndANegativeOneFillsNothing) {
  for (std::int32_t bound = -2; bound < 4; ++bound) {
    Column<std::int32_t, 4> column;
    column.Fill(bound, 7);
    for (std::int16_t i = 0; i < 4; ++i) EXPECT_EQ(column(i), i <= bound ? 7 : 0) << bound;
  }
}

}  // namespace
}  // namespace tolvane
