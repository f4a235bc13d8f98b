// The controls of the main window: their making, their tool tips, their numbers.
#include <iterator>

#include "platform/windows/main_window/form1_window.h"
#include "platform/windows/window_parts/accessible_names.h"
#include "platform/windows/window_parts/tool_tips.h"
// Last, see there.
#include "platform/windows/resources/resource.h"

namespace tolvane::platform::windows {
namespace {

constexpr WPARAM kCommentLength = 50;  // characters
constexpr int kPicture = 48;           // units of 96 dpi

// For screen readers.
constexpr wchar_t kCautionName[] = L"接続中の注意";
constexpr wchar_t kViewName[] = L"受信画面";

constexpr wchar_t kCautionTip[] =
    L"接続中にウィンドウを動かしたり、メニューバーを操作すると、受信が途絶します。";
constexpr wchar_t kProtocolTip[] =
    L"【通信モード】　通信速度の設定は、[ツール(T)] - [共通設定(S)] で変更できます";

constexpr UINT_PTR kDefaultWhileFocused = 1;  // of the subclass

constexpr DWORD kLabel = SS_NOPREFIX | SS_CENTERIMAGE | SS_NOTIFY;
constexpr DWORD kShown = WS_TABSTOP | ES_AUTOHSCROLL | ES_READONLY;
constexpr DWORD kEdited = WS_TABSTOP | ES_AUTOHSCROLL;
constexpr DWORD kButton = WS_TABSTOP | BS_PUSHBUTTON;
constexpr DWORD kList = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
constexpr DWORD kPictureStyle = SS_ICON | SS_REALSIZECONTROL | SS_NOTIFY;

struct ChildControl {
  int id;
  const wchar_t* class_name;
  const wchar_t* text;
  DWORD style;
};

// In reading order, which is the tab order; the view comes behind them.
constexpr ChildControl kChildren[] = {
    {Lb_Serect_Device, WC_STATICW, L"機器No.", kLabel},
    {Cmb_Serect_Device, WC_COMBOBOXW, L"", kList},
    {Lb_ODB_Hard_Version, WC_STATICW, L"機器情報", kLabel},
    {TB_ODB_Hard_Version, WC_EDITW, L"Nothing", kShown},
    {Bt_Connect, WC_BUTTONW, L"接続", kButton | WS_DISABLED},  // until the start is through
    {Bt_Disconnect, WC_BUTTONW, L"切断", kButton | WS_DISABLED},
    {Lb_Protocol, WC_STATICW, L"通信モード", kLabel},
    {TB_Protocol, WC_EDITW, L"---", kShown},
    {Lb_Status, WC_STATICW, L"ステータス", kLabel},
    {TB_Status, WC_EDITW, L"", kShown},
    {Lb_LogComment, WC_STATICW, L"コメント", kLabel},
    {TB_LogComment, WC_EDITW, L"", kEdited},
    {Bt_SaveFile, WC_BUTTONW, L"スナップショット", kButton},
    {Bt_ViewClear, WC_BUTTONW, L"画面クリア", kButton},
    {Pic_Caution, WC_STATICW, L"", kPictureStyle},
};

/// A push button is the default one, and has its ring, exactly while it has the focus: so Enter
/// presses the button that the user sees marked, also where the program moved the focus, after
/// which a dialog manager leaves the mark behind.
LRESULT CALLBACK DefaultWhileFocused(HWND button, UINT message, WPARAM wparam, LPARAM lparam,
                                     UINT_PTR id, DWORD_PTR /*data*/) noexcept {
  const LRESULT result = DefSubclassProc(button, message, wparam, lparam);
  switch (message) {
    case WM_SETFOCUS:
      SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
      break;
    case WM_KILLFOCUS:
      SendMessageW(button, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
      break;
    case WM_NCDESTROY:
      RemoveWindowSubclass(button, &DefaultWhileFocused, id);
      break;
    default:
      break;
  }
  return result;
}

// In the order of MainWindow's members.
constexpr UINT kBarItems[] = {menu_common_setting, menu_opt_function1, menu_opt_log1};
constexpr UINT kViewItems[] = {
    menu_View_All_Copy,     menu_View_Ctrl_Z,      menu_View_Ctrl_X,        menu_View_Ctrl_C,
    menu_View_Ctrl_V,       menu_View_DEL,         menu_View_Text_Red,      menu_View_Text_Blue,
    menu_View_Text_Black,   menu_View_Marker_Pink, menu_View_Marker_Yellow, menu_View_Marker_black,
    menu_View_Marker_white, menu_View_Date};

}  // namespace

HWND Form1Window::AddChild(const wchar_t* class_name, const wchar_t* text, int id, DWORD style) {
  // Boxes get the sunken edge, drawn by the visual style where there is one.
  const bool is_box = lstrcmpW(class_name, WC_EDITW) == 0;
  const HWND child = CreateWindowExW(
      is_box ? WS_EX_CLIENTEDGE : 0, class_name, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
      Hwnd(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), instance_, nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
  return child;
}

bool Form1Window::CreateControls() {
  for (const ChildControl& child : kChildren) {
    if (AddChild(child.class_name, child.text, child.id, child.style) == nullptr) return false;
  }
  const int size = dpi_.Pixels(kPicture);
  caution_ = IconHandle(static_cast<HICON>(
      LoadImageW(instance_, MAKEINTRESOURCEW(ICON_CAUTION), IMAGE_ICON, size, size, 0)));
  SendDlgItemMessageW(Hwnd(), Pic_Caution, STM_SETICON, reinterpret_cast<WPARAM>(caution_.Get()),
                      0);
  ShowWindow(Child(Pic_Caution), SW_HIDE);
  SendDlgItemMessageW(Hwnd(), TB_LogComment, EM_LIMITTEXT, kCommentLength, 0);

  const bool view_made = view_.Create(
      Hwnd(), RTB_MainView, [this] { DeliverSelectionChange(); },
      [this](bool by_keyboard) { DeliverContextMenu(by_keyboard); });
  if (!view_made) return false;
  for (const int id : {Bt_Connect, Bt_Disconnect, Bt_SaveFile, Bt_ViewClear}) {
    SetWindowSubclass(Child(id), &DefaultWhileFocused, kDefaultWhileFocused, 0);
  }
  const AccessibleNames names;
  names.Name(Child(Pic_Caution), kCautionName);
  names.Name(view_.Hwnd(), kViewName);
  names.Name(FindWindowExW(Hwnd(), nullptr, LiveSurface::kClassName, nullptr), kViewName);
  AttachControls();
  return AddToolTips();
}

void Form1Window::AttachControls() {
  connect_.Attach(Child(Bt_Connect));
  disconnect_.Attach(Child(Bt_Disconnect));
  // In code a selection is told at once: the logic that selects is the one that listens.
  device_.Attach(Child(Cmb_Serect_Device), [this] {
    if (events_ != nullptr) events_->Command(Cmb_Serect_Device);
  });
  hard_version_.Attach(Child(TB_ODB_Hard_Version));
  protocol_.Attach(Child(TB_Protocol));
  status_.Attach(Child(TB_Status));
  comment_.Attach(Child(TB_LogComment));
  caution_picture_.Attach(Child(Pic_Caution));
  static_assert(std::size(kBarItems) == std::tuple_size_v<decltype(bar_items_)>);
  for (std::size_t i = 0; i < bar_items_.size(); ++i) {
    bar_items_[i].Attach(GetMenu(Hwnd()), kBarItems[i]);
  }
  static_assert(std::size(kViewItems) == std::tuple_size_v<decltype(view_items_)>);
  for (std::size_t i = 0; i < view_items_.size(); ++i) {
    view_items_[i].Attach(view_menu_.Get(), kViewItems[i]);
  }
}

bool Form1Window::AddToolTips() {
  const HWND tool_tips = CreateToolTips(Hwnd(), dpi_);
  if (tool_tips == nullptr) return false;
  AddToolTip(tool_tips, Hwnd(), Child(Pic_Caution), kCautionTip);
  AddToolTip(tool_tips, Hwnd(), Child(TB_Protocol), kProtocolTip);
  AddToolTip(tool_tips, Hwnd(), Child(Lb_Protocol), kProtocolTip);
  return true;
}

}  // namespace tolvane::platform::windows
