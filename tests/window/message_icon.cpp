#include "tests/window/message_icon.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace tolvane::window {
namespace {

HWND IconControl(HWND box) {
  for (HWND child = nullptr; (child = FindWindowExW(box, child, L"Static", nullptr)) != nullptr;) {
    if ((GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) return child;
  }
  return nullptr;
}

/// The pixels that `draw` leaves in a picture of this size, which begins black.
std::vector<std::uint32_t> Drawn(SIZE size, const std::function<void(HDC)>& draw) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = size.cx;
  info.bmiHeader.biHeight = -size.cy;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap == nullptr) return {};
  const HDC memory = CreateCompatibleDC(nullptr);
  const HGDIOBJ previous = SelectObject(memory, bitmap);
  draw(memory);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  std::vector<std::uint32_t> pixels(
      first, first + static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy));
  SelectObject(memory, previous);
  DeleteDC(memory);
  DeleteObject(bitmap);
  // The fourth byte is no part of the colour.
  for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
  return pixels;
}

}  // namespace

bool ShowsIcon(HWND box, const wchar_t* system_icon) {
  const HWND control = IconControl(box);
  RECT place{};
  if (control == nullptr || !GetWindowRect(control, &place)) return false;
  const SIZE size{place.right - place.left, place.bottom - place.top};
  const auto shown = Drawn(size, [&](HDC dc) {
    const HDC screen = GetDC(nullptr);
    BitBlt(dc, 0, 0, size.cx, size.cy, screen, place.left, place.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
  });
  if (shown.empty()) return false;
  const std::uint32_t corner = shown.front();
  const auto expected = Drawn(size, [&](HDC dc) {
    const HBRUSH brush =
        CreateSolidBrush(RGB(corner >> 16 & 0xFF, corner >> 8 & 0xFF, corner & 0xFF));
    const RECT all{0, 0, size.cx, size.cy};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    DrawIconEx(dc, 0, 0, LoadIconW(nullptr, system_icon), size.cx, size.cy, 0, nullptr, DI_NORMAL);
  });
  return shown == expected;
}

}  // namespace tolvane::window
