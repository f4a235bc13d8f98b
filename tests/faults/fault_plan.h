#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/file_steps.h"

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

/// How the steps of replacing a file go that fail; other operations have only one way.
enum class DiskFault : std::uint8_t {
  kFails,
  kIsBusy,     // another program has the file, and lets go of it
  kStaysBusy,  // it does not, whatever is tried from then on
};

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
  void Begin(Numbers failing, DiskFault disk_fault = DiskFault::kFails) {
    failing_ = std::move(failing);
    disk_fault_ = disk_fault;
    stays_busy_ = false;
    steps_.clear();
    counting_ = numbering_ = true;
  }
  /// From now on everything succeeds.
  void End() { counting_ = false; }
  /// Without numbers everything succeeds too: the bulk of the reads that fill a channel.
  void Number(bool numbering) { numbering_ = numbering; }

  /// Asked once by each operation, ahead of what it does.
  [[nodiscard]] bool Fails(Subject subject, std::string_view call);
  /// The same for a step of replacing a file.
  [[nodiscard]] platform::FileStep NextDiskStep();

  [[nodiscard]] const std::vector<Step>& Steps() const { return steps_; }
  [[nodiscard]] bool HasFailed(std::string_view call) const;
  /// Whether files were busy for a moment, if anything: nothing may be missing then.
  [[nodiscard]] bool OnlyWasBusy() const;
  /// The steps that failed, such as "12 files CreateTextFile, 14 timer Enabled".
  [[nodiscard]] std::string Failed() const;

 private:
  Numbers failing_;
  DiskFault disk_fault_ = DiskFault::kFails;
  bool stays_busy_ = false;
  std::vector<Step> steps_;
  bool counting_ = false;
  bool numbering_ = false;
};

}  // namespace tolvane::faults
