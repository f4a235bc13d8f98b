#include "platform/windows/form1_binding.h"

#include <algorithm>
#include <iterator>

// Last, see there.
#include "platform/windows/resources/resource.h"

namespace tolvane::platform::windows {
namespace {

struct Handler {
  int id;
  void (Form1::*click)();
};

constexpr Handler kHandlers[] = {
    {Bt_Connect, &Form1::Bt_Connect_Click},
    {Bt_Disconnect, &Form1::Bt_Disconnect_Click},
    {Bt_SaveFile, &Form1::Bt_SaveFile_Click},
    {Bt_ViewClear, &Form1::Bt_ViewClear_Click},
    {Cmb_Serect_Device, &Form1::Cmb_Serect_Device_Click},
    {menu_file_close, &Form1::menu_file_close_Click},
    {menu_View_All_Copy, &Form1::menu_View_All_Copy_Click},
    {menu_View_Ctrl_Z, &Form1::menu_View_Ctrl_Z_Click},
    {menu_View_Ctrl_X, &Form1::menu_View_Ctrl_X_Click},
    {menu_View_Ctrl_C, &Form1::menu_View_Ctrl_C_Click},
    {menu_View_Ctrl_V, &Form1::menu_View_Ctrl_V_Click},
    {menu_View_DEL, &Form1::menu_View_DEL_Click},
    {menu_View_Text_Red, &Form1::menu_View_Text_Red_Click},
    {menu_View_Text_Blue, &Form1::menu_View_Text_Blue_Click},
    {menu_View_Text_Black, &Form1::menu_View_Text_Black_Click},
    {menu_View_Marker_Pink, &Form1::menu_View_Marker_Pink_Click},
    {menu_View_Marker_Yellow, &Form1::menu_View_Marker_Yellow_Click},
    {menu_View_Marker_black, &Form1::menu_View_Marker_black_Click},
    {menu_View_Marker_white, &Form1::menu_View_Marker_white_Click},
    {menu_View_Date, &Form1::menu_View_Date_Click},
};

}  // namespace

void Form1Binding::Command(int id) {
  const auto* handler = std::ranges::find(kHandlers, id, &Handler::id);
  if (handler != std::end(kHandlers)) (form_.*handler->click)();
}

bool Form1Binding::QueryUnload() {
  std::int32_t cancel = 0;
  form_.Form_QueryUnload(cancel);
  return cancel == 0;
}

}  // namespace tolvane::platform::windows
