// The controls of the main window: their making, their tool tips, and the logic's face of them.
#include <tolvane_control_ids.h>
#include "platform/windows/dialogs/dialog_picture.h"
#include "platform/windows/main_window/form1_layout.h"
#include "platform/windows/main_window/form1_window.h"
#include "platform/windows/window_parts/accessible_names.h"
#include "platform/windows/window_parts/tool_tips.h"
#include "run/elm327_info.h"

namespace tolvane::platform::windows {
namespace {

// For screen readers.
constexpr wchar_t kCautionName[] = L"接続中の注意";
constexpr wchar_t kViewName[] = L"受信画面";

constexpr wchar_t kCautionTip[] =
    L"接続中にウィンドウを動かしたり、メニューバーを操作すると、受信が途絶します。";
constexpr wchar_t kProtocolTip[] =
    L"【通信モード】　通信速度の設定は、[ツール(T)] - [共通設定(S)] で変更できます";

constexpr UINT_PTR kDefaultWhileFocused = 1;  // of the subclass

/// A push button is the default one, and has its ring, exactly while it has the focus: so Enter
/// presses the button that the user sees marked, also where the program moved the focus, after
/// which a dialog manager leaves the mark behind.
LRESULT CALLBACK DefaultWhileFocused(HWND button, UINT message, WPARAM wparam, LPARAM lparam,
                                     UINT_PTR subclass, DWORD_PTR /*data*/) noexcept {
  const LRESULT result = DefSubclassProc(button, message, wparam, lparam);
  switch (message) {
    case WM_SETFOCUS:
      SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
      break;
    case WM_KILLFOCUS:
      SendMessageW(button, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
      break;
    case WM_NCDESTROY:
      RemoveWindowSubclass(button, &DefaultWhileFocused, subclass);
      break;
    default:
      break;
  }
  return result;
}

}  // namespace

bool Form1Window::CreateControls() {
  if (!AddForm1Controls(Hwnd(), font_.Get())) return false;
  caution_ = ShowPicture(Hwnd(), id::Pic_Caution, id::ICON_CAUTION, id::ICON_CAUTION_SIZE, dpi_);
  ShowWindow(Child(id::Pic_Caution), SW_HIDE);
  SendDlgItemMessageW(Hwnd(), id::TB_LogComment, EM_LIMITTEXT, kLogComment_MAX, 0);

  const bool view_made = view_.Create(
      Hwnd(), id::RTB_MainView, [this] { DeliverSelectionChange(); },
      [this](bool by_keyboard) { DeliverContextMenu(by_keyboard); });
  if (!view_made) return false;
  for (const int button : {id::Bt_Connect, id::Bt_Disconnect, id::Bt_SaveFile, id::Bt_ViewClear}) {
    SetWindowSubclass(Child(button), &DefaultWhileFocused, kDefaultWhileFocused, 0);
  }
  const AccessibleNames names;
  names.Name(Child(id::Pic_Caution), kCautionName);
  names.Name(view_.Hwnd(), kViewName);
  names.Name(FindWindowExW(Hwnd(), nullptr, LiveSurface::kClassName, nullptr), kViewName);
  AttachControls();
  return AddToolTips();
}

void Form1Window::AttachControls() {
  connect_.Attach(Child(id::Bt_Connect));
  disconnect_.Attach(Child(id::Bt_Disconnect));
  // In code a selection is told at once: the logic that selects is the one that listens.
  device_.Attach(Child(id::Cmb_Serect_Device), [this] {
    if (events_ != nullptr) events_->Command(id::Cmb_Serect_Device);
  });
  hard_version_.Attach(Child(id::TB_ODB_Hard_Version));
  protocol_.Attach(Child(id::TB_Protocol));
  status_.Attach(Child(id::TB_Status));
  comment_.Attach(Child(id::TB_LogComment));
  caution_picture_.Attach(Child(id::Pic_Caution));
}

MainWindow Form1Window::Face() {
  return {.window = *this,
          .Form2 = splash_,
          .other_forms = *this,
          .Bt_Connect = connect_,
          .Bt_Disconnect = disconnect_,
          .Cmb_Serect_Device = device_,
          .TB_ODB_Hard_Version = hard_version_,
          .TB_Protocol = protocol_,
          .TB_Status = status_,
          .TB_LogComment = comment_,
          .Pic_Caution = caution_picture_,
          .RTB_MainView = view_,
          .menu_common_setting = BarItem(id::menu_common_setting),
          .menu_opt_function1 = BarItem(id::menu_opt_function1),
          .menu_opt_log1 = BarItem(id::menu_opt_log1),
          .menu_View = *this,
          .menu_View_All_Copy = ViewItem(id::menu_View_All_Copy),
          .menu_View_Ctrl_Z = ViewItem(id::menu_View_Ctrl_Z),
          .menu_View_Ctrl_X = ViewItem(id::menu_View_Ctrl_X),
          .menu_View_Ctrl_C = ViewItem(id::menu_View_Ctrl_C),
          .menu_View_Ctrl_V = ViewItem(id::menu_View_Ctrl_V),
          .menu_View_DEL = ViewItem(id::menu_View_DEL),
          .menu_View_Text_Red = ViewItem(id::menu_View_Text_Red),
          .menu_View_Text_Blue = ViewItem(id::menu_View_Text_Blue),
          .menu_View_Text_Black = ViewItem(id::menu_View_Text_Black),
          .menu_View_Marker_Pink = ViewItem(id::menu_View_Marker_Pink),
          .menu_View_Marker_Yellow = ViewItem(id::menu_View_Marker_Yellow),
          .menu_View_Marker_black = ViewItem(id::menu_View_Marker_black),
          .menu_View_Marker_white = ViewItem(id::menu_View_Marker_white),
          .menu_View_Date = ViewItem(id::menu_View_Date)};
}

MenuItem& Form1Window::Item(HMENU menu, int command) {
  WindowsMenuItem& item = menu_items_[command];
  item.Attach(menu, command);
  return item;
}

bool Form1Window::AddToolTips() {
  const HWND tool_tips = CreateToolTips(Hwnd(), dpi_);
  if (tool_tips == nullptr) return false;
  AddToolTip(tool_tips, Hwnd(), Child(id::Pic_Caution), kCautionTip);
  AddToolTip(tool_tips, Hwnd(), Child(id::TB_Protocol), kProtocolTip);
  AddToolTip(tool_tips, Hwnd(), Child(id::Lb_Protocol), kProtocolTip);
  return true;
}

}  // namespace tolvane::platform::windows
