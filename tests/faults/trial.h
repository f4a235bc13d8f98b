#pragma once

#include "tests/faults/scenarios.h"

namespace tolvane::faults {

/// One scenario in which the steps of these numbers fail, and what the user then does: a run with a
/// log, closing, the next start with another run, closing.
class Trial {
 public:
  explicit Trial(const Scenario& scenario);

  /// What is wrong. `plan` has the steps of the scenario then.
  [[nodiscard]] Complaints Play(FaultPlan& plan, FaultPlan::Numbers failing) const;

 private:
  const Scenario& scenario_;
  Disk disk_;  // as an earlier session left it
};

}  // namespace tolvane::faults
