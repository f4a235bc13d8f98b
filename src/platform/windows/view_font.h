#pragma once

#include "platform/windows/win32.h"

namespace tolvane::platform::windows {

// The one font of the page, on both of its faces.
inline constexpr wchar_t kViewFontName[] = L"ＭＳ ゴシック";
inline constexpr LONG kViewFontPoints = 9;
inline constexpr BYTE kViewFontCharset = SHIFTJIS_CHARSET;

}  // namespace tolvane::platform::windows
