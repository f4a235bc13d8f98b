#include "platform/windows/main_window/form1_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <tolvane_control_ids.h>
#include "platform/windows/main_window/form1_layout.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/accessible_names.h"
#include "platform/windows/window_parts/window_place.h"

namespace tolvane::platform::windows {
namespace {

constexpr UINT kStartRun = WM_APP + 1;
constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;

/// Size of a window whose client area has `client` units.
Extent WindowSize(const Dpi& dpi, SIZE client) {
  const SIZE frame = FrameSize(kStyle, 0, true);
  return {static_cast<std::int32_t>(dpi.Pixels(client.cx) + frame.cx),
          static_cast<std::int32_t>(dpi.Pixels(client.cy) + frame.cy)};
}

// Keys that press a button of the window, beside its mnemonics and menus.
struct ButtonKey {
  WPARAM key;
  int button;
};
constexpr ButtonKey kButtonKeys[] = {
    {VK_F5, id::Bt_Connect}, {VK_F6, id::Bt_Disconnect}, {VK_F9, id::Bt_SaveFile}};

}  // namespace

void Form1Window::AdjustClass(WNDCLASSEXW& window_class) {
  window_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window_class.hIcon = LoadIconW(window_class.hInstance, MAKEINTRESOURCEW(id::ICON_TOLVANE));
}

Form1Window::Form1Window(HINSTANCE instance, EventGate& gate, WindowsEventLoop& loop,
                         CodePage& code_page, SplashWindow& splash, WorkerWindows& workers)
    : instance_(instance),
      gate_(gate),
      loop_(loop),
      splash_(splash),
      workers_(workers),
      view_(code_page) {}

Form1Window::~Form1Window() {
  AccessibleNames().ForgetChildren(Hwnd());
  Destroy();
}

bool Form1Window::CreateHidden() {
  if (splash_.Hwnd() == nullptr || !workers_.Made()) return false;
  view_menu_ = MenuHandle(LoadMenuW(instance_, MAKEINTRESOURCEW(id::MENU_VIEW)));
  const ScreenPlace area = WorkArea(nullptr);
  const DialogLook look(kSmallestClient, FrameSize(kStyle, 0, true), {area.width, area.height});
  dpi_ = look.Scale();
  font_ = look.Font();
  if (!Create(instance_, {.style = kStyle,
                          .bounds = {CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT},
                          .menu = LoadMenuW(instance_, MAKEINTRESOURCEW(id::MENU_MAIN))})) {
    return false;
  }
  if (!CreateControls()) return false;
  TakeFirstPlace();
  loop_.AddKeyboardWindow(Hwnd(), [this](WPARAM key) { return OnKey(key); });
  // A view that passes the focus on would send Tab round the controls before it without an end.
  workers_.FormBG.OnRunning([this](bool running) { view_.TabStop(!running); });
  loop_.OnQuit([this] { OnClose(); });
  return true;
}

/// Where the system begins a window, moved and cut to lie inside the work area.
void Form1Window::TakeFirstPlace() {
  RECT bounds{};
  GetWindowRect(Hwnd(), &bounds);
  const ScreenPlace place =
      Inside(WorkArea(Hwnd()), static_cast<std::int32_t>(bounds.left),
             static_cast<std::int32_t>(bounds.top), WindowSize(dpi_, kFirstClient));
  SetWindowPos(Hwnd(), nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form1Window::Start(int show_command) {
  started_ = true;
  ShowWindow(Hwnd(), show_command);
  UpdateWindow(Hwnd());
  splash_.MakeWay();
  if (close_wanted_) OnClose();
}

void Form1Window::Caption(StringView text) { SetWindowTextW(Hwnd(), Wide(String(text))); }

void Form1Window::Unload() {
  if (unloading_ || events_ == nullptr) return;
  unloading_ = true;
  if (events_->QueryUnload()) {
    // An open menu would stay on the screen and keep the program alive until the user's next click.
    EndMenu();
    events_->Unload();
    // The object is used until the process ends, so the window goes with it and not now.
    ShowWindow(Hwnd(), SW_HIDE);
    loop_.End();
  } else {
    unloading_ = false;
  }
}

void Form1Window::Unload(OtherForm form) {
  switch (form) {
    case OtherForm::Form2:
      return splash_.Destroy();
    case OtherForm::FormBG:
      return workers_.FormBG.Destroy();
    case OtherForm::FormBG2:
      return workers_.FormBG2.Destroy();
    case OtherForm::FormBG_29:
      return workers_.FormBG_29.Destroy();
    case OtherForm::FormBG2_29:
      return workers_.FormBG2_29.Destroy();
    case OtherForm::FormVersion:
    case OtherForm::FormCommonSetting:
    case OtherForm::FormOption1:
    case OtherForm::FormHelp:
      if (dialogs_ != nullptr) dialogs_->Unload(form);
      return;
  }
}

LRESULT Form1Window::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wparam), HIWORD(wparam));
      return 0;
    case kStartRun:
      gate_.Deliver([this] { StartRun(); });
      return 0;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lparam)->code == EN_SELCHANGE && !view_.Writing()) {
        DeliverSelectionChange();
      }
      return 0;
    case WM_CLOSE:
      OnClose();
      return 0;
    case WM_QUERYENDSESSION:
      return events_ == nullptr || !events_->ClosingIsRefused();
    case WM_ENDSESSION:
      if (wparam != FALSE && started_) OnSessionEnd();
      return 0;
    case WM_SIZE:
      OnSize(LOWORD(lparam), HIWORD(lparam));
      return 0;
    case WM_GETMINMAXINFO: {
      const Extent smallest = CutTo(WorkArea(Hwnd()), WindowSize(dpi_, kSmallestClient));
      reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {smallest.width, smallest.height};
      return 0;
    }
    case DM_GETDEFID:
      return DefaultButton();
    case WM_ACTIVATE:
      OnActivate(LOWORD(wparam) != WA_INACTIVE);
      return 0;
    case WM_SETFOCUS:
      SetFocus(last_focus_ != nullptr ? last_focus_ : Child(id::Bt_Connect));
      return 0;
    default:
      return DefaultHandling(message, wparam, lparam);
  }
}

void Form1Window::OnCommand(int command, int notification) {
  switch (command) {
    case id::Cmb_Serect_Device:
      if (notification == CBN_SELCHANGE) DeliverCommand(command);
      return;
    case id::RTB_MainView:
      if (notification == EN_SETFOCUS && events_ != nullptr) {
        gate_.Deliver([this] { events_->ViewGotFocus(); });
      }
      return;
    default:
      // A button's click, or a menu command, which has the same code.
      if (notification == BN_CLICKED) OnMenuOrClick(command);
  }
}

void Form1Window::OnMenuOrClick(int command) {
  if (!CanBeChosen(command)) return;
  if (command == id::Bt_Connect) {
    // The run lasts as long as its handler. A program that sends the click must not wait for it.
    connect_.Enabled(false);
    start_wanted_ = true;
    PostMessageW(Hwnd(), kStartRun, 0, 0);
    return;
  }
  DeliverCommand(command);
}

/// Only behind a click: any program can post the message, in a run or behind a message box too. A
/// settings dialog may have opened since the click.
void Form1Window::StartRun() {
  if (!std::exchange(start_wanted_, false) || events_ == nullptr) return;
  if (!IsWindowEnabled(Hwnd())) {
    connect_.Enabled(true);
    return;
  }
  events_->Command(id::Bt_Connect);
  // The process was not ended: a set-up program, for example, only wants its files free.
  if (session_ended_) Unload();
}

/// What the user cannot choose, no other program can by a message. Behind a modal window that is
/// everything.
bool Form1Window::CanBeChosen(int command) const {
  if (!IsWindowEnabled(Hwnd())) return false;
  const HWND control = Child(command);
  return control != nullptr ? IsWindowEnabled(control) != FALSE : MenuItemEnabled(command);
}

bool Form1Window::OnKey(WPARAM key) {
  // A settings dialog stands over the window.
  if (!IsWindowEnabled(Hwnd())) return false;
  if (key == VK_F1) {
    if (events_ != nullptr) gate_.Deliver([this] { events_->HelpKey(); });
    return true;
  }
  const auto* row = std::ranges::find(kButtonKeys, key, &ButtonKey::key);
  if (row == std::end(kButtonKeys)) return false;
  OnMenuOrClick(row->button);
  return true;
}

/// The push button that has the focus: the dialog manager puts the ring on what this tells.
LRESULT Form1Window::DefaultButton() const {
  const HWND focus = GetFocus();
  const LRESULT kind = SendMessageW(focus, WM_GETDLGCODE, 0, 0);
  const bool is_button = (kind & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
  if (!is_button || !IsChild(Hwnd(), focus)) return 0;
  return MAKELRESULT(GetDlgCtrlID(focus), DC_HASDEFID);
}

bool Form1Window::MenuItemEnabled(int command) const {
  for (const HMENU menu : {GetMenu(Hwnd()), view_menu_.Get()}) {
    const UINT state = GetMenuState(menu, static_cast<UINT>(command), MF_BYCOMMAND);
    if (state != static_cast<UINT>(-1)) return (state & (MF_GRAYED | MF_DISABLED)) == 0;
  }
  return false;
}

void Form1Window::DeliverCommand(int command) {
  if (events_ == nullptr) return;
  // Asked again, as it may have waited: for the end of a run, or for its beginning.
  gate_.Deliver([this, command] {
    if (CanBeChosen(command)) events_->Command(command);
  });
}

void Form1Window::DeliverSelectionChange() {
  if (events_ == nullptr || selection_waiting_) return;
  selection_waiting_ = true;
  gate_.Deliver([this] {
    selection_waiting_ = false;
    events_->ViewSelectionChanged();
  });
}

void Form1Window::DeliverContextMenu(bool by_keyboard) {
  if (events_ == nullptr) return;
  gate_.Deliver([this, by_keyboard] {
    by_keyboard_ = by_keyboard;
    events_->ViewContextMenu();
  });
}

void Form1Window::OnClose() {
  close_wanted_ = !started_;
  // During the start there is nothing to close yet; it is done when the start is through.
  if (!started_ || events_ == nullptr) return;
  // A settings dialog stands over the window.
  if (!IsWindowEnabled(Hwnd())) return;
  gate_.Deliver([this] { Unload(); });
}

/// Past the gate: the process is ended when this returns. In a yield of closing, too, everything is
/// saved now: closing may not have saved yet, and may get no time for it.
void Form1Window::OnSessionEnd() {
  if (events_ == nullptr || session_ended_) return;
  if (!unloading_ && !events_->ClosingIsRefused()) return Unload();
  session_ended_ = true;
  events_->SessionEnds();
}

void Form1Window::OnSize(int width, int height) {
  if (width > 0 && height > 0) LayOutForm1(Hwnd(), dpi_, {width, height});
}

void Form1Window::OnActivate(bool active) {
  if (active) {
    SetFocus(Hwnd());
  } else if (const HWND focus = GetFocus(); IsChild(Hwnd(), focus)) {
    last_focus_ = focus;
  }
}

void Form1Window::PopUp() {
  const POINT place = PopUpPlace();
  const EventGate::Opened opened(gate_);
  TrackPopupMenu(GetSubMenu(view_menu_.Get(), 0), TPM_RIGHTBUTTON, place.x, place.y, 0, Hwnd(),
                 nullptr);
}

POINT Form1Window::PopUpPlace() const {
  POINT place{};
  if (by_keyboard_ && GetCaretPos(&place)) {
    ClientToScreen(view_.Hwnd(), &place);
  } else {
    GetCursorPos(&place);
  }
  return place;
}

}  // namespace tolvane::platform::windows
