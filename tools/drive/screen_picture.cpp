#include "tools/drive/screen_picture.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "tools/drive/driven_window.h"

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

/// Three bytes a pixel, blue first.
struct ScreenCopy {
  BITMAPINFOHEADER header;
  std::vector<char> rows;
  std::size_t row_bytes;
};

std::optional<ScreenCopy> CopyScreen(HWND window) {
  RECT place{};
  if (!GetWindowRect(window, &place)) return std::nullopt;
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  if (width <= 0 || height <= 0) return std::nullopt;

  const std::unique_ptr<HDC, ScreenDcCloser> screen(GetDC(nullptr));
  const std::unique_ptr<HDC, DcCloser> memory(CreateCompatibleDC(screen.get()));
  const std::unique_ptr<HGDIOBJ, ObjectCloser> bitmap(
      CreateCompatibleBitmap(screen.get(), width, height));
  if (!memory || !bitmap) return std::nullopt;
  const HGDIOBJ previous = SelectObject(memory.get(), bitmap.get());
  const BOOL copied = BitBlt(memory.get(), 0, 0, width, height, screen.get(), place.left, place.top,
                             SRCCOPY | CAPTUREBLT);
  SelectObject(memory.get(), previous);
  if (!copied) return std::nullopt;

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
    return std::nullopt;
  }
  return ScreenCopy{header, std::move(rows), row_bytes};
}

BOOL CALLBACK NoteUnpainted(HWND child, LPARAM found) {
  if (IsWindowVisible(child) && GetUpdateRect(child, nullptr, FALSE)) {
    *reinterpret_cast<bool*>(found) = true;
  }
  return TRUE;
}

bool HasUnpaintedPart(HWND window) {
  bool unpainted = GetUpdateRect(window, nullptr, FALSE) != FALSE;
  EnumChildWindows(window, NoteUnpainted, reinterpret_cast<LPARAM>(&unpainted));
  return unpainted;
}

}  // namespace

bool AwaitPainted(HWND window) {
  constexpr DWORD kStill = 100;  // ms
  std::vector<char> before;
  return WaitUntil(
      [&] {
        if (HasUnpaintedPart(window)) return false;
        Sleep(kStill);
        std::optional<ScreenCopy> copy = CopyScreen(window);
        if (!copy) return false;
        const bool still = copy->rows == before;
        before = std::move(copy->rows);
        return still;
      },
      std::chrono::seconds(2));
}

bool SaveScreenPicture(HWND window, const std::filesystem::path& file) {
  const std::optional<ScreenCopy> copy = CopyScreen(window);
  return copy && WriteBitmap(copy->header, copy->rows, file);
}

std::size_t CountScreenPixels(HWND window, COLORREF colour) {
  const std::optional<ScreenCopy> copy = CopyScreen(window);
  if (!copy) return 0;
  const std::array<char, 3> wanted{static_cast<char>(GetBValue(colour)),
                                   static_cast<char>(GetGValue(colour)),
                                   static_cast<char>(GetRValue(colour))};
  std::size_t count = 0;
  for (LONG y = 0; y < copy->header.biHeight; ++y) {
    const char* row = copy->rows.data() + static_cast<std::size_t>(y) * copy->row_bytes;
    for (LONG x = 0; x < copy->header.biWidth; ++x) {
      if (std::equal(wanted.begin(), wanted.end(), row + 3 * x)) ++count;
    }
  }
  return count;
}

}  // namespace tolvane::window
