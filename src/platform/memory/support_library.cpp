#include "platform/memory/support_library.h"

#include <algorithm>

namespace tolvane::platform::memory {

std::int32_t SupportLibrary::ColorAttenuation(std::int32_t colour, std::int32_t remaining,
                                              std::int32_t total) {
  if (remaining <= 0) return 0;
  if (total <= 0) return colour;
  const std::int64_t part = std::min(remaining, total);
  std::int32_t faded = 0;
  for (const int shift : {0, 8, 16}) {
    const std::int64_t channel = (colour >> shift) & 0xFF;
    faded |= static_cast<std::int32_t>(channel * part / total) << shift;
  }
  return faded;
}

}  // namespace tolvane::platform::memory
