#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "view/tables/can_viewdb.h"
#include "view/tables/can_viewdb29.h"
#include "view/tables/highlight_columns.h"

namespace tolvane {
namespace {

/// Fills every array of the table, clears it, and looks at every element.
template <typename Table>
void ExpectClearingReachesEverything() {
  using Columns = HighlightColumns<Table>;
  const auto on_heap = std::make_unique<Table>();
  Table& table = *on_heap;
  std::vector<typename Columns::Rows> rows = {Columns::dt_start, Columns::dt_end,
                                              Columns::dt_timerCounter};
  for (std::size_t k = 0; k < 8; ++k) {
    rows.push_back(Columns::d_start[k]);
    rows.push_back(Columns::d_end[k]);
    rows.push_back(Columns::d_timerCounter[k]);
  }
  ASSERT_EQ(rows.size(), 27U);
  std::int32_t value = 0;
  for (const auto column : rows) {
    for (std::int16_t i = 0; i <= Table::kArayy_MAX; ++i) column(table)(i, ++value);
  }
  value = 0;
  for (const auto column : rows) {  // no two columns are one
    ASSERT_EQ(column(table)(0), ++value);
    value += Table::kArayy_MAX;
  }
  for (std::int16_t m = 0; m <= Table::kMarker_MAX; ++m) Columns::MsgMarker_start(table)(m, 1);
  for (std::int16_t m = 0; m <= Table::kMarker_MAX; ++m) Columns::MsgMarker_end(table)(m, 2);
  for (std::int16_t m = 0; m <= Table::kMarker_MAX; ++m) {
    ASSERT_EQ(Columns::MsgMarker_start(table)(m), 1) << "no two columns are one";
  }
  table.DisableID_Status_Buffer = u"foot";

  table.Param_ALL_Clear();
  EXPECT_EQ(table.DisableID_Status_Buffer, u"");
  for (const auto column : rows) {
    for (std::int16_t i = 0; i <= Table::kArayy_MAX; ++i) ASSERT_EQ(column(table)(i), 0);
  }
  for (std::int16_t m = 0; m <= Table::kMarker_MAX; ++m) {
    EXPECT_EQ(Columns::MsgMarker_start(table)(m), 0);
    EXPECT_EQ(Columns::MsgMarker_end(table)(m), 0);
  }
}

TEST(CAN_ViewDB, ClearingReachesEveryElement) {
  ExpectClearingReachesEverything<CAN_ViewDB>();
  CAN_ViewDB table;
  table.ViewColorMsgMarker_color(7, 5);
  table.Param_ALL_Clear();
  EXPECT_EQ(table.ViewColorMsgMarker_color(7), 0);
}

TEST(CAN_ViewDB29, ClearingReachesEveryElement) {
  ExpectClearingReachesEverything<CAN_ViewDB29>();
  const auto table = std::make_unique<CAN_ViewDB29>();
  table->VColorMsgMarker_color(7, 5);
  table->Param_ALL_Clear();
  EXPECT_EQ(table->VColorMsgMarker_color(7), 0);
}

}  // namespace
}  // namespace tolvane
