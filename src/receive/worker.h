#pragma once

#include <cstdint>

#include "platform/automation.h"
#include "receive/adapters/can_db.h"
#include "receive/adapters/can_db_interface.h"
#include "receive/adapters/can_db_kvaser.h"
#include "receive/adapters/canusb.h"
#include "receive/adapters/interfacecan.h"
#include "receive/adapters/kvasercan.h"
#include "run/elm327_info.h"

namespace tolvane {

/// A receive worker. Each open operation is a complete run: it returns when RxFlag is no longer 1
/// and the adapter is closed, or when the run could not start, with RxFlag 0 either way. It yields
/// on an empty read and on a rejected frame; the flush of a log and a tick have yields of their
/// own. The view's timer and the handlers of the main window run nested in those yields or under a
/// message box; Form1::Session_Ends alone may come from below anything that pumps messages.
///
/// `objExcel` is the run's spreadsheet server, null when there is none. A failure to start is
/// reported by a message box here.
class Worker {
 public:
  virtual ~Worker() = default;

  virtual void Open_CANUSB(platform::AutomationObject* objExcel, ELM327_Info& device,
                           const CANUSB& CAN_u, CAN_DB& CAN_d) = 0;
  /// The status of CanClosePort, or 0 when the run ended before the board was touched.
  virtual std::int32_t Open_InterfaceCAN(platform::AutomationObject* objExcel, ELM327_Info& device,
                                         const InterfaceCAN& IfCan_u,
                                         CAN_DB_Interface& IfCan_d) = 0;
  virtual void Open_KvaserCAN(platform::AutomationObject* objExcel, ELM327_Info& device,
                              const KvaserCAN& kvCan_u, CAN_DB_Kvaser& kvCan_d) = 0;
};

}  // namespace tolvane
