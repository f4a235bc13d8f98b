#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/string.h"

namespace tolvane {

/// What there is for each `t_bitRate`, in the order of its numbers; some of it may be missing.
template <typename T>
using ByBitRate = std::array<std::optional<T>, 9>;

/// The one of `t_bitRate`; nothing for a number outside 0 to 8.
template <typename T>
[[nodiscard]] std::optional<T> OfBitRate(std::int32_t t_bitRate, const ByBitRate<T>& all) {
  if (t_bitRate < 0 || t_bitRate >= static_cast<std::int32_t>(all.size())) return std::nullopt;
  return all[static_cast<std::size_t>(t_bitRate)];
}

/// What the window and the logs say of a rate.
[[nodiscard]] inline std::optional<StringView> BitRateText(std::int32_t t_bitRate) {
  return OfBitRate<StringView>(
      t_bitRate, {u"1M bps", u"800k bps", u"500k bps", u"250k bps", u"100k bps", u"50k bps",
                  u"20k bps", u"10k bps", u"125k bps"});
}

}  // namespace tolvane
