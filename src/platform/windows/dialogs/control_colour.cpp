#include "platform/windows/dialogs/control_colour.h"

#include "platform/windows/system/handle.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/theme.h"

namespace tolvane::platform::windows {
namespace {

constexpr wchar_t kButtonTheme[] = L"BUTTON";
constexpr int kFrame = 3;  // pixels of a button around the mark of the focus

/// State of a theme's push button or unchecked radio button, which count alike.
int ThemeState(bool disabled, bool pressed, bool hot) {
  if (disabled) return RBS_UNCHECKEDDISABLED;
  if (pressed) return RBS_UNCHECKEDPRESSED;
  return hot ? RBS_UNCHECKEDHOT : RBS_UNCHECKEDNORMAL;
}

int RadioState(const NMCUSTOMDRAW& draw) {
  const int state =
      ThemeState((draw.uItemState & CDIS_DISABLED) != 0, (draw.uItemState & CDIS_SELECTED) != 0,
                 (draw.uItemState & CDIS_HOT) != 0);
  const bool checked = SendMessageW(draw.hdr.hwndFrom, BM_GETCHECK, 0, 0) == BST_CHECKED;
  return checked ? state + RBS_CHECKEDNORMAL - RBS_UNCHECKEDNORMAL : state;
}

bool IsRadio(HWND control) {
  return (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
}

bool ShowsFocus(HWND control) {
  return (SendMessageW(control, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0;
}

}  // namespace

void SetControlColour(HWND control, COLORREF colour) {
  if (ControlColour(control) == colour) return;
  SetWindowLongPtrW(control, GWLP_USERDATA, static_cast<LONG_PTR>(colour));
  InvalidateRect(control, nullptr, TRUE);
}

COLORREF ControlColour(HWND control) {
  return static_cast<COLORREF>(GetWindowLongPtrW(control, GWLP_USERDATA));
}

LRESULT PaintControlText(HDC context, HWND control) {
  const COLORREF colour = ControlColour(control);
  SetTextColor(context, colour != 0 ? colour : GetSysColor(COLOR_BTNTEXT));
  SetBkColor(context, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

void DrawColourButton(const DRAWITEMSTRUCT& item) {
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  RECT face = item.rcItem;
  const Theme theme(item.hwndItem, kButtonTheme);
  if (theme) {
    const int state = ThemeState((item.itemState & ODS_DISABLED) != 0, pressed,
                                 (item.itemState & ODS_HOTLIGHT) != 0);
    FillRect(item.hDC, &face, GetSysColorBrush(COLOR_BTNFACE));
    theme.Draw(item.hDC, BP_PUSHBUTTON, state, face);
  } else {
    const UINT style = DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0U);
    DrawFrameControl(item.hDC, &face, DFC_BUTTON, style);
  }
  InflateRect(&face, -kFrame, -kFrame);
  const bool focused = (item.itemState & ODS_FOCUS) != 0;
  if (focused && (item.itemState & ODS_NOFOCUSRECT) == 0) DrawFocusRect(item.hDC, &face);
  InflateRect(&face, -1, -1);
  const BrushHandle brush(CreateSolidBrush(ControlColour(item.hwndItem) & 0xFFFFFF));
  FillRect(item.hDC, &face, brush.Get());
}

LRESULT DrawColouredRadio(const NMCUSTOMDRAW& draw) {
  const HWND button = draw.hdr.hwndFrom;
  if (draw.dwDrawStage != CDDS_PREPAINT || ControlColour(button) == 0 || !IsRadio(button)) {
    return CDRF_DODEFAULT;
  }
  const Theme theme(button, kButtonTheme);
  if (!theme) return CDRF_DODEFAULT;

  RECT bounds = draw.rc;
  FillRect(draw.hdc, &bounds, GetSysColorBrush(COLOR_BTNFACE));
  const int state = RadioState(draw);
  const SIZE mark = theme.Size(draw.hdc, BP_RADIOBUTTON, state);
  const RECT mark_bounds{bounds.left, (bounds.top + bounds.bottom - mark.cy) / 2,
                         bounds.left + mark.cx, (bounds.top + bounds.bottom + mark.cy) / 2};
  theme.Draw(draw.hdc, BP_RADIOBUTTON, state, mark_bounds);

  const String text = WindowText(button);
  const int length = static_cast<int>(text.size());
  const auto font = reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0));
  const HGDIOBJ font_before = SelectObject(draw.hdc, font);
  // The gap that the system leaves.
  INT digit_width = 0;
  GetCharWidth32W(draw.hdc, L'0', L'0', &digit_width);
  bounds.left = mark_bounds.right + digit_width / 2;
  SetBkMode(draw.hdc, TRANSPARENT);
  const bool disabled = (draw.uItemState & CDIS_DISABLED) != 0;
  SetTextColor(draw.hdc, disabled ? GetSysColor(COLOR_GRAYTEXT) : ControlColour(button));
  constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
  DrawTextW(draw.hdc, Wide(text), length, &bounds, kFormat);
  if ((draw.uItemState & CDIS_FOCUS) != 0 && ShowsFocus(button)) {
    RECT text_bounds = bounds;
    DrawTextW(draw.hdc, Wide(text), length, &text_bounds, kFormat | DT_CALCRECT);
    OffsetRect(&text_bounds, 0,
               (bounds.bottom - bounds.top - text_bounds.bottom + text_bounds.top) / 2);
    InflateRect(&text_bounds, 1, 1);
    DrawFocusRect(draw.hdc, &text_bounds);
  }
  SelectObject(draw.hdc, font_before);
  return CDRF_SKIPDEFAULT;
}

}  // namespace tolvane::platform::windows
