#pragma once

#include <cstdint>
#include <optional>

#include "tests/soak/moments.h"

namespace tolvane::soak {

/// Looks at a process of this machine from outside, by what Linux tells of its first thread, which
/// under Wine is the program's only one.
class ProcessWatch {
 public:
  explicit ProcessWatch(std::int64_t process);
  ProcessWatch(const ProcessWatch&) = delete;
  ProcessWatch& operator=(const ProcessWatch&) = delete;
  ~ProcessWatch();

  /// What has happened since the last look; empty when the process has ended.
  [[nodiscard]] std::optional<Moment> Look();
  /// The memory that it had in use at the last look.
  [[nodiscard]] std::int64_t ResidentKb() const { return last_ ? last_->resident_kb : 0; }

 private:
  struct Told {
    std::int64_t at_us;
    std::int64_t waited_us;
    std::int64_t resident_kb;
    bool asleep;
  };
  [[nodiscard]] std::optional<Told> Ask() const;

  int times_;  // descriptors of its files below /proc
  int memory_;
  int state_;
  std::optional<Told> last_;
};

}  // namespace tolvane::soak
