#include "platform/windows/dialogs/settings_dialog.h"

#include <utility>

#include <tolvane_control_ids.h>
#include "platform/windows/dialogs/control_colour.h"
#include "platform/windows/dialogs/dialog_picture.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/accessible_names.h"
#include "platform/windows/window_parts/window_place.h"
#include "shell/helpwizard.h"

namespace tolvane::platform::windows {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr int kMargin = 12;
constexpr int kPictureSize = id::PICTURE_HELP_SIZE;

// The topics of Help_Show.
static_assert(id::HELP_COMMON_SETTING == HelpWizard::kTextBeforeFirst + 1);
static_assert(id::HELP_OPTION1 == HelpWizard::kTextBeforeFirst + 2);
static_assert(id::HELP_OPTION_LOG1 == HelpWizard::kTextBeforeFirst + 3);

}  // namespace

void SettingsDialog::AdjustClass(WNDCLASSEXW& window_class) {
  window_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
}

void SettingsDialog::Show() {
  if (Hwnd() != nullptr) return;
  const HWND main_window = surroundings_.main_window;
  const DialogLook look = LookOver(main_window, client_, kStyle, kExtendedStyle);
  dpi_ = look.Scale();
  font_ = look.Font();
  last_focus_ = nullptr;
  if (!Create(surroundings_.instance,
              PlaceOverOwner(main_window, dpi_, client_, kStyle, kExtendedStyle))) {
    return;
  }
  colour_dialog_.Owner(Hwnd());
  AddControls();
  help_picture_ = ShowPicture(Hwnd(), id::Img_Help_Setting, id::PICTURE_HELP, kPictureSize, dpi_);
  SetWindowTextW(Hwnd(), Wide(LoadForm()));
  ShowValues();
  surroundings_.loop.AddKeyboardWindow(Hwnd(), [this](WPARAM key) {
    if (key != VK_F1) return false;
    Deliver([this] { Help(); });
    return true;
  });
  EnableWindow(main_window, FALSE);
  FocusFirst();
  ShowWindow(Hwnd(), SW_SHOW);
}

void SettingsDialog::Unload() {
  if (Hwnd() == nullptr) return;
  if (help_.Visible()) help_.Hide();
  // Before the dialog goes, or Windows would give the focus to another program.
  EnableWindow(surroundings_.main_window, TRUE);
  surroundings_.loop.RemoveKeyboardWindow(Hwnd());
  AccessibleNames().ForgetChildren(Hwnd());
  Destroy();
}

void SettingsDialog::AddClosingButtons() {
  const int top = static_cast<int>(client_.cy) - kMargin - kButtonHeight;
  const int cancel = static_cast<int>(client_.cx) - kMargin - kButtonWidth;
  const int ok = cancel - 8 - kButtonWidth;
  const DialogPart parts[] = {
      {id::Img_Help_Setting, PartKind::kPicture, L"", ok - 12 - kPictureSize,
       top + (kButtonHeight - kPictureSize) / 2, kPictureSize, kPictureSize, L"ヘルプ"},
      {id::Bt_OK, PartKind::kDefaultButton, L"OK", ok, top, kButtonWidth, kButtonHeight},
      {id::Bt_Cancell, PartKind::kButton, L"キャンセル", cancel, top, kButtonWidth, kButtonHeight},
  };
  Add(parts);
}

void SettingsDialog::FocusFirst() {
  const HWND first = GetNextDlgTabItem(Hwnd(), nullptr, FALSE);
  // A radio button that gets the focus selects itself, and a setting of no known value selects
  // none.
  const bool selects_itself = (SendMessageW(first, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0 &&
                              SendMessageW(first, BM_GETCHECK, 0, 0) != BST_CHECKED;
  last_focus_ = selects_itself ? Child(id::Bt_OK) : first;
}

void SettingsDialog::Deliver(EventGate::Event event) {
  surroundings_.gate.Deliver([this, opening = Hwnd(), event = std::move(event)] {
    if (Hwnd() == opening && IsWindowEnabled(opening)) event();
  });
}

LRESULT SettingsDialog::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_COMMAND:
      if (HIWORD(wparam) == BN_CLICKED) OnCommand(LOWORD(wparam));
      return 0;
    case WM_CLOSE:
      Deliver([this] { Unload(); });
      return 0;
    case WM_NOTIFY:
      if (const auto* header = reinterpret_cast<const NMHDR*>(lparam);
          header->code == static_cast<UINT>(NM_CUSTOMDRAW)) {
        return DrawColouredRadio(*reinterpret_cast<const NMCUSTOMDRAW*>(lparam));
      }
      return 0;
    case WM_DRAWITEM:
      DrawColourButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lparam));
      return TRUE;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return PaintControlText(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam));
    case DM_GETDEFID:
      return MAKELRESULT(id::Bt_OK, DC_HASDEFID);
    case WM_ACTIVATE:
      OnActivate(LOWORD(wparam) != WA_INACTIVE);
      return 0;
    case WM_SETFOCUS:
      SetFocus(last_focus_);
      return 0;
    default:
      return DefaultHandling(message, wparam, lparam);
  }
}

void SettingsDialog::OnActivate(bool active) {
  if (active) {
    SetFocus(last_focus_);
  } else if (const HWND focus = GetFocus(); IsChild(Hwnd(), focus)) {
    last_focus_ = focus;
  }
}

void SettingsDialog::OnCommand(int control) {
  switch (control) {
    case id::Bt_OK:
    case IDOK:
      Deliver([this] {
        TakeValues();
        StoreForm();
        Unload();
      });
      return;
    case id::Bt_Cancell:
    case IDCANCEL:
      Deliver([this] { Unload(); });
      return;
    case id::Img_Help_Setting:
      Deliver([this] { Help(); });
      return;
    default:
      Deliver([this, control] {
        const HWND opening = Hwnd();
        TakeValues();
        OnClick(control);
        // A modal dialog of the click may have outlived this opening, and stand over another one.
        if (Hwnd() == opening) ShowValues();
      });
  }
}

void SettingsDialog::Help() {
  HelpWizard::Help_Show(help_text_ - HelpWizard::kTextBeforeFirst, help_, resources_);
}

}  // namespace tolvane::platform::windows
