#include "tests/faults/trial.h"

#include <malloc.h>

#include <string>
#include <utility>

#include "tests/helpers/bench_faults.h"

namespace tolvane::faults {
namespace {

constexpr WrittenLogs::Form kNextLog = WrittenLogs::Form::kCsv;

/// Each trial takes the same megabytes and gives them back. Fetched from the system anew, they are
/// most of what it costs.
void KeepMemory() {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

void Append(const Complaints& more, const char* when, Complaints& complaints) {
  for (const std::string& complaint : more) complaints.push_back(when + complaint);
}

/// A run with a log, and closing.
void RunAndClose(Machine& machine, const char* when, Complaints& complaints) {
  machine.Set(kNextLog);
  machine.Run(ShortRun());
  Append(machine.JudgeRun(false), when, complaints);
  machine.Click(&Form1::menu_file_close_Click);
  if (!machine.IsLeft()) Append({"the program cannot be closed"}, when, complaints);
}

}  // namespace

Trial::Trial(const Scenario& scenario) : scenario_(scenario) {
  KeepMemory();
  FaultPlan nothing;
  std::stringbuf report;
  Machine machine(scenario.setup, {}, nothing, report);
  machine.Start();
  machine.Set(scenario.log);
  machine.Run(ShortRun());
  machine.Click(&Form1::menu_file_close_Click);
  disk_ = machine.Files();
}

Complaints Trial::Play(FaultPlan& plan, FaultPlan::Numbers failing) const {
  Complaints complaints;
  std::stringbuf report;
  Disk disk;
  {
    Machine machine(scenario_.setup, disk_, plan, report);
    if (scenario_.is_start) {
      plan.Begin(std::move(failing));
      machine.Start();
    } else {
      machine.Start();
      machine.Set(scenario_.log);
      plan.Begin(std::move(failing));
      scenario_.play(machine);
    }
    plan.End();
    Append(scenario_.judge(machine, plan), "", complaints);
    if (machine.Waits()) RunAndClose(machine, "then: ", complaints);
    disk = machine.Files();
  }
  Machine next(scenario_.setup, disk, plan, report);
  next.Start();
  if (next.Waits()) {
    RunAndClose(next, "next start: ", complaints);
  } else {
    complaints.emplace_back("the next start fails");
  }
  Append(FaultsOf(report.str()), "wrong call: ", complaints);
  return complaints;
}

}  // namespace tolvane::faults
