#pragma once

#include <array>
#include <cstddef>
#include <cstdio>

#include "tests/faults/fault_plan.h"
#include "tests/faults/scenarios.h"

namespace tolvane::faults {

/// The list of the scenarios with their steps: a row with the steps of each subject and of all.
inline void PrintSteps(const Scenario& scenario, const FaultPlan& plan) {
  std::array<int, kSubjects.size()> counts{};
  for (const auto& [subject, call] : plan.Steps()) ++counts[static_cast<std::size_t>(subject)];
  std::printf("| %s |", scenario.name);
  for (std::size_t i = 0; i < counts.size(); ++i) std::printf(" %s %d |", kSubjects[i], counts[i]);
  std::printf(" steps %zu |\n", plan.Steps().size());
}

}  // namespace tolvane::faults
