#pragma once

#include "platform/cursors.h"

namespace tolvane::platform::memory {

class Cursors final : public platform::Cursors {
 public:
  static constexpr std::int32_t kHand = 32649;
  [[nodiscard]] std::int32_t LoadHand() override { return kHand; }
};

}  // namespace tolvane::platform::memory
