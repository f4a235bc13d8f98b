#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/string.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// What a visible window shows in its client area, read back pixel by pixel.
class WindowPicture {
 public:
  explicit WindowPicture(HWND window);

  [[nodiscard]] int Width() const { return width_; }
  [[nodiscard]] int Height() const { return height_; }
  /// 0x00BBGGRR.
  [[nodiscard]] COLORREF At(int x, int y) const;
  /// Whether any pixel of the area has the colour.
  [[nodiscard]] bool Has(const RECT& area, COLORREF colour) const;

  [[nodiscard]] bool operator==(const WindowPicture&) const = default;

  /// Saves it for inspection as pictures/`name`.bmp next to the test program. False when that
  /// fails.
  [[nodiscard]] bool Save(const String& name) const;

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint32_t> pixels_;  // 0x00RRGGBB, from the top
};

}  // namespace tolvane::platform::windows
