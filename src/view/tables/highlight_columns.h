#pragma once

#include <array>
#include <cstdint>

#include "run/column.h"
#include "view/tables/can_viewdb.h"
#include "view/tables/can_viewdb29.h"

namespace tolvane {

/// The columns that both highlight tables have, under names that serve the code written once for
/// both: `HighlightColumns<Table>::dt_start(table)(row)`. Arrays are indexed by byte, from 0.
template <typename Table>
struct HighlightColumns;

template <>
struct HighlightColumns<CAN_ViewDB> {
  using Table = CAN_ViewDB;
  using Rows = ColumnOf<Table, Table::Rows>;
  using Markers = ColumnOf<Table, Table::Markers>;

  static constexpr std::array<Rows, 8> d_start = {
      &Table::ViewColorlength_d1_start, &Table::ViewColorlength_d2_start,
      &Table::ViewColorlength_d3_start, &Table::ViewColorlength_d4_start,
      &Table::ViewColorlength_d5_start, &Table::ViewColorlength_d6_start,
      &Table::ViewColorlength_d7_start, &Table::ViewColorlength_d8_start};
  static constexpr std::array<Rows, 8> d_end = {
      &Table::ViewColorlength_d1_end, &Table::ViewColorlength_d2_end,
      &Table::ViewColorlength_d3_end, &Table::ViewColorlength_d4_end,
      &Table::ViewColorlength_d5_end, &Table::ViewColorlength_d6_end,
      &Table::ViewColorlength_d7_end, &Table::ViewColorlength_d8_end};
  static constexpr std::array<Rows, 8> d_timerCounter = {
      &Table::ViewColorlength_d1_timerCounter, &Table::ViewColorlength_d2_timerCounter,
      &Table::ViewColorlength_d3_timerCounter, &Table::ViewColorlength_d4_timerCounter,
      &Table::ViewColorlength_d5_timerCounter, &Table::ViewColorlength_d6_timerCounter,
      &Table::ViewColorlength_d7_timerCounter, &Table::ViewColorlength_d8_timerCounter};
  static constexpr Rows dt_start = &Table::ViewColorlength_dt_start;
  static constexpr Rows dt_end = &Table::ViewColorlength_dt_end;
  static constexpr Rows dt_timerCounter = &Table::ViewColorlength_dt_timerCounter;
  static constexpr Markers MsgMarker_start = &Table::ViewColorMsgMarker_start;
  static constexpr Markers MsgMarker_end = &Table::ViewColorMsgMarker_end;
};

template <>
struct HighlightColumns<CAN_ViewDB29> {
  using Table = CAN_ViewDB29;
  using Rows = ColumnOf<Table, Table::Rows>;
  using Markers = ColumnOf<Table, Table::Markers>;

  static constexpr std::array<Rows, 8> d_start = {
      &Table::VColorlength_d1_start, &Table::VColorlength_d2_start, &Table::VColorlength_d3_start,
      &Table::VColorlength_d4_start, &Table::VColorlength_d5_start, &Table::VColorlength_d6_start,
      &Table::VColorlength_d7_start, &Table::VColorlength_d8_start};
  static constexpr std::array<Rows, 8> d_end = {
      &Table::VColorlength_d1_end, &Table::VColorlength_d2_end, &Table::VColorlength_d3_end,
      &Table::VColorlength_d4_end, &Table::VColorlength_d5_end, &Table::VColorlength_d6_end,
      &Table::VColorlength_d7_end, &Table::VColorlength_d8_end};
  static constexpr std::array<Rows, 8> d_timerCounter = {
      &Table::VColorlength_d1_timerCounter, &Table::VColorlength_d2_timerCounter,
      &Table::VColorlength_d3_timerCounter, &Table::VColorlength_d4_timerCounter,
      &Table::VColorlength_d5_timerCounter, &Table::VColorlength_d6_timerCounter,
      &Table::VColorlength_d7_timerCounter, &Table::VColorlength_d8_timerCounter};
  static constexpr Rows dt_start = &Table::VColorlength_dt_start;
  static constexpr Rows dt_end = &Table::VColorlength_dt_end;
  static constexpr Rows dt_timerCounter = &Table::VColorlength_dt_timerCounter;
  static constexpr Markers MsgMarker_start = &Table::VColorMsgMarker_start;
  static constexpr Markers MsgMarker_end = &Table::VColorMsgMarker_end;
};

}  // namespace tolvane
