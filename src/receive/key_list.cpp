#include "receive/key_list.h"

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
