// Each operation of each scenario fails once, alone, and each step of the disk in each of its ways.
#include <gtest/gtest.h>

#include <cstdio>

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

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultSteps, testing::ValuesIn(Scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
}  // namespace tolvane::faults
