#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "receive/tables/can_readdb29.h"

namespace tolvane {

/// The position that a search from the front would stop at: the first one at or below the counter
/// whose ID is `id` and whose stored flag is `flag`. So the blank behind the last key, ID 0 and
/// flag 0, is found like a key.
///
/// Since the keys are sorted this halves its way to the first key that is not below the wanted one.
/// When the table is full there is no blank: the counter's position lies outside the arrays.
[[nodiscard]] std::optional<std::int16_t> Find_CAN29_Slot(const CAN_ReadDB29& frames,
                                                          std::int32_t id, std::uint8_t flag);

/// The same search for a bus of thousands of keys, where halving costs three times as much as all
/// the rest of a frame. It remembers where it last found a key and first looks whether that is
/// still the right place, so insertions and cleared tables need not be told to it.
class KeySearch {
 public:
  [[nodiscard]] std::optional<std::int16_t> Find(const CAN_ReadDB29& frames, std::int32_t id,
                                                 std::uint8_t flag) {
    std::int16_t& hint = hints_[Place(id, flag)];
    if (IsFirstOf(frames, hint, id, flag)) return hint;
    const auto position = Find_CAN29_Slot(frames, id, flag);
    if (position) hint = *position;
    return position;
  }

 private:
  static constexpr int kPlaceBits = 14;  // four times the keys, so that few of them share a place

  static std::size_t Place(std::int32_t id, std::uint8_t flag) {
    constexpr std::uint32_t kSpread = 0x9E3779B1;  // 2^32 over the golden ratio
    return ((static_cast<std::uint32_t>(id) << 1 ^ flag) * kSpread) >> (32 - kPlaceBits);
  }
  static bool Holds(const CAN_ReadDB29& frames, std::int32_t p, std::int32_t id,
                    std::uint8_t flag) {
    const auto position = static_cast<std::int16_t>(p);
    return frames.CAN29_Received_ID(position) == id && frames.CAN29_ExtendFlag(position) == flag;
  }
  /// Of equal keys the first counts. The blank is left to the search.
  static bool IsFirstOf(const CAN_ReadDB29& frames, std::int32_t p, std::int32_t id,
                        std::uint8_t flag) {
    return p < frames.CAN29_Received_ID_Counter && Holds(frames, p, id, flag) &&
           (p == 0 || !Holds(frames, p - 1, id, flag));
  }

  std::array<std::int16_t, std::size_t{1} << kPlaceBits> hints_ = {};
};

/// Inserts a key before its equals and returns its position; its row is the next unused one. A full
/// table is left alone and gives 0, the position of the lowest key.
std::int16_t Alloc_CAN29_Slot(CAN_ReadDB29& frames, std::int32_t id, std::uint8_t ext);

}  // namespace tolvane
