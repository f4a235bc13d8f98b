#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/colour_fade.h"
#include "platform/support_library.h"

namespace tolvane::platform::memory {

/// A clock that tests move, and the fade of qxt100.dll.
class SupportLibrary final : public platform::SupportLibrary {
 public:
  [[nodiscard]] bool Load() override { return usable_; }
  [[nodiscard]] double qx_timeGetTime() override {
    ++reads_;
    if (on_read_) on_read_();
    return now_;
  }
  [[nodiscard]] std::int32_t ColorAttenuation(std::int32_t colour, std::int32_t remaining,
                                              std::int32_t total) override {
    return FadeToBlack(colour, remaining, total);
  }

  void Usable(bool usable) { usable_ = usable; }
  void Now(double milliseconds) { now_ = milliseconds; }
  void Advance(double milliseconds) { now_ += milliseconds; }
  /// Called at each reading of the clock, before the time is taken.
  void OnRead(std::function<void()> handler) { on_read_ = std::move(handler); }
  [[nodiscard]] std::int64_t Reads() const { return reads_; }

 private:
  bool usable_ = true;
  double now_ = 0.0;
  std::int64_t reads_ = 0;
  std::function<void()> on_read_;
};

}  // namespace tolvane::platform::memory
