#include "platform/windows/dialogs/dialog_part.h"

#include <string>

#include "platform/windows/dialogs/pressable_picture.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/accessible_names.h"
#include "run/number_text.h"

namespace tolvane::platform::windows {
namespace {

constexpr int kAboveText = 2;  // in a box, and as much below; units of 96 dpi

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
  return {WC_STATICW, kAlone | WS_TABSTOP | SS_ICON | SS_REALSIZECONTROL | SS_NOTIFY, 0};
}

/// An edit control writes at its top: it is made as high as its text and stands in the
/// middle of its line, where a label beside it has its own text.
void FitToText(HWND edit, const Dpi& dpi, HFONT font, bool has_edge) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ font_before = SelectObject(screen, font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen, &metrics);
  SelectObject(screen, font_before);
  ReleaseDC(nullptr, screen);
  const int around = has_edge ? 2 * (GetSystemMetrics(SM_CYEDGE) + dpi.Pixels(kAboveText)) : 0;
  const int height = metrics.tmHeight + around;
  RECT place{};
  GetWindowRect(edit, &place);
  MapWindowPoints(nullptr, GetParent(edit), reinterpret_cast<POINT*>(&place), 2);
  MoveWindow(edit, place.left, (place.top + place.bottom - height) / 2, place.right - place.left,
             height, FALSE);
}

/// `part` as it stands in the row `row` below its own line.
HWND AddPart(HWND window, const Dpi& dpi, HFONT font, const DialogPart& part, int row, int step) {
  const PartStyle style = StyleOf(part.kind);
  const INT_PTR control = part.control == kNoId ? kNoId : part.control + row;
  const HWND child = CreateWindowExW(
      style.extended_style, style.class_name, part.text, style.style, dpi.Pixels(part.left),
      dpi.Pixels(part.top + row * step), dpi.Pixels(part.width), dpi.Pixels(part.height), window,
      reinterpret_cast<HMENU>(control), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  if (lstrcmpW(style.class_name, WC_EDITW) == 0) {
    FitToText(child, dpi, font, style.extended_style == WS_EX_CLIENTEDGE);
  }
  if (part.kind == PartKind::kPicture) MakePressable(child);
  return child;
}

}  // namespace

void AddParts(HWND window, const Dpi& dpi, HFONT font, std::span<const DialogPart> parts) {
  const AccessibleNames names;
  for (const DialogPart& part : parts) {
    const HWND child = AddPart(window, dpi, font, part, 0, 0);
    if (part.name != nullptr) names.Name(child, part.name);
    if (part.kind == PartKind::kPicture) names.PushButton(child);
  }
}

void AddRows(HWND window, const Dpi& dpi, HFONT font, std::span<const DialogPart> line, int count,
             int step) {
  const AccessibleNames names;
  for (int row = 0; row < count; ++row) {
    const std::wstring number = Wide(String(DecimalText(std::int64_t{row} + 1)));
    for (const DialogPart& part : line) {
      const HWND child = AddPart(window, dpi, font, part, row, step);
      if (part.name != nullptr) names.Name(child, (number + part.name).c_str());
    }
  }
}

}  // namespace tolvane::platform::windows
