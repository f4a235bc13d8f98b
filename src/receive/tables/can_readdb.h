#pragma once

#include <cstdint>

#include "run/column.h"

namespace tolvane {

/// Row states of CAN11_Received and CAN29_Received.
namespace row_state {
constexpr std::uint8_t kNone = 0;     // nothing received in this run; no row for the view
constexpr std::uint8_t kMany = 1;     // two frames or more: the _old columns mean something
constexpr std::uint8_t kWriting = 2;  // the receive loop is inside the row; the view skips it
constexpr std::uint8_t kFirst = 3;    // exactly one frame: shown, but without a cycle
}  // namespace row_state

/// What the bus last said, one row per 11-bit identifier, the row index being the identifier.
/// IDs are 0 to 2047; row 2048 exists, is cleared and is never written by reception. All eight
/// data bytes are stored whatever the DLC, which only limits what is shown.
///
/// The receive loop writes every column except CAN11_ReceivedTime_Delta and CAN11_BlackoutON,
/// which belong to the view, and CAN11_ReadTime, which is only cleared. Times are in milliseconds.
class CAN_ReadDB : public ArayyClear {
 public:
  static constexpr std::int32_t kArayy_MAX = 2048;
  template <typename T>
  using Rows = Column<T, kArayy_MAX + 1>;

  void Param_ALL_Clear();

  Rows<std::uint8_t> CAN11_Received;
  Rows<double> CAN11_ReceivedTime;                 // message time of the last frame
  Rows<double> CAN11_ReceivedTime_old;             // of the frame before it, 0.0 after the first
  Rows<double> CAN11_ReceivedTime_Delta;           // last cycle that the view accepted, 0.0 before
  Rows<std::uint8_t> CAN11_ReceivedTime_writting;  // 1 while the two time columns change
  Rows<double> CAN11_ReadTime;                     // cleared and nothing else
  Rows<double> CAN11_ReadTime_old;      // qx_timeGetTime when the frame was taken from the adapter
  Rows<std::uint8_t> CAN11_BlackoutON;  // 1 while the view holds the ID for stopped
  Rows<std::uint8_t> CAN11_DLC;         // as the adapter reported it
  Rows<std::uint8_t> CAN11_Data1, CAN11_Data2, CAN11_Data3, CAN11_Data4;
  Rows<std::uint8_t> CAN11_Data5, CAN11_Data6, CAN11_Data7, CAN11_Data8;
  Rows<std::uint8_t> CAN11_Data1_old, CAN11_Data2_old, CAN11_Data3_old, CAN11_Data4_old;
  Rows<std::uint8_t> CAN11_Data5_old, CAN11_Data6_old, CAN11_Data7_old, CAN11_Data8_old;
};

}  // namespace tolvane
