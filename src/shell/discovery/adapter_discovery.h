#pragma once

#include "platform/platform.h"
#include "receive/adapters/can_db.h"
#include "receive/adapters/can_db_interface.h"
#include "receive/adapters/can_db_kvaser.h"
#include "receive/adapters/interfacecan.h"
#include "receive/adapters/kvasercan.h"

namespace tolvane {

// The searches at start-up, one for each kind of adapter whose library is present. They fill a
// freshly cleared record and leave no adapter open. When a library call fails, adapters are missing
// from the list; there are no other consequences.

/// Takes up to 30 adapters; a serial text shorter than 7 bytes ends the search. Yields before
/// asking for each further adapter.
void Find_CANUSB_Adapters(const platform::Platform& platform, CAN_DB& CAN_d);

/// Tries ports 1 to 255 and takes each one that opens.
void Find_Interface_Ports(const platform::Platform& platform, const InterfaceCAN& IfCan_u,
                          CAN_DB_Interface& IfCan_d);

/// Takes each channel that opens, up to 30, with or without a name. Yields for each.
void Find_Kvaser_Channels(const platform::Platform& platform, const KvaserCAN& kvCan_u,
                          CAN_DB_Kvaser& kvCan_d);

// Lines of Cmb_Serect_Device. `i` counts from 1.
[[nodiscard]] String CANUSB_Line(const platform::Platform& platform, const CAN_DB& CAN_d,
                                 std::int32_t i);
[[nodiscard]] String Interface_Line(const CAN_DB_Interface& IfCan_d, std::int32_t i);
[[nodiscard]] String Kvaser_Line(const CAN_DB_Kvaser& kvCan_d, std::int32_t i);

}  // namespace tolvane
