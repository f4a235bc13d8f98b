#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/column.h"

namespace tolvane {

/// What is known of the CANUSB adapters: those found at start-up, and the selected one.
class CAN_DB : public ArayyClear {
 public:
  static constexpr std::int32_t kArayy_MAX = 30;

  /// Writes every start value. Called once, at start-up.
  void Param_ALL_Clear() { *this = CAN_DB(); }

  std::int32_t CAN_USB_FindCount = 0;                   // adapters found
  std::int32_t CAN_USB_FindCount_MAX = kArayy_MAX;      // the most that are taken
  std::int32_t CAN_USB_SelectNo = 0;                    // 1-based, of the selected one
  String CAN_USB_SelectSerial;                          // its serial text, as in WideText
  std::int32_t CAN_USB_Handle = 0;                      // of the open adapter
  String CAN_USB_Version;                               // of the selected one
  Column<String, kArayy_MAX + 1> CAN_USB_FindSerialNo;  // filled from 1
};

}  // namespace tolvane
