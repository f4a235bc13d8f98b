#include "tests/faults/fault_plan.h"

#include <algorithm>

namespace tolvane::faults {

bool FaultPlan::Fails(Subject subject, std::string_view call) {
  if (!counting_ || !numbering_) return false;
  steps_.push_back({subject, call});
  return std::ranges::binary_search(failing_, steps_.size() - 1);
}

bool FaultPlan::HasFailed(std::string_view call) const {
  return std::ranges::any_of(failing_, [&](std::size_t number) {
    return number < steps_.size() && steps_[number].call == call;
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
  return text.empty() ? "nothing" : text;
}

}  // namespace tolvane::faults
