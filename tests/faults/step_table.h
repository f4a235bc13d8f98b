#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "tests/faults/fault_plan.h"
#include "tests/faults/scenarios.h"

namespace tolvane::faults {

/// A scenario's row in the table of docs/soak.md: the steps of each subject, and of all.
inline std::string StepRow(const Scenario& scenario, const FaultPlan& plan) {
  std::array<int, kSubjects.size()> counts{};
  for (const auto& [subject, call] : plan.Steps()) ++counts[static_cast<std::size_t>(subject)];
  std::string row = std::string("| ") + scenario.name + " |";
  for (const int count : counts) row += ' ' + std::to_string(count) + " |";
  return row + ' ' + std::to_string(plan.Steps().size()) + " |";
}

}  // namespace tolvane::faults
