// Start and end of the program: the methods of Form1 from its loading to its unloading.

#include <array>

#include "config/filesavesystem.h"
#include "run/adapter_kind.h"
#include "run/control/form1.h"
#include "run/stop_message.h"
#include "shell/common_function.h"
#include "shell/discovery/adapter_discovery.h"
#include "shell/discovery/dll_presence_check.h"

namespace tolvane {

void Form1::Form_Load() {
  if (platform_.single_instance.PrevInstance()) {
    window_.window.Unload();
    return;
  }
  Application_Open();
}

void Form1::Application_Open() {
  start_up_ = StartUp::kBegun;
  Clear_All_Parameters();
  Set_View_Menu_At_Start();
  window_.window.Caption(device.Application_title);

  const std::int32_t libraries = Common_Function::DLL_Presence_Check(platform_, device);
  if (libraries <= 0) {
    window_.window.Unload();
    return;
  }
  start_up_ = StartUp::kSettingsRead;
  if (FileSaveSystem::LoadConfigFile(device, platform_.files, platform_.code_page,
                                     platform_.message_box) == FileSaveSystem::kConfigLoaded) {
    SettingFileOpenFlag = 1;
  }

  Search_Devices(libraries);
  if (!Found_Any_Device()) {
    End_Start(u"デバイスが見つかりません。");
    return;
  }
  List_Devices();
  // Selecting the line already runs the device selection, through the click handler. It runs again
  // below and only that result is used, so the adapter is queried twice at every start.
  window_.Cmb_Serect_Device.ListIndex(0);
  device.t_CmbBOX_device_SelectNo = 1;
  const std::int32_t selection = Device_Select();
  Splash_Step(0.8);
  if (selection < 0) {
    End_Start(kDeviceFails);
    return;
  }
  window_.Form2.Visible(false);

  Restore_View();
  Check_Office();
  mouseCursor = platform_.cursors.LoadHand();
  window_.TB_LogComment.Text(device.t_LogComment);
  ApplicationOpenFlag = 1;
  window_.Bt_Connect.Enabled(true);
  window_.Bt_Disconnect.Enabled(false);
}

void Form1::Clear_All_Parameters() {
  ApplicationOpenFlag = 0;
  SettingFileOpenFlag = 0;
  DebugMode = 0;
  RxFlag = 0;
  device.Param_ALL_Clear();
  CAN_d.Param_ALL_Clear();
  CAN_u.Param_ALL_Clear();
  IfCan_d.Param_ALL_Clear();
  IfCan_u.Param_ALL_Clear();
  kvCan_d.Param_ALL_Clear();
  kvCan_u.Param_ALL_Clear();
}

void Form1::Search_Devices(std::int32_t libraries) {
  window_.Form2.Lb_msg(u"デバイスの初期処理中");
  window_.Form2.Progress(0);
  window_.Form2.Visible(true);
  Splash_Step(0.15);
  const auto is_there = [libraries](AdapterKind kind) {
    return (libraries & AdapterTraitsOf(kind).library_bit) != 0;
  };
  if (is_there(AdapterKind::kCanusb)) Find_CANUSB_Adapters(platform_, CAN_d);
  Splash_Step(0.3);
  if (is_there(AdapterKind::kInterface)) Find_Interface_Ports(platform_, IfCan_u, IfCan_d);
  Splash_Step(0.4);
  if (is_there(AdapterKind::kKvaser)) Find_Kvaser_Channels(platform_, kvCan_u, kvCan_d);
  window_.Form2.Progress(0.45);
  window_.Form2.Lb_msg(u"検索結果の判断処理中");
  platform_.events.YieldToEvents();
}

bool Form1::Found_Any_Device() const {
  return CAN_d.CAN_USB_FindCount >= 1 || IfCan_d.Interface_CAN_FindCount >= 1 ||
         kvCan_d.Kvaser_FindCount >= 1;
}

void Form1::List_Devices() {
  const auto add_lines = [this](std::int32_t count, auto line) {
    for (std::int32_t i = 1; i <= count; ++i) {
      platform_.events.YieldToEvents();
      window_.Cmb_Serect_Device.AddItem(line(i));
    }
  };
  add_lines(CAN_d.CAN_USB_FindCount,
            [this](std::int32_t i) { return CANUSB_Line(platform_, CAN_d, i); });
  Splash_Step(0.6);
  add_lines(IfCan_d.Interface_CAN_FindCount,
            [this](std::int32_t i) { return Interface_Line(IfCan_d, i); });
  add_lines(kvCan_d.Kvaser_FindCount, [this](std::int32_t i) { return Kvaser_Line(kvCan_d, i); });
  Splash_Step(0.7);
}

void Form1::Restore_View() {
  window_.RTB_MainView.PlainCompositionColours();
  FileSaveSystem::LoadViewList(device, platform_.files, window_.RTB_MainView);
  window_.RTB_MainView.ScrollToEnd();
}

void Form1::Check_Office() {
  Common_Function::Access_Install_Check(device, platform_.automation);
  Splash_Step(0.85);
  Common_Function::Excel_Install_Check(device, platform_.automation);
  Splash_Step(0.9);
}

void Form1::Splash_Step(double progress) {
  window_.Form2.Progress(progress);
  platform_.events.YieldToEvents();
}

void Form1::End_Start(StringView reason) {
  ShowStopMessage(platform_.message_box, device, reason, kEndsApp);
  window_.window.Unload();
}

bool Form1::ClosingIsRefused() const {
  return window_.RTB_MainView.Locked() || RxFlag == 1 || platform_.timers.FormBG.Enabled();
}

void Form1::Form_QueryUnload(std::int32_t& Cancel) {
  if (ClosingIsRefused()) {
    Cancel = 1;
    return;
  }
  closing_ = true;
  platform_.events.YieldToEvents();
  platform_.timers.FormBG.Enabled(false);
  if (start_up_ == StartUp::kNotBegun) return;  // the files on disk are the other instance's
  Save_For_Next_Start();
}

void Form1::Session_Ends() {
  session_ended_ = true;
  if (Session_End_Output_) Session_End_Output_();
  RxFlag = 0;
  Save_For_Next_Start();
}

void Form1::Save_For_Next_Start() {
  Store_Comment(Trimmed_Comment());
  FileSaveSystem::SaveViewList(device, platform_.files, window_.RTB_MainView);
  if (start_up_ == StartUp::kSettingsRead) {
    FileSaveSystem::SaveConfigFile(device, platform_.files, platform_.code_page);
  }
}

void Form1::Form_Unload() {
  using enum platform::OtherForm;
  constexpr std::array kUnloadOrder = {Form2,      FormBG,      FormBG_29,         FormBG2,
                                       FormBG2_29, FormVersion, FormCommonSetting, FormOption1,
                                       FormHelp};
  for (const platform::OtherForm form : kUnloadOrder) {
    window_.other_forms.Unload(form);
    platform_.events.YieldToEvents();
  }
}

void Form1::menu_file_close_Click() { window_.window.Unload(); }

}  // namespace tolvane
