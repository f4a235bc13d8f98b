#include "view/message_marker.h"

#include <algorithm>
#include <limits>

namespace tolvane {

MarkersOf::MarkersOf(std::int32_t id, const ELM327_Info& device) {
  for (std::int16_t m = 0; m <= std::min(device.t_MsgMarker_MAX, kSettingRows - 1); ++m) {
    if (device.t_MsgMarker_ON(m) == 1 && device.t_MsgMarkerID(m) == id) markers_[count_++] = m;
  }
}

std::int32_t MarkerLength(std::int32_t start_byte, std::int32_t end_byte) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int64_t length = (std::int64_t{end_byte} - start_byte) * 3 + 2;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(length, Limits::min(), Limits::max()));
}

}  // namespace tolvane
