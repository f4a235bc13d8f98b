#include "receive/tables/key_list.h"

#include <utility>

namespace tolvane {
namespace {

struct Key {
  std::int32_t id;
  std::uint8_t ext;
  std::int32_t row;
};

Key At(const CAN_ReadDB29& frames, std::int16_t p) {
  return {frames.CAN29_Received_ID(p), frames.CAN29_ExtendFlag(p), frames.CAN29_ArrayNo(p)};
}

void Put(CAN_ReadDB29& frames, std::int16_t p, const Key& key) {
  frames.CAN29_Received_ID(p, key.id);
  frames.CAN29_ExtendFlag(p, key.ext);
  frames.CAN29_ArrayNo(p, key.row);
}

bool IsBelow(const Key& left, const Key& right) {
  return left.id < right.id || (left.id == right.id && left.ext < right.ext);
}

}  // namespace

std::optional<std::int16_t> Find_CAN29_Slot(const CAN_ReadDB29& frames, std::int32_t id,
                                            std::uint8_t flag) {
  const std::int32_t counter = frames.CAN29_Received_ID_Counter;
  std::int32_t first = 0;
  for (std::int32_t count = counter; count > 0;) {
    const std::int32_t half = count / 2;
    const bool below = IsBelow(At(frames, static_cast<std::int16_t>(first + half)), {id, flag, 0});
    if (below) first += half + 1;
    count = below ? count - half - 1 : half;
  }
  for (const std::int32_t p : {first, counter}) {
    if (p > CAN_ReadDB29::kArayy_MAX) continue;
    const Key key = At(frames, static_cast<std::int16_t>(p));
    if (key.id == id && key.ext == flag) return static_cast<std::int16_t>(p);
  }
  return std::nullopt;
}

std::int16_t Alloc_CAN29_Slot(CAN_ReadDB29& frames, std::int32_t id, std::uint8_t ext) {
  if (frames.CAN29_Received_ID_Counter > frames.CAN29_Received_ID_Counter_MAX) return 0;
  const Key key = {id, ext, frames.CAN29_Received_ID_Counter};
  const auto counter = static_cast<std::int16_t>(frames.CAN29_Received_ID_Counter);
  std::int16_t result = 0;
  bool inserted = false;
  Key carried = {};
  for (std::int16_t p = 0; p <= counter; ++p) {
    const Key here = At(frames, p);
    if (inserted) {
      Put(frames, p, std::exchange(carried, here));
    } else if (!IsBelow(here, key)) {
      carried = here;
      Put(frames, p, key);
      result = p;
      inserted = true;
    }
  }
  if (!inserted) {  // above all keys, and above the blank
    Put(frames, counter, key);
    result = counter;
  }
  ++frames.CAN29_Received_ID_Counter;
  return result;
}

}  // namespace tolvane
