#include "tests/platform/windows/system/window_picture.h"

#include "platform/windows/system/file_bytes.h"
#include "platform/windows/system/file_services.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

BITMAPINFO Description(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;  // from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return info;
}

}  // namespace

WindowPicture::WindowPicture(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  width_ = client.right;
  height_ = client.bottom;
  pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));

  const HDC source = GetDC(window);
  const BitmapHandle bitmap(CreateCompatibleBitmap(source, width_, height_));
  const MemoryDcHandle copy(CreateCompatibleDC(source));
  const HGDIOBJ before = SelectObject(copy.Get(), bitmap.Get());
  BitBlt(copy.Get(), 0, 0, width_, height_, source, 0, 0, SRCCOPY);
  SelectObject(copy.Get(), before);
  BITMAPINFO info = Description(width_, height_);
  GetDIBits(source, bitmap.Get(), 0, static_cast<UINT>(height_), pixels_.data(), &info,
            DIB_RGB_COLORS);
  ReleaseDC(window, source);
  for (std::uint32_t& pixel : pixels_) pixel &= 0xFFFFFF;
}

COLORREF WindowPicture::At(int x, int y) const {
  const std::uint32_t pixel =
      pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
              static_cast<std::size_t>(x)];
  return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

bool WindowPicture::Has(const RECT& area, COLORREF colour) const {
  for (LONG y = area.top; y < area.bottom; ++y) {
    for (LONG x = area.left; x < area.right; ++x) {
      if (At(x, y) == colour) return true;
    }
  }
  return false;
}

bool WindowPicture::Save(const String& name) const {
  const String folder = ExecutableFolder() + u"\\pictures";
  CreateDirectoryW(Wide(folder), nullptr);
  const BITMAPINFO info = Description(width_, height_);
  BITMAPFILEHEADER head{};
  head.bfType = 0x4D42;  // "BM"
  head.bfOffBits = sizeof(head) + sizeof(info.bmiHeader);
  head.bfSize = head.bfOffBits + static_cast<DWORD>(pixels_.size() * sizeof(pixels_[0]));
  const FileHandle file = OpenToWrite(folder + u"\\" + name + u".bmp", CREATE_ALWAYS);
  return file && WriteAll(file, std::as_bytes(std::span(&head, 1))) &&
         WriteAll(file, std::as_bytes(std::span(&info.bmiHeader, 1))) &&
         WriteAll(file, std::as_bytes(std::span(pixels_)));
}

}  // namespace tolvane::platform::windows
