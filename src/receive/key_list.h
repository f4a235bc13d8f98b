#pragma once

#include <cstdint>
#include <optional>

#include "receive/can_readdb29.h"

namespace tolvane {

/// The position that a search from the front would stop at: the first one at or below the counter
/// whose ID is `id` and whose stored flag is `flag`. So the blank behind the last key, ID 0 and
/// flag 0, is found like a key.
///
/// Since the keys are sorted this halves its way to the first key that is not below the wanted one.
/// When the table is full there is no blank: the counter's position lies outside the arrays.
[[nodiscard]] inline std::optional<std::int16_t> Find_CAN29_Slot(const CAN_ReadDB29& frames,
                                                                 std::int32_t id,
                                                                 std::uint8_t flag) {
  std::int32_t first = 0;
  for (std::int32_t count = frames.CAN29_Received_ID_Counter; count > 0;) {
    const std::int32_t half = count / 2;
    const auto middle = static_cast<std::int16_t>(first + half);
    const std::int32_t middle_id = frames.CAN29_Received_ID(middle);
    const bool below =
        (middle_id < id) | ((middle_id == id) & (frames.CAN29_ExtendFlag(middle) < flag));
    first = below ? middle + 1 : first;
    count = below ? count - half - 1 : half;
  }
  const auto matches = [&](std::int32_t p) {
    const auto position = static_cast<std::int16_t>(p);
    return p <= CAN_ReadDB29::kArayy_MAX && frames.CAN29_Received_ID(position) == id &&
           frames.CAN29_ExtendFlag(position) == flag;
  };
  if (matches(first)) return static_cast<std::int16_t>(first);
  if (matches(frames.CAN29_Received_ID_Counter)) {
    return static_cast<std::int16_t>(frames.CAN29_Received_ID_Counter);
  }
  return std::nullopt;
}

/// Inserts a key before its equals and returns its position; its row is the next unused one. A full
/// table is left alone and gives 0, the position of the lowest key.
std::int16_t Alloc_CAN29_Slot(CAN_ReadDB29& frames, std::int32_t id, std::uint8_t ext);

}  // namespace tolvane
