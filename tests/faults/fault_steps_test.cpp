// Each operation of each scenario fails once, alone.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "tests/faults/trial.h"

namespace tolvane::faults {
namespace {

class FaultSteps : public testing::TestWithParam<Scenario> {};

void PrintCounts(const Scenario& scenario, const FaultPlan& plan) {
  std::array<int, kSubjects.size()> counts{};
  for (const auto& [subject, call] : plan.Steps()) ++counts[static_cast<std::size_t>(subject)];
  std::printf("%-26s %5zu steps", scenario.name, plan.Steps().size());
  for (std::size_t i = 0; i < counts.size(); ++i) {
    std::printf("  %s %d", kSubjects[i], counts[i]);
  }
  std::printf("\n");
}

TEST_P(FaultSteps, Alone) {
  const Trial trial(GetParam());
  FaultPlan plan;
  EXPECT_EQ(trial.Play(plan, {}), Complaints{});
  const std::size_t steps = plan.Steps().size();
  PrintCounts(GetParam(), plan);
  for (std::size_t step = 0; step < steps; ++step) {
    EXPECT_EQ(trial.Play(plan, {step}), Complaints{}) << plan.Failed();
  }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultSteps, testing::ValuesIn(Scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
}  // namespace tolvane::faults
