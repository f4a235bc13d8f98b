#include "platform/windows/dialog_font.h"

namespace tolvane::platform::windows {

FontHandle DialogFont(int percent) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, percent, 100);
  return FontHandle(CreateFontIndirectW(&metrics.lfMessageFont));
}

}  // namespace tolvane::platform::windows
