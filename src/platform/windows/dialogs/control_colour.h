#pragma once

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

// A control of a dialog keeps a colour of its own: of its text, or of a colour button's face.
// Visual styles would draw both in their own way, so the dialog draws them.

/// `colour` is 0x00BBGGRR; 0, which every control begins with, is the system's text colour.
void SetControlColour(HWND control, COLORREF colour);
[[nodiscard]] COLORREF ControlColour(HWND control);

/// WM_CTLCOLORSTATIC: the brush behind the control.
[[nodiscard]] LRESULT PaintControlText(HDC context, HWND control);

/// WM_DRAWITEM of a colour button.
void DrawColourButton(const DRAWITEMSTRUCT& item);

/// NM_CUSTOMDRAW, which only a visual style sends: draws a radio button that has a colour; leaves
/// everything else to the system.
[[nodiscard]] LRESULT DrawColouredRadio(const NMCUSTOMDRAW& draw);

}  // namespace tolvane::platform::windows
