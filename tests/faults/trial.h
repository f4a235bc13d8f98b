#pragma once

#include "tests/faults/scenarios.h"

namespace tolvane::faults {

/// One scenario in which the steps of these numbers fail, and what the user then does: a run with a
/// log, closing, the next start with another run, closing.
class Trial {
 public:
  explicit Trial(const Scenario& scenario);

  /// What is wrong. `plan` has the steps of the scenario then.
  [[nodiscard]] Complaints Play(FaultPlan& plan, FaultPlan::Numbers failing,
                                DiskFault disk_fault = DiskFault::kFails) const;

 private:
  /// What a closing keeps for the next start: one thing of each of its two files.
  struct Kept {
    String page;
    String comment;
  };
  [[nodiscard]] static Kept KeptBy(const Machine& machine);
  void BeginScenario(Machine& machine, FaultPlan& plan, FaultPlan::Numbers failing,
                     DiskFault disk_fault) const;
  /// `is_sure`: no step failed when `last` was written.
  [[nodiscard]] Complaints JudgeNextStart(const Machine& machine, const Kept& last,
                                          bool is_sure) const;

  const Scenario& scenario_;
  Disk disk_;  // as an earlier session left it
  Kept kept_;  // by that session
  Complaints of_earlier_session_;
};

}  // namespace tolvane::faults
