#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "platform/platform.h"
#include "receive/adapters/can_db.h"
#include "receive/adapters/can_db_interface.h"
#include "receive/adapters/can_db_kvaser.h"
#include "receive/adapters/canusb.h"
#include "receive/adapters/interfacecan.h"
#include "receive/adapters/kvasercan.h"
#include "run/elm327_info.h"

namespace tolvane {

/// Selects the adapter of line t_CmbBOX_device_SelectNo for the next run and shows its description
/// in TB_ODB_Hard_Version. Returns the result of canusb_VersionInfo for a CANUSB adapter, or 0 when
/// it did not open; 1 for the other two kinds; 0 when no adapter has that line. Neither yields nor
/// shows a message.
std::int32_t Apply_Device_Select(const platform::Platform& platform,
                                 platform::TextBox& TB_ODB_Hard_Version, ELM327_Info& device,
                                 const CANUSB& CAN_u, CAN_DB& CAN_d, CAN_DB_Interface& IfCan_d,
                                 const KvaserCAN& kvCan_u, CAN_DB_Kvaser& kvCan_d);

}  // namespace tolvane
