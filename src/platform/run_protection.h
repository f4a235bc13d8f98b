#pragma once

namespace tolvane::platform {

/// Protects a run from what a computer does by itself: neither it nor its screen goes to sleep, it
/// does not slow the program down, and a user who ends the session is told why that is refused.
class RunProtection {
 public:
  virtual ~RunProtection() = default;

  /// Never twice without an End between.
  virtual void Begin() = 0;
  virtual void End() = 0;
};

}  // namespace tolvane::platform
