#pragma once

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

// The one font of the page and its two colours where it has none of its own, on both of its faces.
// The colours are not the system's: what is lit on the page is chosen for white, and fades to
// black.
inline constexpr wchar_t kViewFontName[] = L"ＭＳ ゴシック";
inline constexpr LONG kViewFontPoints = 9;
inline constexpr BYTE kViewFontCharset = SHIFTJIS_CHARSET;
inline constexpr COLORREF kPageText = RGB(0, 0, 0);
inline constexpr COLORREF kPageGround = RGB(255, 255, 255);

}  // namespace tolvane::platform::windows
