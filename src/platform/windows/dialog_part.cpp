#include "platform/windows/dialog_part.h"

namespace tolvane::platform::windows {
namespace {

struct PartStyle {
  const wchar_t* class_name;
  DWORD style;
  DWORD extended_style;
};

PartStyle StyleOf(PartKind kind) {
  constexpr DWORD kShown = WS_CHILD | WS_VISIBLE;
  constexpr DWORD kAlone = kShown | WS_GROUP;  // ends the group of radio buttons before it
  constexpr DWORD kLabelStyle = kAlone | SS_NOPREFIX | SS_CENTERIMAGE;
  constexpr DWORD kBoxStyle = kAlone | WS_TABSTOP | ES_AUTOHSCROLL;
  switch (kind) {
    case PartKind::kGroup:
      return {WC_BUTTONW, kAlone | BS_GROUPBOX, 0};
    case PartKind::kLabel:
      return {WC_STATICW, kLabelStyle, 0};
    case PartKind::kCentredLabel:
      return {WC_STATICW, kLabelStyle | SS_CENTER, 0};
    case PartKind::kFirstRadio:
      return {WC_BUTTONW, kAlone | WS_TABSTOP | BS_AUTORADIOBUTTON, 0};
    case PartKind::kRadio:
      return {WC_BUTTONW, kShown | BS_AUTORADIOBUTTON, 0};
    case PartKind::kLeftover:
      return {WC_BUTTONW, WS_CHILD | WS_DISABLED | BS_AUTORADIOBUTTON, 0};
    case PartKind::kCheck:
      return {WC_BUTTONW, kAlone | WS_TABSTOP | BS_AUTOCHECKBOX, 0};
    case PartKind::kTextBox:
      return {WC_EDITW, kBoxStyle, WS_EX_CLIENTEDGE};
    case PartKind::kNumberBox:
      return {WC_EDITW, kBoxStyle | ES_RIGHT, WS_EX_CLIENTEDGE};
    case PartKind::kStatus:
      return {WC_EDITW, kAlone | ES_AUTOHSCROLL | ES_READONLY, 0};
    case PartKind::kColour:
      return {WC_BUTTONW, kAlone | WS_TABSTOP | BS_OWNERDRAW, 0};
    case PartKind::kButton:
      return {WC_BUTTONW, kAlone | WS_TABSTOP | BS_PUSHBUTTON, 0};
    case PartKind::kDefaultButton:
      return {WC_BUTTONW, kAlone | WS_TABSTOP | BS_DEFPUSHBUTTON, 0};
    case PartKind::kPicture:
      break;
  }
  return {WC_STATICW, kAlone | SS_ICON | SS_REALSIZECONTROL | SS_NOTIFY, 0};
}

}  // namespace

void AddParts(HWND window, const Dpi& dpi, HFONT font, std::span<const DialogPart> parts) {
  AddRows(window, dpi, font, parts, 1, 0);
}

void AddRows(HWND window, const Dpi& dpi, HFONT font, std::span<const DialogPart> line, int count,
             int step) {
  for (int row = 0; row < count; ++row) {
    for (const DialogPart& part : line) {
      const PartStyle style = StyleOf(part.kind);
      const INT_PTR id = part.id == kNoId ? kNoId : part.id + row;
      const HWND child = CreateWindowExW(
          style.extended_style, style.class_name, part.text, style.style, dpi.Pixels(part.left),
          dpi.Pixels(part.top + row * step), dpi.Pixels(part.width), dpi.Pixels(part.height),
          window, reinterpret_cast<HMENU>(id), GetModuleHandleW(nullptr), nullptr);
      SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    }
  }
}

}  // namespace tolvane::platform::windows
