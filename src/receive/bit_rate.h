#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/string.h"

namespace tolvane {

/// What the window and the logs say of a `t_bitRate`; nothing for a number outside 0 to 8.
[[nodiscard]] inline std::optional<StringView> BitRateText(std::int32_t t_bitRate) {
  constexpr std::array<StringView, 9> kTexts = {u"1M bps",   u"800k bps", u"500k bps",
                                                u"250k bps", u"100k bps", u"50k bps",
                                                u"20k bps",  u"10k bps",  u"125k bps"};
  if (t_bitRate < 0 || t_bitRate >= static_cast<std::int32_t>(kTexts.size())) return std::nullopt;
  return kTexts[static_cast<std::size_t>(t_bitRate)];
}

}  // namespace tolvane
