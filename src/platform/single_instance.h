#pragma once

namespace tolvane::platform {

class SingleInstance {
 public:
  virtual ~SingleInstance() = default;
  /// True when another process of this program was running as this one started; the answer never
  /// changes afterwards.
  [[nodiscard]] virtual bool PrevInstance() = 0;
};

}  // namespace tolvane::platform
