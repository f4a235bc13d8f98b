// Two operations of each scenario fail. The second one is numbered in the course that things take
// behind the first.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

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

bool IsOfDisk(const FaultPlan::Step& step) { return step.subject == Subject::kDisk; }

/// Plays each pair whose steps `counts` takes, and returns how many there are. Stops at the first
/// one that fails.
template <typename Counts>
std::size_t PlayPairs(const Scenario& scenario, DiskFault disk_fault, std::size_t steps,
                      Counts counts) {
  const Trial trial(scenario);
  FaultPlan plan;
  std::size_t pairs = 0;
  for (std::size_t first = 0; first < steps; ++first) {
    EXPECT_EQ(trial.Play(plan, {first}, disk_fault), Complaints{}) << plan.Failed();
    const std::vector<FaultPlan::Step> course = plan.Steps();
    for (const std::size_t second : SecondSteps(course, first, scenario.pairs)) {
      if (testing::Test::HasFailure()) return pairs;
      if (!counts(course[first], course[second])) continue;
      EXPECT_EQ(trial.Play(plan, {first, second}, disk_fault), Complaints{}) << plan.Failed();
      ++pairs;
    }
  }
  return pairs;
}

TEST_P(FaultPairs, Together) {
  FaultPlan plan;
  ASSERT_EQ(Trial(GetParam()).Play(plan, {}), Complaints{});
  const std::string row = StepRow(GetParam(), plan);
  const std::size_t pairs = PlayPairs(GetParam(), DiskFault::kFails, plan.Steps().size(),
                                      [](const auto&, const auto&) { return true; });
  std::printf("%s %zu%s |\n", row.c_str(), pairs, GetParam().pairs == Pairs::kNear ? ", near" : "");
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultPairs, testing::ValuesIn(Scenarios()),
                         [](const auto& scenario) { return scenario.param.name; });

class FaultPairsOfDisks : public FaultPairs {};

/// Where another program has a file for a moment, and something else fails too.
TEST_P(FaultPairsOfDisks, WithABusyDisk) {
  FaultPlan plan;
  ASSERT_EQ(Trial(GetParam()).Play(plan, {}), Complaints{});
  PlayPairs(
      GetParam(), DiskFault::kIsBusy, plan.Steps().size(),
      [](const auto& first, const auto& second) { return IsOfDisk(first) || IsOfDisk(second); });
}

/// The scenarios in which a file is replaced.
std::vector<Scenario> ScenariosOfDisks() {
  std::vector<Scenario> scenarios(Scenarios().begin(), Scenarios().end());
  std::erase_if(scenarios, [](const Scenario& scenario) {
    FaultPlan plan;
    static_cast<void>(Trial(scenario).Play(plan, {}));
    return std::ranges::none_of(plan.Steps(), IsOfDisk);
  });
  return scenarios;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultPairsOfDisks, testing::ValuesIn(ScenariosOfDisks()),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
}  // namespace tolvane::faults
