#include "platform/windows/dialogs/formversion_window.h"

#include <tolvane_control_ids.h>
#include "platform/windows/dialogs/dialog_picture.h"
#include "platform/windows/dialogs/pressable_picture.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/accessible_names.h"
#include "platform/windows/window_parts/window_place.h"

namespace tolvane::platform::windows {
namespace {

// Units of 96 dpi.
constexpr SIZE kClient{400, 188};
constexpr RECT kFrame{8, 8, 392, 180};
constexpr RECT kTitle{28, 28, 372, 60};
constexpr RECT kCopyright{28, 68, 372, 90};
constexpr int kLinkSize = id::PICTURE_LINK_SIZE;
constexpr RECT kLinkPicture{28, 116, 28 + kLinkSize, 116 + kLinkSize};
constexpr RECT kLinkText{78, 125, 300, 147};
constexpr int kOkSize = id::PICTURE_OK_SIZE;
constexpr RECT kOkPicture{316, 108, 316 + kOkSize, 108 + kOkSize};
constexpr RECT kOkText{330, 125, 358, 147};
constexpr int kTitlePercent = 180;

// Of the disc of the OK picture, which the label lies on.
constexpr COLORREF kOkFace = RGB(0x2f, 0x6f, 0x8f);
constexpr COLORREF kOkLetters = RGB(255, 255, 255);
constexpr COLORREF kLinkColour = RGB(0, 0, 238);

constexpr DWORD kStyle = WS_POPUP | WS_BORDER;
constexpr DWORD kText = SS_NOPREFIX | SS_CENTERIMAGE;
constexpr DWORD kPicture = SS_ICON | SS_REALSIZECONTROL;
// For screen readers.
constexpr wchar_t kLinkName[] = L"ホームページを開く";
constexpr int kFace = 0;

bool IsLink(int part) { return part == id::PicURL || part == id::Lb_URL; }
bool IsOk(int part) { return part == id::Img_OK || part == id::Lb_OK; }

}  // namespace

void FormVersionWindow::AdjustClass(WNDCLASSEXW& window_class) {
  window_class.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
  window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  window_class.style = CS_DROPSHADOW;
}

void FormVersionWindow::Show() {
  if (Hwnd() == nullptr) Load();
  ShowWindow(Hwnd(), SW_SHOW);
  SetForegroundWindow(Hwnd());
}

void FormVersionWindow::Load() {
  const DialogLook look = LookOver(surroundings_.main_window, kClient, kStyle, 0);
  dpi_ = look.Scale();
  font_ = look.Font();
  title_font_ = look.Font(kTitlePercent);
  LOGFONTW link{};
  GetObjectW(font_.Get(), sizeof(link), &link);
  link.lfUnderline = TRUE;
  link_font_ = FontHandle(CreateFontIndirectW(&link));
  ok_brush_ = BrushHandle(CreateSolidBrush(kOkFace));
  if (!Create(surroundings_.instance,
              PlaceOverOwner(surroundings_.main_window, dpi_, kClient, kStyle, 0))) {
    return;
  }
  form_.Form_Load(device_);
  SetWindowTextW(Hwnd(), Wide(form_.Caption));
  AddStatic(id::Lb_App_Title, kText, kTitle, form_.Lb_App_Title, title_font_.Get());
  AddStatic(id::Lb_copylight, kText, kCopyright, form_.Lb_copylight, font_.Get());
  AddStatic(id::PicURL, kPicture | WS_TABSTOP, kLinkPicture, u"", nullptr);
  AddStatic(id::Lb_URL, kText, kLinkText, form_.Lb_URL, link_font_.Get());
  // The upper one of two that overlap is the earlier one.
  AddStatic(id::Lb_OK, kText | SS_CENTER | WS_TABSTOP, kOkText, u"OK", font_.Get());
  AddStatic(id::Img_OK, kPicture, kOkPicture, u"", nullptr);
  AddStatic(id::Shape1, SS_ETCHEDFRAME, kFrame, u"", nullptr);
  ok_picture_ = ShowPicture(Hwnd(), id::Img_OK, id::PICTURE_OK, kOkSize, dpi_);
  link_picture_ = ShowPicture(Hwnd(), id::PicURL, id::PICTURE_LINK, kLinkSize, dpi_);
  const AccessibleNames names;
  names.Name(Child(id::PicURL), kLinkName);
  names.Name(Child(id::Img_OK), L"OK");
  for (const int part : {id::PicURL, id::Lb_OK}) {
    MakePressable(Child(part));
    names.PushButton(Child(part));
  }
  surroundings_.loop.AddKeyboardWindow(Hwnd());
}

void FormVersionWindow::AddStatic(int part, DWORD style, const RECT& place, const String& text,
                                  HFONT font) {
  // The frame must not take the mouse from what it surrounds.
  const DWORD notify = part == id::Shape1 ? 0 : SS_NOTIFY;
  const HWND child = CreateWindowExW(
      0, WC_STATICW, Wide(text), WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | style | notify,
      dpi_.Pixels(place.left), dpi_.Pixels(place.top), dpi_.Pixels(place.right - place.left),
      dpi_.Pixels(place.bottom - place.top), Hwnd(),
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(part)), surroundings_.instance, nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  SetWindowSubclass(child, &PartProcedure, static_cast<UINT_PTR>(part),
                    reinterpret_cast<DWORD_PTR>(this));
}

void FormVersionWindow::Unload() {
  if (Hwnd() == nullptr) return;
  surroundings_.loop.RemoveKeyboardWindow(Hwnd());
  AccessibleNames().ForgetChildren(Hwnd());
  Destroy();
}

LRESULT FormVersionWindow::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
      OnMouse(message, wparam, lparam, kFace);
      return 0;
    case WM_COMMAND:
      OnKeyCommand(LOWORD(wparam));
      return 0;
    case WM_CLOSE:
      Hide();
      return 0;
    case WM_SETFOCUS:
      SetFocus(Child(id::Lb_OK));
      return 0;
    case WM_SETCURSOR:
      if (IsLink(GetDlgCtrlID(reinterpret_cast<HWND>(wparam)))) {
        SetCursor(static_cast<HCURSOR>(LongToHandle(mouse_cursor_)));
        return TRUE;
      }
      return DefaultHandling(message, wparam, lparam);
    case WM_CTLCOLORSTATIC:
      return PaintPart(reinterpret_cast<HDC>(wparam), GetDlgCtrlID(reinterpret_cast<HWND>(lparam)));
    default:
      return DefaultHandling(message, wparam, lparam);
  }
}

/// Enter, Escape, and the space bar on a part that can be pressed. The mouse does not come here.
void FormVersionWindow::OnKeyCommand(int part) {
  const bool on_link = part == IDOK && GetFocus() == Child(id::PicURL);
  if (part == id::PicURL || on_link) return OpenLink();
  if (part == IDOK || part == IDCANCEL || part == id::Lb_OK) Hide();
}

LRESULT FormVersionWindow::PaintPart(HDC context, int part) const {
  SetBkMode(context, TRANSPARENT);
  if (part == id::Lb_OK) {
    SetTextColor(context, kOkLetters);
    return reinterpret_cast<LRESULT>(ok_brush_.Get());
  }
  SetTextColor(context, part == id::Lb_URL ? kLinkColour : GetSysColor(COLOR_WINDOWTEXT));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
}

LRESULT CALLBACK FormVersionWindow::PartProcedure(HWND child, UINT message, WPARAM wparam,
                                                  LPARAM lparam, UINT_PTR part,
                                                  DWORD_PTR object) noexcept {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
      reinterpret_cast<FormVersionWindow*>(object)->OnMouse(message, wparam, lparam,
                                                            static_cast<int>(part));
      return 0;
    case WM_NCDESTROY:
      RemoveWindowSubclass(child, &PartProcedure, part);
      break;
    default:
      break;
  }
  return DefSubclassProc(child, message, wparam, lparam);
}

void FormVersionWindow::OnMouse(UINT message, WPARAM keys, LPARAM place, int part) {
  switch (message) {
    case WM_LBUTTONDOWN:
      return OnPress(place, part);
    case WM_LBUTTONUP:
      return OnRelease(part);
    default:
      break;
  }
  // Windows sometimes reports a movement though the mouse has not moved. If that made a press a
  // drag, the press would never become a click.
  const bool moved = pressed_ != part || place != pressed_at_;
  if ((keys & MK_LBUTTON) != 0 && moved && !IsLink(part)) Drag();
}

void FormVersionWindow::OnPress(LPARAM place, int part) {
  pressed_at_ = place;
  pressed_ = part;
  if (part == id::Lb_URL) Deliver([this] { FormVersion::Lb_URL_MouseDown(device_, shell_); });
}

void FormVersionWindow::OnRelease(int part) {
  if (std::exchange(pressed_, std::nullopt) != part) return;
  if (IsOk(part)) Hide();
  if (part == id::PicURL) OpenLink();
}

void FormVersionWindow::Drag() {
  pressed_.reset();
  ReleaseCapture();
  // Past the gate, as any window that is moved by its title: the run goes on meanwhile as far as
  // the system lets it.
  SendMessageW(Hwnd(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

}  // namespace tolvane::platform::windows
