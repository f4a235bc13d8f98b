#include "platform/colour_fade.h"

namespace tolvane::platform {

std::int32_t FadeToBlack(std::int32_t colour, std::int32_t remaining, std::int32_t total) {
  if (remaining <= 0) return 0;
  if (remaining >= total) return colour;

  std::int32_t faded = 0;
  for (int shift = 0; shift <= 16; shift += 8) {
    // 255 times a 31-bit duration needs more than 32 bits.
    const std::int64_t channel = (colour >> shift) & 0xFF;
    faded |= static_cast<std::int32_t>(channel * remaining / total) << shift;
  }
  return faded;
}

}  // namespace tolvane::platform
