#include "platform/memory/main_window/main_window.h"

#include <array>
#include <string>

namespace tolvane::platform::memory {

namespace {

constexpr std::array<const char*, 9> kFormNames = {
    "Form2",      "FormBG",      "FormBG_29",         "FormBG2",
    "FormBG2_29", "FormVersion", "FormCommonSetting", "FormOption1",
    "FormHelp"};

}  // namespace

void OtherForms::Unload(OtherForm form) {
  journal_.Note(std::string(kFormNames[static_cast<std::size_t>(form)]) + ".Unload()");
}

platform::MainWindow MainWindow::Face(platform::RichTextView& RTB_MainView) {
  return {.window = window,
          .Form2 = Form2,
          .other_forms = other_forms,
          .Bt_Connect = Bt_Connect,
          .Bt_Disconnect = Bt_Disconnect,
          .Cmb_Serect_Device = Cmb_Serect_Device,
          .TB_ODB_Hard_Version = TB_ODB_Hard_Version,
          .TB_Protocol = TB_Protocol,
          .TB_Status = TB_Status,
          .TB_LogComment = TB_LogComment,
          .Pic_Caution = Pic_Caution,
          .RTB_MainView = RTB_MainView,
          .menu_common_setting = menu_common_setting,
          .menu_opt_function1 = menu_opt_function1,
          .menu_opt_log1 = menu_opt_log1,
          .menu_View = menu_View,
          .menu_View_All_Copy = menu_View_All_Copy,
          .menu_View_Ctrl_Z = menu_View_Ctrl_Z,
          .menu_View_Ctrl_X = menu_View_Ctrl_X,
          .menu_View_Ctrl_C = menu_View_Ctrl_C,
          .menu_View_Ctrl_V = menu_View_Ctrl_V,
          .menu_View_DEL = menu_View_DEL,
          .menu_View_Text_Red = menu_View_Text_Red,
          .menu_View_Text_Blue = menu_View_Text_Blue,
          .menu_View_Text_Black = menu_View_Text_Black,
          .menu_View_Marker_Pink = menu_View_Marker_Pink,
          .menu_View_Marker_Yellow = menu_View_Marker_Yellow,
          .menu_View_Marker_black = menu_View_Marker_black,
          .menu_View_Marker_white = menu_View_Marker_white,
          .menu_View_Date = menu_View_Date};
}

}  // namespace tolvane::platform::memory
