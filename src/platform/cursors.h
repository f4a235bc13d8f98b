#pragma once

#include <cstdint>

namespace tolvane::platform {

class Cursors {
 public:
  virtual ~Cursors() = default;
  /// The system's hand cursor as a number that only the platform can read; shared, never freed.
  /// 0 when there is none.
  [[nodiscard]] virtual std::int32_t LoadHand() = 0;
};

}  // namespace tolvane::platform
