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

MainWindow::MainWindow(Journal& journal)
    : window(journal),
      Form2(journal),
      other_forms(journal),
      Bt_Connect(journal, "Bt_Connect", false),
      Bt_Disconnect(journal, "Bt_Disconnect", false),
      Cmb_Serect_Device(journal, "Cmb_Serect_Device"),
      TB_ODB_Hard_Version(journal, "TB_ODB_Hard_Version", u"Nothing"),
      TB_Protocol(journal, "TB_Protocol", u"---"),
      TB_Status(journal, "TB_Status", u""),
      TB_LogComment(journal, "TB_LogComment", u""),
      Pic_Caution(journal, "Pic_Caution"),
      menu_common_setting(journal, "menu_common_setting", true),
      menu_opt_function1(journal, "menu_opt_function1", true),
      menu_opt_log1(journal, "menu_opt_log1", true),
      menu_View(journal),
      menu_View_All_Copy(journal, "menu_View_All_Copy", true),
      menu_View_Ctrl_Z(journal, "menu_View_Ctrl_Z", true),
      menu_View_Ctrl_X(journal, "menu_View_Ctrl_X", true),
      menu_View_Ctrl_C(journal, "menu_View_Ctrl_C", true),
      menu_View_Ctrl_V(journal, "menu_View_Ctrl_V", true),
      menu_View_DEL(journal, "menu_View_DEL", true),
      menu_View_Text_Red(journal, "menu_View_Text_Red", true),
      menu_View_Text_Blue(journal, "menu_View_Text_Blue", true),
      menu_View_Text_Black(journal, "menu_View_Text_Black", true),
      menu_View_Marker_Pink(journal, "menu_View_Marker_Pink", true),
      menu_View_Marker_Yellow(journal, "menu_View_Marker_Yellow", true),
      menu_View_Marker_black(journal, "menu_View_Marker_black", true),
      menu_View_Marker_white(journal, "menu_View_Marker_white", true),
      menu_View_Date(journal, "menu_View_Date", true) {}

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
