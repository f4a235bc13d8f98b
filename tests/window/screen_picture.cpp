#include "tests/window/screen_picture.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <vector>

namespace tolvane::window {
namespace {

struct DcCloser {
  using pointer = HDC;
  void operator()(HDC dc) const { DeleteDC(dc); }
};
struct ScreenDcCloser {
  using pointer = HDC;
  void operator()(HDC dc) const { ReleaseDC(nullptr, dc); }
};
struct ObjectCloser {
  using pointer = HGDIOBJ;
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};

/// `rows` are padded to four bytes, the lowest line first, as the file format has it.
bool WriteBitmap(const BITMAPINFOHEADER& header, const std::vector<char>& rows,
                 const std::filesystem::path& file) {
  BITMAPFILEHEADER head{};
  head.bfType = 0x4D42;  // "BM"
  head.bfOffBits = sizeof(head) + sizeof(header);
  head.bfSize = head.bfOffBits + static_cast<DWORD>(rows.size());
  std::ofstream stream(file, std::ios::binary);
  stream.write(reinterpret_cast<const char*>(&head), sizeof(head));
  stream.write(reinterpret_cast<const char*>(&header), sizeof(header));
  stream.write(rows.data(), static_cast<std::streamsize>(rows.size()));
  stream.close();
  return !stream.fail();
}

}  // namespace

bool SaveScreenPicture(HWND window, const std::filesystem::path& file) {
  RECT place{};
  if (!GetWindowRect(window, &place)) return false;
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  if (width <= 0 || height <= 0) return false;

  const std::unique_ptr<HDC, ScreenDcCloser> screen(GetDC(nullptr));
  const std::unique_ptr<HDC, DcCloser> memory(CreateCompatibleDC(screen.get()));
  const std::unique_ptr<HGDIOBJ, ObjectCloser> bitmap(
      CreateCompatibleBitmap(screen.get(), width, height));
  if (!memory || !bitmap) return false;
  const HGDIOBJ previous = SelectObject(memory.get(), bitmap.get());
  const BOOL copied = BitBlt(memory.get(), 0, 0, width, height, screen.get(), place.left, place.top,
                             SRCCOPY | CAPTUREBLT);
  SelectObject(memory.get(), previous);
  if (!copied) return false;

  BITMAPINFOHEADER header{};
  header.biSize = sizeof(header);
  header.biWidth = width;
  header.biHeight = height;
  header.biPlanes = 1;
  header.biBitCount = 24;
  const auto row_bytes = static_cast<std::size_t>((width * 3 + 3) / 4 * 4);
  std::vector<char> rows(row_bytes * static_cast<std::size_t>(height));
  BITMAPINFO info{};
  info.bmiHeader = header;
  if (GetDIBits(screen.get(), static_cast<HBITMAP>(bitmap.get()), 0, static_cast<UINT>(height),
                rows.data(), &info, DIB_RGB_COLORS) != height) {
    return false;
  }
  return WriteBitmap(header, rows, file);
}

}  // namespace tolvane::window
