#pragma once

#include <cstdint>

#include "platform/run_protection.h"

namespace tolvane::platform::memory {

/// Counts.
class RunProtection final : public platform::RunProtection {
 public:
  void Begin() override { ++begins_; }
  void End() override { ++ends_; }

  [[nodiscard]] std::int32_t Begins() const { return begins_; }
  [[nodiscard]] std::int32_t Ends() const { return ends_; }

 private:
  std::int32_t begins_ = 0;
  std::int32_t ends_ = 0;
};

}  // namespace tolvane::platform::memory
