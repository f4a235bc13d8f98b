#pragma once

#include <cstdint>
#include <vector>

#include "platform/windows/system/handle.h"

namespace tolvane::platform::windows {

/// What an icon shows on white ground in a square of `size` pixels, each 0x00RRGGBB.
inline std::vector<std::uint32_t> IconPixels(HICON icon, int size) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = size;
  info.bmiHeader.biHeight = -size;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const BitmapHandle bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (!bitmap || icon == nullptr) return {};
  const MemoryDcHandle context(CreateCompatibleDC(nullptr));
  const HGDIOBJ before = SelectObject(context.Get(), bitmap.Get());
  PatBlt(context.Get(), 0, 0, size, size, WHITENESS);
  DrawIconEx(context.Get(), 0, 0, icon, size, size, 0, nullptr, DI_NORMAL);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  std::vector<std::uint32_t> pixels(first, first + static_cast<std::ptrdiff_t>(size) * size);
  SelectObject(context.Get(), before);
  // The fourth byte is no part of the colour.
  for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
  return pixels;
}

}  // namespace tolvane::platform::windows
