#include "platform/windows/rich_text/page_control.h"

#include <algorithm>

#include "platform/windows/rich_text/view_look.h"
#include "platform/windows/system/system_libraries.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {
namespace {

constexpr LONG kTwipsPerPoint = 20;
// Characters; a full page has some 200,000.
constexpr LPARAM kLargestText = 0x7FFFFFFE;

void SetDefaultFormat(HWND page_control) {
  CHARFORMAT2W format{};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_CHARSET | CFM_COLOR | CFM_BACKCOLOR | CFM_BOLD;
  format.dwEffects = CFE_AUTOBACKCOLOR;
  format.yHeight = kViewFontPoints * kTwipsPerPoint;
  format.crTextColor = kPageText;
  format.bCharSet = kViewFontCharset;
  std::ranges::copy(kViewFontName, format.szFaceName);
  const auto address = reinterpret_cast<LPARAM>(&format);
  SendMessageW(page_control, EM_SETCHARFORMAT, SCF_DEFAULT, address);
  SendMessageW(page_control, EM_SETCHARFORMAT, SCF_ALL, address);
}

POINTL PlaceOf(HWND page_control, LPARAM character) {
  POINTL place{0, 0};
  SendMessageW(page_control, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), character);
  return place;
}

int FontHeight(Zoom zoom) {
  const int height = Dpi().Pixels(MulDiv(kViewFontPoints, 96, 72));
  return zoom.part > 0 && zoom.whole > 0 ? MulDiv(height, zoom.part, zoom.whole) : height;
}

}  // namespace

HWND CreatePageControl(HWND parent, int control, bool visible) {
  // Stays until the process ends: the control's class and its objects live in it.
  LoadLibraryExW(Wide(SystemLibrary(u"msftedit.dll")), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  const DWORD style = (visible ? WS_VISIBLE : 0) | WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP |
                      WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL |
                      ES_WANTRETURN | ES_NOHIDESEL;
  const HWND window = CreateWindowExW(
      WS_EX_CLIENTEDGE, MSFTEDIT_CLASS, L"", style, 0, 0, 0, 0, parent,
      reinterpret_cast<HMENU>(static_cast<INT_PTR>(control)), GetModuleHandleW(nullptr), nullptr);
  if (window == nullptr) return nullptr;
  SendMessageW(window, EM_EXLIMITTEXT, 0, kLargestText);
  // One font for everything: no other one for Latin letters, none by the keyboard's language.
  SendMessageW(window, EM_SETLANGOPTIONS, 0,
               SendMessageW(window, EM_GETLANGOPTIONS, 0, 0) &
                   ~static_cast<LRESULT>(IMF_AUTOFONT | IMF_DUALFONT));
  // No word wrap: formatted for an endlessly wide device.
  SendMessageW(window, EM_SETTARGETDEVICE, 0, 1);
  SendMessageW(window, EM_SETBKGNDCOLOR, FALSE, kPageGround);
  SetDefaultFormat(window);
  return window;
}

void SetPlainText(HWND page_control, StringView text) {
  SetWindowTextW(page_control, Wide(String(text)));
  SetDefaultFormat(page_control);
  SendMessageW(page_control, EM_EMPTYUNDOBUFFER, 0, 0);
}

Zoom ZoomOf(HWND page_control) {
  Zoom zoom;
  SendMessageW(page_control, EM_GETZOOM, reinterpret_cast<WPARAM>(&zoom.part),
               reinterpret_cast<LPARAM>(&zoom.whole));
  return zoom;
}

PageLook LookOf(HWND page_control) {
  SetPlainText(page_control, u"\r");
  const POINTL first = PlaceOf(page_control, 0);
  const POINTL second = PlaceOf(page_control, 1);
  SetPlainText(page_control, u"");
  return {.origin = {first.x, first.y},
          .line_height = std::max<int>(second.y - first.y, 1),
          .font_height = std::max(FontHeight(ZoomOf(page_control)), 1)};
}

std::optional<PageLook> LookBeside(HWND page_control, Zoom zoom) {
  const HWND other = CreatePageControl(GetParent(page_control), 0, false);
  if (other == nullptr) return std::nullopt;
  SendMessageW(other, EM_SETZOOM, static_cast<WPARAM>(zoom.part), zoom.whole);
  const PageLook look = LookOf(other);
  DestroyWindow(other);
  return look;
}

}  // namespace tolvane::platform::windows
