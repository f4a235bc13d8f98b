#pragma once

#include <cstdint>

#include "run/elm327_info.h"

namespace tolvane {

/// The numbers of the markers of one identifier, from 0, in ascending order.
class MarkersOf {
 public:
  MarkersOf(std::int32_t id, const ELM327_Info& device);

  [[nodiscard]] bool Empty() const { return count_ == 0; }
  [[nodiscard]] const std::int16_t* begin() const { return markers_; }
  [[nodiscard]] const std::int16_t* end() const { return markers_ + count_; }

 private:
  std::int16_t markers_[kSettingRows];
  std::int32_t count_ = 0;
};

/// Characters from the first digit of the first marked byte to the last digit of the last one; 0 or
/// less when the last byte comes before the first. Any two numbers are allowed, as a settings file
/// can hold anything.
[[nodiscard]] std::int32_t MarkerLength(std::int32_t start_byte, std::int32_t end_byte);

}  // namespace tolvane
