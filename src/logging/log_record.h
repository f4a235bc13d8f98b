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

/// The zeros in front of an identifier in a log of 29-bit mode. The last limit is FFFFFFF itself,
/// so that one identifier is written with seven digits. A negative identifier gets all seven zeros.
[[nodiscard]] inline StringView ZerosAhead29(std::int32_t can_ID) {
  constexpr std::int32_t kLimits[] = {16, 256, 4096, 65536, 1048576, 16777216, 268435455};
  std::size_t reached = 0;
  for (const std::int32_t limit : kLimits) reached += can_ID >= limit;
  return StringView(u"0000000").substr(reached);
}

/// An identifier in a log of 29-bit mode.
[[nodiscard]] inline ShortText LogID29Text(std::int32_t can_ID) {
  ShortText text;
  text.Append(ZerosAhead29(can_ID));
  text.Append(HexText(can_ID));
  return text;
}

}  // namespace tolvane
