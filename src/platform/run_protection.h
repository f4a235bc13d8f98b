#pragma once

namespace tolvane::platform {

/// What the computer must leave alone while a run is on: neither it nor its screen goes to
/// sleep, it does not slow the program down, and who ends the session is told why that is refused.
class RunProtection {
 public:
  virtual ~RunProtection() = default;

  /// Never twice without an End between.
  virtual void Begin() = 0;
  virtual void End() = 0;
};

}  // namespace tolvane::platform
