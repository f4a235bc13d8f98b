#include "platform/windows/dialogs/formhelp_window.h"

#include <tolvane_control_ids.h>
#include "platform/windows/dialogs/dialog_part.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/accessible_names.h"
#include "platform/windows/window_parts/window_place.h"

namespace tolvane::platform::windows {
namespace {

// Units of 96 dpi.
constexpr SIZE kClient{560, 480};
constexpr SIZE kSmallest{320, 240};
constexpr int kMargin = 12;

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT;
constexpr DWORD kViewStyle =
    WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL;

constexpr UINT_PTR kTabLeaves = 1;  // of the subclass

/// A box of several lines would keep Tab and Enter for itself.
LRESULT CALLBACK TabLeaves(HWND view, UINT message, WPARAM wparam, LPARAM lparam, UINT_PTR subclass,
                           DWORD_PTR /*data*/) noexcept {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(view, &TabLeaves, subclass);
  const LRESULT result = DefSubclassProc(view, message, wparam, lparam);
  return message == WM_GETDLGCODE ? result & ~LRESULT{DLGC_WANTALLKEYS} : result;
}

}  // namespace

void FormHelpWindow::AdjustClass(WNDCLASSEXW& window_class) {
  window_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window_class.hIcon = LoadIconW(window_class.hInstance, MAKEINTRESOURCEW(id::ICON_TOLVANE));
}

void FormHelpWindow::Show() {
  if (Hwnd() == nullptr) Form_Load();
  ShowWindow(Hwnd(), SW_SHOW);
  SetForegroundWindow(Hwnd());
}

void FormHelpWindow::Form_Load() {
  const DialogLook look = LookOver(surroundings_.main_window, kClient, kStyle, kExtendedStyle);
  dpi_ = look.Scale();
  font_ = look.Font();
  if (!Create(surroundings_.instance,
              PlaceOverOwner(surroundings_.main_window, dpi_, kClient, kStyle, kExtendedStyle))) {
    return;
  }
  const HWND view = CreateWindowExW(WS_EX_CLIENTEDGE, WC_EDITW, L"", kViewStyle, 0, 0, 0, 0, Hwnd(),
                                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(id::TB_View)),
                                    surroundings_.instance, nullptr);
  SendMessageW(view, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), FALSE);
  SetWindowSubclass(view, &TabLeaves, kTabLeaves, 0);
  AccessibleNames().Name(view, L"ヘルプ");
  const DialogPart close[] = {
      {id::Bt_Close, PartKind::kDefaultButton, L"OK", 0, 0, kButtonWidth, kButtonHeight}};
  AddParts(Hwnd(), dpi_, font_.Get(), close);
  RECT client{};
  GetClientRect(Hwnd(), &client);
  LayOut(client.right, client.bottom);
  surroundings_.loop.AddKeyboardWindow(Hwnd());
  // With its place: the window goes to the top left corner of the screen.
  SetWindowPos(Hwnd(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE);
  SetWindowTextW(Hwnd(), Wide(device_.Application_title + u"　　ヘルプ"));
}

void FormHelpWindow::TB_View(StringView text) {
  const HWND view = GetDlgItem(Hwnd(), id::TB_View);
  const String shown(text);
  if (WindowText(view) != shown) SetWindowTextW(view, Wide(shown));
}

void FormHelpWindow::Unload() {
  if (Hwnd() == nullptr) return;
  surroundings_.loop.RemoveKeyboardWindow(Hwnd());
  AccessibleNames().ForgetChildren(Hwnd());
  Destroy();
}

void FormHelpWindow::LayOut(int width, int height) {
  const int margin = dpi_.Pixels(kMargin);
  const int button_width = dpi_.Pixels(kButtonWidth);
  const int button_height = dpi_.Pixels(kButtonHeight);
  const int button_top = height - margin - button_height;
  MoveWindow(GetDlgItem(Hwnd(), id::TB_View), margin, margin, width - 2 * margin,
             button_top - 2 * margin, TRUE);
  // Repainted, as the text may now cover what the button showed.
  SetWindowPos(GetDlgItem(Hwnd(), id::Bt_Close), nullptr, width - margin - button_width, button_top,
               button_width, button_height, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

LRESULT FormHelpWindow::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(wparam) != BN_CLICKED) return 0;
      [[fallthrough]];
    case WM_CLOSE:
      surroundings_.gate.Deliver([this] { Hide(); });
      return 0;
    case WM_SIZE:
      LayOut(LOWORD(lparam), HIWORD(lparam));
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {dpi_.Pixels(kSmallest.cx),
                                                               dpi_.Pixels(kSmallest.cy)};
      return 0;
    case WM_SETFOCUS:
      SetFocus(GetDlgItem(Hwnd(), id::Bt_Close));
      return 0;
    case WM_CTLCOLORSTATIC:
      // Read-only, but to be read like a page.
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    case DM_GETDEFID:
      return MAKELRESULT(id::Bt_Close, DC_HASDEFID);
    default:
      return DefaultHandling(message, wparam, lparam);
  }
}

}  // namespace tolvane::platform::windows
