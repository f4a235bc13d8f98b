#pragma once

#include <cstdint>

#include "run/column.h"

namespace tolvane {

/// What the bus last said in a 29-bit run: a sorted list of keys over a pool of rows. A key is an
/// identifier with its frame format, so a standard and an extended frame of one number are two.
///
/// Positions 0 to CAN29_Received_ID_Counter - 1 hold the keys in rising order of ID (signed), then
/// flag; the position at the counter is blank (ID 0, flag 0, row 0) until the table is full. Rows
/// are given out in order of first arrival and never move.
class CAN_ReadDB29 : public ArayyClear {
 public:
  static constexpr std::int32_t kArayy_MAX = 4000;
  template <typename T>
  using Rows = Column<T, kArayy_MAX + 1>;

  void Param_ALL_Clear();

  std::int32_t CAN29_Received_ID_Counter = 0;               // keys in use
  std::int32_t CAN29_Received_ID_Counter_MAX = kArayy_MAX;  // last position for an insertion

  Rows<std::uint8_t> CAN29_Received;  // by row, as all below but the three key columns

  // By position.
  Rows<std::int32_t> CAN29_Received_ID;
  Rows<std::uint8_t> CAN29_ExtendFlag;  // 0 standard, 1 extended
  Rows<std::int32_t> CAN29_ArrayNo;     // the key's row

  // By row, as the columns of CAN_ReadDB.
  Rows<double> CAN29_ReceivedTime;
  Rows<double> CAN29_ReceivedTime_old;
  Rows<double> CAN29_ReceivedTime_Delta;
  Rows<std::uint8_t> CAN29_ReceivedTime_writting;
  Rows<double> CAN29_ReadTime_old;
  Rows<std::uint8_t> CAN29_BlackoutON;
  Rows<std::uint8_t> CAN29_DLC;
  Rows<std::uint8_t> CAN29_Data1, CAN29_Data2, CAN29_Data3, CAN29_Data4;
  Rows<std::uint8_t> CAN29_Data5, CAN29_Data6, CAN29_Data7, CAN29_Data8;
  Rows<std::uint8_t> CAN29_Data1_old, CAN29_Data2_old, CAN29_Data3_old, CAN29_Data4_old;
  Rows<std::uint8_t> CAN29_Data5_old, CAN29_Data6_old, CAN29_Data7_old, CAN29_Data8_old;
};

}  // namespace tolvane
