#pragma once

#include <cstdint>
#include <memory>

#include "platform/main_window.h"
#include "platform/platform.h"
#include "receive/adapters/can_db.h"
#include "receive/adapters/can_db_interface.h"
#include "receive/adapters/can_db_kvaser.h"
#include "receive/adapters/canusb.h"
#include "receive/adapters/interfacecan.h"
#include "receive/adapters/kvasercan.h"
#include "receive/workers.h"
#include "run/elm327_info.h"

namespace tolvane {

/// The main window as the controller of everything: the life of the process, the control of a run,
/// the commands of the page. Each method lies in the folder of its subject.
///
/// Handlers run on the user-interface thread, during a run nested inside its yields.
class Form1 {
 public:
  Form1(const platform::Platform& platform, const platform::MainWindow& window,
        String executable_folder);

  // shell/application.cpp
  void Application_Open();
  /// Sets `Cancel` to 1 to refuse the closing of the window.
  void Form_QueryUnload(std::int32_t& Cancel);

  // run/form1.cpp
  /// The whole run: returns when it has ended and the window is put back.
  void Bt_Connect_Click();
  void Bt_Disconnect_Click();
  void Bt_ViewClear_Click();
  void Cmb_Serect_Device_Click();

  ELM327_Info device;
  std::int32_t ApplicationOpenFlag = 0;  // 1 after a successful start-up; nothing reads it
  std::int32_t SettingFileOpenFlag = 0;  // 1 when config.dat was read; nothing reads it
  std::int32_t DebugMode = 0;            // nothing reads it
  std::int32_t RxFlag = 0;               // 1 while a receive loop is to go on
  CANUSB CAN_u;
  CAN_DB CAN_d;
  InterfaceCAN IfCan_u;
  CAN_DB_Interface IfCan_d;
  KvaserCAN kvCan_u;
  CAN_DB_Kvaser kvCan_d;
  std::unique_ptr<platform::AutomationObject> objExcel;  // empty outside a run

 private:
  platform::Platform platform_;
  platform::MainWindow window_;
  Workers workers_;
};

}  // namespace tolvane
