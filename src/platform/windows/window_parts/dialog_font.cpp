#include "platform/windows/window_parts/dialog_font.h"

#include <algorithm>
#include <iterator>

#include "platform/screen_place.h"

namespace tolvane::platform::windows {
namespace {

// What every layout leaves for its texts, in its units: for a character of full width, and for a
// line from its highest to its lowest point.
constexpr int kCharacterWidth = 12;
constexpr int kLineHeight = 18;
constexpr int kLayoutDpi = 96;

constexpr wchar_t kCharacters[] = L"設定保存接続";  // each of full width in any font
constexpr int kCount = static_cast<int>(std::size(kCharacters)) - 1;

FontHandle UserFont(int percent) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, percent, 100);
  return FontHandle(CreateFontIndirectW(&metrics.lfMessageFont));
}

/// The lowest resolution at which a layout leaves room for texts in `font`.
int DpiFor(HFONT font) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ font_before = SelectObject(screen, font);
  SIZE characters{};
  GetTextExtentPoint32W(screen, kCharacters, kCount, &characters);
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen, &metrics);
  SelectObject(screen, font_before);
  ReleaseDC(nullptr, screen);
  return std::max(MulDiv(characters.cx, kLayoutDpi, kCount * kCharacterWidth),
                  MulDiv(metrics.tmHeight, kLayoutDpi, kLineHeight));
}

}  // namespace

DialogLook::DialogLook(SIZE client, SIZE frame, SIZE room) {
  const int wanted = std::max(scale_.Value(), DpiFor(UserFont(percent_).Get()));
  const int fitting =
      FittingDpi(wanted, {client.cx, client.cy}, {frame.cx, frame.cy}, {room.cx, room.cy});
  percent_ = percent_ * fitting / wanted;
  scale_ = Dpi(fitting);
}

FontHandle DialogLook::Font(int percent) const { return UserFont(percent_ * percent / 100); }

}  // namespace tolvane::platform::windows
