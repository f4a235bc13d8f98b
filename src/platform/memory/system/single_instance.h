#pragma once

#include "platform/single_instance.h"

namespace tolvane::platform::memory {

class SingleInstance final : public platform::SingleInstance {
 public:
  [[nodiscard]] bool PrevInstance() override { return prev_instance_; }
  void PrevInstance(bool running) { prev_instance_ = running; }

 private:
  bool prev_instance_ = false;
};

}  // namespace tolvane::platform::memory
