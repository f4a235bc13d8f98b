#include "tests/faults/trial.h"

#include <malloc.h>

#include <string>
#include <utility>

#include "run/number_text.h"
#include "tests/helpers/bench_faults.h"

namespace tolvane::faults {
namespace {

constexpr WrittenLogs::Form kNextLog = WrittenLogs::Form::kCsv;
const String kLogOfTheHour = u"C:\\Tolvane\\KL26010509-";  // without its number

/// Each trial takes the same megabytes and gives them back. Fetched from the system anew, they are
/// most of what it costs.
void KeepMemory() {
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

void Append(const Complaints& more, const char* when, Complaints& complaints) {
  for (const std::string& complaint : more) complaints.push_back(when + complaint);
}

/// A run with a log, which takes all that its acts bring, and closing.
void RunAndClose(Machine& machine, WrittenLogs::Form log, const char* when,
                 Complaints& complaints) {
  machine.Set(log);
  machine.Run(ShortRun());
  Append(machine.JudgeWholeRun(ShortRun()), when, complaints);
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
  RunAndClose(machine, scenario.log, "earlier session: ", of_earlier_session_);
  kept_ = KeptBy(machine);
  disk_ = machine.Files();
  for (auto& [path, bytes] : disk_) {
    const bool is_settings = path.ends_with(u"\\config.dat");
    if (is_settings && scenario.setup.has_foreign_settings) bytes = "of another program";
  }
  for (std::int32_t number = 2; number <= scenario.setup.logs_of_the_hour; ++number) {
    const String path = kLogOfTheHour + String(PaddedText(number, 3).View()) + u".csv";
    disk_.emplace_back(path, "an earlier log");
  }
}

Trial::Kept Trial::KeptBy(const Machine& machine) {
  return {.page = machine.memory.RTB_MainView.Page().text,
          .comment = machine.form.device.t_LogComment};
}

void Trial::BeginScenario(Machine& machine, FaultPlan& plan, FaultPlan::Numbers failing,
                          DiskFault disk_fault) const {
  if (!scenario_.is_start) {
    machine.Start();
    machine.Set(scenario_.log);
  }
  plan.Begin(std::move(failing), disk_fault);
  if (scenario_.is_start) {
    machine.Start();
  } else {
    scenario_.play(machine);
  }
  plan.End();
}

/// `is_sure`: the last closing had no failure. One that had leaves each file old or new.
Complaints Trial::JudgeNextStart(const Machine& machine, const Kept& last, bool is_sure) const {
  if (!machine.Waits()) return {"the next start fails"};
  Complaints complaints;
  const auto [page, comment] = KeptBy(machine);
  if (page != last.page && (is_sure || page != kept_.page)) {
    complaints.emplace_back("the page is lost");
  }
  const bool had_none = !is_sure && scenario_.setup.has_foreign_settings;
  if (comment != last.comment && !had_none && (is_sure || comment != kept_.comment)) {
    complaints.emplace_back("the settings are lost");
  }
  return complaints;
}

Complaints Trial::Play(FaultPlan& plan, FaultPlan::Numbers failing, DiskFault disk_fault) const {
  Complaints complaints = of_earlier_session_;
  std::stringbuf report;
  Disk disk;
  Kept last;
  bool is_sure = false;
  {
    Machine machine(scenario_.setup, disk_, plan, report);
    BeginScenario(machine, plan, std::move(failing), disk_fault);
    Append(scenario_.judge(machine, plan), "", complaints);
    is_sure = plan.OnlyWasBusy();
    if (machine.Waits() && !machine.SessionHasEnded()) {
      RunAndClose(machine, kNextLog, "then: ", complaints);
      is_sure = true;
    }
    last = KeptBy(machine);
    disk = machine.Files();
  }
  Machine next(scenario_.setup, disk, plan, report);
  next.Start();
  Append(JudgeNextStart(next, last, is_sure), "next start: ", complaints);
  if (next.Waits()) RunAndClose(next, kNextLog, "next start: ", complaints);
  Append(FaultsOf(report.str()), "wrong call: ", complaints);
  return complaints;
}

}  // namespace tolvane::faults
