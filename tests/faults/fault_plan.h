#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvane::faults {

/// What a program asks its surroundings for, by subject.
enum class Subject : std::uint8_t {
  kFiles,
  kDisk,
  kAutomation,
  kClipboard,
  kAdapter,
  kTimer,
  kClock,
  kSystem
};
inline constexpr std::array<const char*, 8> kSubjects{"files",   "disk",  "automation", "clipboard",
                                                      "adapter", "timer", "clock",      "system"};

/// Numbers the operations that can fail, in the order in which the program asks for them, and tells
/// which of them do.
class FaultPlan {
 public:
  using Numbers = std::vector<std::size_t>;  // in rising order, from 0
  struct Step {
    Subject subject;
    std::string_view call;  // a literal
  };

  /// Counts from 0 on; those of `failing` fail.
  void Begin(Numbers failing) {
    failing_ = std::move(failing);
    steps_.clear();
    counting_ = numbering_ = true;
  }
  /// From now on everything succeeds.
  void End() { counting_ = false; }
  /// Without numbers everything succeeds too: the bulk of the reads that fill a channel.
  void Number(bool numbering) { numbering_ = numbering; }

  /// Asked once by each operation, ahead of what it does.
  [[nodiscard]] bool Fails(Subject subject, std::string_view call);

  [[nodiscard]] const std::vector<Step>& Steps() const { return steps_; }
  [[nodiscard]] bool HasFailed(std::string_view call) const;
  /// The steps that failed, such as "12 files CreateTextFile, 14 timer Enabled".
  [[nodiscard]] std::string Failed() const;

 private:
  Numbers failing_;
  std::vector<Step> steps_;
  bool counting_ = false;
  bool numbering_ = false;
};

}  // namespace tolvane::faults
