#pragma once

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// Layouts are written in units of 96 dpi. The program is aware of the system's one resolution; a
/// window on a screen of another one is scaled by the system.
///
/// A layout whose texts are larger or smaller than the screen's resolution makes them is drawn at
/// another one.
class Dpi {
 public:
  Dpi() {
    const HDC screen = GetDC(nullptr);
    dpi_ = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
  }
  explicit Dpi(int dpi) : dpi_(dpi) {}

  [[nodiscard]] int Value() const { return dpi_; }

  [[nodiscard]] int Pixels(int units) const { return MulDiv(units, dpi_, 96); }

 private:
  int dpi_ = 96;
};

}  // namespace tolvane::platform::windows
