#pragma once

#include <cstdint>
#include <functional>

namespace tolvane::platform {

/// A periodic timer of the user-interface thread. Ticks arrive only through the event gate.
class Timer {
 public:
  virtual ~Timer() = default;

  [[nodiscard]] virtual bool Enabled() const = 0;
  /// Enabling starts a whole new period; a disabled timer delivers no tick, not even one that was
  /// already due. A system that has no timer to give leaves it disabled, and can be asked again.
  virtual void Enabled(bool enabled) = 0;

  /// Milliseconds between two ticks, fixed when the timer is made.
  [[nodiscard]] virtual std::int32_t Interval() const = 0;

  /// What a tick calls. Set by the owner while the timer is off.
  virtual void OnTick(std::function<void()> handler) = 0;
};

}  // namespace tolvane::platform
