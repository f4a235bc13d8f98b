// Two operations of each scenario fail. The second one is numbered in the course that things take
// behind the first.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "tests/faults/step_table.h"
#include "tests/faults/trial.h"

namespace tolvane::faults {
namespace {

class FaultPairs : public testing::TestWithParam<Scenario> {};

/// The steps that fail behind `first`.
FaultPlan::Numbers SecondSteps(const std::vector<FaultPlan::Step>& steps, std::size_t first,
                               Pairs pairs) {
  FaultPlan::Numbers seconds;
  std::array<bool, kSubjects.size()> known{};
  for (std::size_t second = first + 1; second < steps.size(); ++second) {
    bool& is_known = known[static_cast<std::size_t>(steps[second].subject)];
    if (pairs == Pairs::kAll || second == first + 1 || !is_known) seconds.push_back(second);
    is_known = true;
  }
  return seconds;
}

TEST_P(FaultPairs, Together) {
  const Trial trial(GetParam());
  FaultPlan plan;
  ASSERT_EQ(trial.Play(plan, {}), Complaints{});
  const std::size_t steps = plan.Steps().size();
  PrintSteps(GetParam(), plan);
  std::size_t pairs = 0;
  for (std::size_t first = 0; first < steps; ++first) {
    ASSERT_EQ(trial.Play(plan, {first}), Complaints{}) << plan.Failed();
    for (const std::size_t second : SecondSteps(plan.Steps(), first, GetParam().pairs)) {
      ASSERT_EQ(trial.Play(plan, {first, second}), Complaints{}) << plan.Failed();
      ++pairs;
    }
  }
  std::printf("| %s | steps %zu | pairs %zu |\n", GetParam().name, steps, pairs);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultPairs, testing::ValuesIn(Scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
}  // namespace tolvane::faults
