#pragma once

#include <cstdint>
#include <span>

#include "platform/string.h"
#include "run/number_text.h"

namespace tolvane {

/// What the log gets of one frame, apart from its identifier. `now_time` is the message time in ms,
/// `can_DLC` the length that the adapter reported, unchecked; the data always has eight bytes, of
/// which the first `can_DLC` are used.
struct LogRecord {
  double now_time;
  std::int32_t can_DLC;
  std::span<const std::uint8_t, 8> can_DATA;
};

/// An identifier in a log of 29-bit mode. FFFFFFF alone is written with seven digits.
template <typename Character = char16_t>
[[nodiscard]] BasicShortText<Character> LogID29Text(std::int32_t can_ID) {
  return can_ID == 0xFFFFFFF ? HexText<Character>(can_ID) : HexID29Text<Character>(can_ID);
}

}  // namespace tolvane
