#include "platform/windows/dialogs/pressable_picture.h"

namespace tolvane::platform::windows {
namespace {

constexpr UINT_PTR kSubclass = 1;
constexpr LPARAM kHeldBefore = 1 << 30;

void PaintFocus(HWND control) {
  const bool hidden = (SendMessageW(control, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) != 0;
  if (hidden || GetFocus() != control) return;
  RECT bounds{};
  GetClientRect(control, &bounds);
  const HDC context = GetDC(control);
  DrawFocusRect(context, &bounds);
  ReleaseDC(control, context);
}

void TellPress(HWND control) {
  const auto number = static_cast<WORD>(GetDlgCtrlID(control));
  SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(number, STN_CLICKED),
               reinterpret_cast<LPARAM>(control));
}

LRESULT CALLBACK Procedure(HWND control, UINT message, WPARAM wparam, LPARAM lparam,
                           UINT_PTR /*id*/, DWORD_PTR /*data*/) noexcept {
  switch (message) {
    case WM_GETDLGCODE:
      return DLGC_BUTTON;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_UPDATEUISTATE: {
      const LRESULT result = DefSubclassProc(control, message, wparam, lparam);
      InvalidateRect(control, nullptr, TRUE);
      return result;
    }
    case WM_PAINT: {
      const LRESULT result = DefSubclassProc(control, message, wparam, lparam);
      PaintFocus(control);
      return result;
    }
    case WM_KEYDOWN:
      if (wparam == VK_SPACE && (lparam & kHeldBefore) == 0) TellPress(control);
      return 0;
    case WM_NCDESTROY:
      RemoveWindowSubclass(control, &Procedure, kSubclass);
      break;
    default:
      break;
  }
  return DefSubclassProc(control, message, wparam, lparam);
}

}  // namespace

void MakePressable(HWND control) { SetWindowSubclass(control, &Procedure, kSubclass, 0); }

}  // namespace tolvane::platform::windows
