#pragma once

#include <chrono>
#include <cstdint>

namespace tolvane::simulator {

/// What the bench takes for real time, in microseconds from any start; it never steps back.
class BenchClock {
 public:
  virtual ~BenchClock() = default;
  virtual std::int64_t NowUs() = 0;
};

class SteadyClock : public BenchClock {
 public:
  std::int64_t NowUs() override {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
  }
};

/// Advances by a fixed step each time it is read, so the results do not depend on how fast the
/// program is and are the same on every machine.
class CountedClock : public BenchClock {
 public:
  explicit CountedClock(std::int64_t step_us) : step_us_(step_us) {}
  std::int64_t NowUs() override { return now_us_ += step_us_; }

 private:
  std::int64_t step_us_;
  std::int64_t now_us_ = 0;
};

}  // namespace tolvane::simulator
