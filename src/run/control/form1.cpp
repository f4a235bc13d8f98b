#include "run/control/form1.h"

#include <string>
#include <utility>

#include "logging/ime_function.h"
#include "logging/spreadsheet_server.h"
#include "run/stop_message.h"
#include "run/worker_kind.h"
#include "shell/discovery/device_select.h"

namespace tolvane {

namespace {

/// A receive filter left on by a 29-bit run chooses an excluding worker in 11-bit mode too.
WorkerKind WorkerOf(const ELM327_Info& device) {
  const bool excluding = device.t_Save_ID_DisableMode == 1 || device.t_MsgFmtTyp == 1;
  if (device.t_msgID_type == kMsgIdType29Bit) {
    return excluding ? WorkerKind::FormBG2_29 : WorkerKind::FormBG_29;
  }
  return excluding ? WorkerKind::FormBG2 : WorkerKind::FormBG;
}

}  // namespace

Form1::Form1(const platform::Platform& platform, const platform::MainWindow& window,
             String executable_folder)
    : device(std::move(executable_folder)),
      platform_(platform),
      window_(window),
      workers_({.platform = platform_,
                .window = window_,
                .RxFlag = RxFlag,
                .Session_End_Output = Session_End_Output_}) {}

void Form1::Bt_Connect_Click() {
  Lock_Window();
  // A starting server lets the end of the session through, and the process may be ended at any
  // moment then: nothing would save what a run received.
  if (Open_Spreadsheet_Server() && Take_Comment() && !session_ended_) Run_Worker();
  Put_Window_Back();
  Set_View_Menu_After_Run();
  Close_Spreadsheet_Server();
}

void Form1::Lock_Window() {
  platform_.run_protection.Begin();
  window_.Bt_Connect.Enabled(false);
  window_.Bt_Disconnect.Enabled(true);
  window_.RTB_MainView.Locked(true);
  window_.menu_opt_function1.Enabled(false);
  window_.menu_common_setting.Enabled(false);
  window_.menu_opt_log1.Enabled(false);
  window_.Cmb_Serect_Device.Enabled(false);
  window_.TB_LogComment.Locked(true);
  if (device.t_ViewCaution == 1) window_.Pic_Caution.Visible(true);
}

bool Form1::Open_Spreadsheet_Server() {
  if (!UsesSpreadsheetServer(device)) return true;
  if (StartSpreadsheetServer(device, platform_.automation, objExcel)) return true;
  ShowStopMessage(platform_.message_box, device, u"ログ出力用の表計算ソフトを起動できません。",
                  kEndsRun);
  return false;
}

bool Form1::Take_Comment() {
  const String comment = Trimmed_Comment();
  if (comment.empty() && device.t_LogSave_subFolder == 1) {
    platform_.message_box.Critical(
        u"「コメントをサブフォルダにして保存する」が有効になっています。\r\n"
        u"コメントを記入して下さい。",
        device.Application_title);
    return false;
  }
  Store_Comment(comment);
  return true;
}

void Form1::Run_Worker() {
  window_.TB_Status.Text(u"通信初期処理中");
  window_.TB_Status.SetFocus();

  Worker& worker = workers_.Of(WorkerOf(device));
  StringView status_at_end;
  switch (device.t_select_Vender) {
    case kVenderCanusb:
      RxFlag = 1;
      worker.Open_CANUSB(objExcel.get(), device, CAN_u, CAN_d);
      break;
    case kVenderInterface: {
      RxFlag = 1;
      const std::int32_t result =
          worker.Open_InterfaceCAN(objExcel.get(), device, IfCan_u, IfCan_d);
      if (result != IfCan_u.IFCAN_ERROR_SUCCESS) status_at_end = IfCan_u.Get_Status_Message(result);
      break;
    }
    case kVenderKvaser:
      RxFlag = 1;
      worker.Open_KvaserCAN(objExcel.get(), device, kvCan_u, kvCan_d);
      break;
    default:
      break;
  }
  window_.TB_Status.Text(status_at_end);
}

void Form1::Put_Window_Back() {
  window_.TB_Protocol.Text(u"---");
  window_.RTB_MainView.Locked(false);
  window_.TB_Status.SetFocus();
  window_.Bt_Connect.Enabled(true);
  window_.Bt_Disconnect.Enabled(false);
  window_.menu_opt_function1.Enabled(true);
  window_.menu_common_setting.Enabled(true);
  window_.menu_opt_log1.Enabled(true);
  window_.Cmb_Serect_Device.Enabled(true);
  window_.Pic_Caution.Visible(false);
  window_.TB_LogComment.Locked(false);
  platform_.run_protection.End();
}

void Form1::Close_Spreadsheet_Server() {
  if (EndSpreadsheetServer(objExcel)) return;
  platform_.message_box.Critical(u"ログ出力用の表計算ソフトを正常に終了できませんでした。",
                                 device.Application_title);
}

void Form1::Bt_Disconnect_Click() {
  RxFlag = 0;
  window_.Bt_Disconnect.Enabled(false);
}

void Form1::Bt_ViewClear_Click() { window_.RTB_MainView.Text(u""); }

void Form1::Bt_SaveFile_Click() {
  IME_Function::SaveSnapshotFile(device, platform_, window_.RTB_MainView);
}

void Form1::Cmb_Serect_Device_Click() {
  const std::int32_t selected = window_.Cmb_Serect_Device.ListIndex() + 1;
  if (device.t_CmbBOX_device_SelectNo == selected) return;
  device.t_CmbBOX_device_SelectNo = selected;
  Device_Select();
}

std::int32_t Form1::Device_Select() {
  return Apply_Device_Select(platform_, window_.TB_ODB_Hard_Version, device, CAN_u, CAN_d, IfCan_d,
                             kvCan_u, kvCan_d);
}

String Form1::Trimmed_Comment() const {
  String comment = window_.TB_LogComment.Text();
  comment.erase(0, comment.find_first_not_of(u' '));
  comment.erase(comment.find_last_not_of(u' ') + 1);
  return comment;
}

void Form1::Store_Comment(StringView comment) {
  device.t_LogComment = comment.substr(0, kLogComment_MAX);
}

}  // namespace tolvane
