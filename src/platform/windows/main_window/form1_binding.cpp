#include "platform/windows/main_window/form1_binding.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <tolvane_control_ids.h>

namespace tolvane::platform::windows {
namespace {

template <typename Object>
struct Handler {
  int command;
  void (Object::*click)();
};

constexpr Handler<Form1> kHandlers[] = {
    {id::Bt_Connect, &Form1::Bt_Connect_Click},
    {id::Bt_Disconnect, &Form1::Bt_Disconnect_Click},
    {id::Bt_SaveFile, &Form1::Bt_SaveFile_Click},
    {id::Bt_ViewClear, &Form1::Bt_ViewClear_Click},
    {id::Cmb_Serect_Device, &Form1::Cmb_Serect_Device_Click},
    {id::menu_file_close, &Form1::menu_file_close_Click},
    {id::menu_View_All_Copy, &Form1::menu_View_All_Copy_Click},
    {id::menu_View_Ctrl_Z, &Form1::menu_View_Ctrl_Z_Click},
    {id::menu_View_Ctrl_X, &Form1::menu_View_Ctrl_X_Click},
    {id::menu_View_Ctrl_C, &Form1::menu_View_Ctrl_C_Click},
    {id::menu_View_Ctrl_V, &Form1::menu_View_Ctrl_V_Click},
    {id::menu_View_DEL, &Form1::menu_View_DEL_Click},
    {id::menu_View_Text_Red, &Form1::menu_View_Text_Red_Click},
    {id::menu_View_Text_Blue, &Form1::menu_View_Text_Blue_Click},
    {id::menu_View_Text_Black, &Form1::menu_View_Text_Black_Click},
    {id::menu_View_Marker_Pink, &Form1::menu_View_Marker_Pink_Click},
    {id::menu_View_Marker_Yellow, &Form1::menu_View_Marker_Yellow_Click},
    {id::menu_View_Marker_black, &Form1::menu_View_Marker_black_Click},
    {id::menu_View_Marker_white, &Form1::menu_View_Marker_white_Click},
    {id::menu_View_Date, &Form1::menu_View_Date_Click},
};

constexpr Handler<DialogWindows> kDialogHandlers[] = {
    {id::menu_common_setting, &DialogWindows::menu_common_setting_Click},
    {id::menu_opt_function1, &DialogWindows::menu_opt_function1_Click},
    {id::menu_opt_log1, &DialogWindows::menu_opt_log1_Click},
    {id::menu_help_version, &DialogWindows::menu_help_version_Click},
};

/// Calls the handler of the command, if there is one in the table.
template <typename Object, std::size_t N>
void Call(const Handler<Object> (&handlers)[N], int command, Object& object) {
  const auto* handler = std::ranges::find(handlers, command, &Handler<Object>::command);
  if (handler != std::end(handlers)) (object.*handler->click)();
}

}  // namespace

void Form1Binding::Command(int command) {
  form_.Do([this, command] {
    Call(kHandlers, command, form_);
    Call(kDialogHandlers, command, dialogs_);
  });
}

bool Form1Binding::QueryUnload() {
  std::int32_t cancel = 0;
  form_.Form_QueryUnload(cancel);
  return cancel == 0;
}

}  // namespace tolvane::platform::windows
