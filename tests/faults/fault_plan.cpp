#include "tests/faults/fault_plan.h"

#include <algorithm>

namespace tolvane::faults {
namespace {

const char* NameOf(DiskFault disk_fault) {
  switch (disk_fault) {
    case DiskFault::kFails:
      return "";
    case DiskFault::kIsBusy:
      return " (busy)";
    case DiskFault::kStaysBusy:
      return " (busy from then on)";
  }
  return nullptr;
}

}  // namespace

bool FaultPlan::Fails(Subject subject, std::string_view call) {
  if (!counting_ || !numbering_) return false;
  steps_.push_back({subject, call});
  return std::ranges::binary_search(failing_, steps_.size() - 1);
}

platform::FileStep FaultPlan::NextDiskStep() {
  using platform::FileStep;
  const bool fails = Fails(Subject::kDisk, "step");
  if (disk_fault_ == DiskFault::kFails) return fails ? FileStep::kFailed : FileStep::kDone;
  stays_busy_ = counting_ && (stays_busy_ || (fails && disk_fault_ == DiskFault::kStaysBusy));
  return fails || stays_busy_ ? FileStep::kBusy : FileStep::kDone;
}

bool FaultPlan::HasFailed(std::string_view call) const {
  return std::ranges::any_of(failing_, [&](std::size_t number) {
    return number < steps_.size() && steps_[number].call == call;
  });
}

bool FaultPlan::OnlyWasBusy() const {
  return disk_fault_ == DiskFault::kIsBusy &&
         std::ranges::all_of(failing_, [&](std::size_t number) {
           return number >= steps_.size() || steps_[number].subject == Subject::kDisk;
         });
}

std::string FaultPlan::Failed() const {
  std::string text;
  for (const std::size_t number : failing_) {
    if (number >= steps_.size()) continue;
    const auto& [subject, call] = steps_[number];
    text += (text.empty() ? "" : ", ") + std::to_string(number) + ' ' +
            kSubjects[static_cast<std::size_t>(subject)] + ' ' + std::string(call);
  }
  return (text.empty() ? "nothing" : text) + NameOf(disk_fault_);
}

}  // namespace tolvane::faults
