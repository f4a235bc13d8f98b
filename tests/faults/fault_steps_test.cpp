// Each operation of each scenario fails once, alone, and each step of the disk in each of its ways.
// The longest scenarios are left to fault_pairs_test.cpp, which does the same ahead of its pairs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

#include "tests/faults/step_table.h"
#include "tests/faults/trial.h"

namespace tolvane::faults {
namespace {

class FaultSteps : public testing::TestWithParam<Scenario> {};

TEST_P(FaultSteps, Alone) {
  const Trial trial(GetParam());
  FaultPlan plan;
  EXPECT_EQ(trial.Play(plan, {}), Complaints{});
  const std::size_t steps = plan.Steps().size();
  std::printf("%s\n", StepRow(GetParam(), plan).c_str());
  for (std::size_t step = 0; step < steps; ++step) {
    EXPECT_EQ(trial.Play(plan, {step}), Complaints{}) << plan.Failed();
    if (plan.Steps()[step].subject != Subject::kDisk) continue;
    for (const DiskFault fault : {DiskFault::kIsBusy, DiskFault::kStaysBusy}) {
      EXPECT_EQ(trial.Play(plan, {step}, fault), Complaints{}) << plan.Failed();
    }
  }
}

std::vector<Scenario> ShortScenarios() {
  std::vector<Scenario> scenarios;
  std::ranges::copy_if(Scenarios(), std::back_inserter(scenarios),
                       [](const Scenario& scenario) { return scenario.pairs == Pairs::kAll; });
  return scenarios;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultSteps, testing::ValuesIn(ShortScenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
}  // namespace tolvane::faults
