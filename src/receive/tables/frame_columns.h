#pragma once

#include <array>
#include <cstdint>

#include "receive/tables/can_readdb.h"
#include "receive/tables/can_readdb29.h"
#include "run/column.h"

namespace tolvane {

/// The columns that both frame tables have, under names that serve the code written once for both:
/// `FrameColumns<Table>::DLC(table)(row)`.
template <typename Table>
struct FrameColumns;

template <>
struct FrameColumns<CAN_ReadDB> {
  using Table = CAN_ReadDB;
  using Bytes = ColumnOf<Table, Table::Rows<std::uint8_t>>;
  using Times = ColumnOf<Table, Table::Rows<double>>;

  static constexpr Bytes Received = &Table::CAN11_Received;
  static constexpr Times ReceivedTime = &Table::CAN11_ReceivedTime;
  static constexpr Times ReceivedTime_old = &Table::CAN11_ReceivedTime_old;
  static constexpr Times ReceivedTime_Delta = &Table::CAN11_ReceivedTime_Delta;
  static constexpr Bytes ReceivedTime_writting = &Table::CAN11_ReceivedTime_writting;
  static constexpr Times ReadTime_old = &Table::CAN11_ReadTime_old;
  static constexpr Bytes BlackoutON = &Table::CAN11_BlackoutON;
  static constexpr Bytes DLC = &Table::CAN11_DLC;
  static constexpr std::array<Bytes, 8> Data = {
      &Table::CAN11_Data1, &Table::CAN11_Data2, &Table::CAN11_Data3, &Table::CAN11_Data4,
      &Table::CAN11_Data5, &Table::CAN11_Data6, &Table::CAN11_Data7, &Table::CAN11_Data8};
  static constexpr std::array<Bytes, 8> Data_old = {
      &Table::CAN11_Data1_old, &Table::CAN11_Data2_old, &Table::CAN11_Data3_old,
      &Table::CAN11_Data4_old, &Table::CAN11_Data5_old, &Table::CAN11_Data6_old,
      &Table::CAN11_Data7_old, &Table::CAN11_Data8_old};
};

template <>
struct FrameColumns<CAN_ReadDB29> {
  using Table = CAN_ReadDB29;
  using Bytes = ColumnOf<Table, Table::Rows<std::uint8_t>>;
  using Times = ColumnOf<Table, Table::Rows<double>>;

  static constexpr Bytes Received = &Table::CAN29_Received;
  static constexpr Times ReceivedTime = &Table::CAN29_ReceivedTime;
  static constexpr Times ReceivedTime_old = &Table::CAN29_ReceivedTime_old;
  static constexpr Times ReceivedTime_Delta = &Table::CAN29_ReceivedTime_Delta;
  static constexpr Bytes ReceivedTime_writting = &Table::CAN29_ReceivedTime_writting;
  static constexpr Times ReadTime_old = &Table::CAN29_ReadTime_old;
  static constexpr Bytes BlackoutON = &Table::CAN29_BlackoutON;
  static constexpr Bytes DLC = &Table::CAN29_DLC;
  static constexpr std::array<Bytes, 8> Data = {
      &Table::CAN29_Data1, &Table::CAN29_Data2, &Table::CAN29_Data3, &Table::CAN29_Data4,
      &Table::CAN29_Data5, &Table::CAN29_Data6, &Table::CAN29_Data7, &Table::CAN29_Data8};
  static constexpr std::array<Bytes, 8> Data_old = {
      &Table::CAN29_Data1_old, &Table::CAN29_Data2_old, &Table::CAN29_Data3_old,
      &Table::CAN29_Data4_old, &Table::CAN29_Data5_old, &Table::CAN29_Data6_old,
      &Table::CAN29_Data7_old, &Table::CAN29_Data8_old};
};

}  // namespace tolvane
