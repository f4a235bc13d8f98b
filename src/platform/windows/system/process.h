#pragma once

#include "platform/cursors.h"
#include "platform/single_instance.h"
#include "platform/timer_resolution.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/system/system_libraries.h"

namespace tolvane::platform::windows {

/// A named mutex of the signed-in session marks the running program.
class WindowsSingleInstance final : public SingleInstance {
 public:
  WindowsSingleInstance();
  [[nodiscard]] bool PrevInstance() override { return previous_; }

 private:
  KernelHandle mutex_;
  bool previous_;
};

class WindowsCursors final : public Cursors {
 public:
  [[nodiscard]] std::int32_t LoadHand() override;
};

class WindowsTimerResolution final : public TimerResolution {
 public:
  explicit WindowsTimerResolution(const String& path) { library_.Load(path); }

  void timeBeginPeriod(std::uint32_t period) override;
  void timeEndPeriod(std::uint32_t period) override;

 private:
  LoadedLibrary<Winmm> library_;
};

}  // namespace tolvane::platform::windows
