#pragma once

#include <cstdint>
#include <string>

#include "platform/string.h"
#include "run/column.h"

namespace tolvane {

/// What the library calls port number `n`.
[[nodiscard]] inline std::string PortName(std::int32_t n) { return "IFCAN" + std::to_string(n); }

/// What is known of the ports of the Interface boards: those found at start-up, and the selected
/// one. The columns are filled from 1.
class CAN_DB_Interface : public ArayyClear {
 public:
  static constexpr std::int32_t kArayy_MAX = 255;
  using Ports = Column<std::int32_t, kArayy_MAX + 1>;

  /// Writes every start value. Called once, at start-up.
  void Param_ALL_Clear() { *this = CAN_DB_Interface(); }

  std::int32_t Interface_CAN_FindCount = 0;               // ports found
  std::int32_t Interface_CAN_FindCount_MAX = kArayy_MAX;  // nothing reads it
  std::int32_t Interface_CAN_SelectNo = 0;  // 1-based place of the selected port in the found list
  String Interface_CAN_Handle = u"0";       // decimal text, converted at every use
  Ports Interface_CAN_FindNo;               // n of PortName

  // The found ports' information records. Nothing reads ulStructLength, ulVendorID, ulBoardID and
  // ulModelNumber.
  Ports IfCAN_info_ulStructLength;
  Ports IfCAN_info_ulVendorID;
  Ports IfCAN_info_ulDeviceID;
  Ports IfCAN_info_ulSubsystemID;
  Ports IfCAN_info_ulRevisionID;
  Ports IfCAN_info_ulBoardID;
  Ports IfCAN_info_ulModelNumber;
  Ports IfCAN_info_ulChannelNumber;
  Ports IfCAN_info_ulPhysicalLayer;
};

}  // namespace tolvane
