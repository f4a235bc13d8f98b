#pragma once

#include <cstdint>
#include <ostream>
#include <span>

#include "tests/faults/machine.h"

namespace tolvane::faults {

/// Which second steps fail behind a first one: all, or where that would take long the next one and
/// the next of each other subject.
enum class Pairs : std::uint8_t { kAll, kNear };

/// A piece of a program's life in which every operation fails.
struct Scenario {
  const char* name;
  Setup setup;
  WrittenLogs::Form log;
  bool is_start;  // begins with the start of the process
  void (*play)(Machine& machine);
  /// What is wrong behind it, beyond what holds for every run.
  Complaints (*judge)(const Machine& machine, const FaultPlan& plan);
  Pairs pairs = Pairs::kAll;
};

/// How a failing test names it.
inline void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

[[nodiscard]] std::span<const Scenario> Scenarios();

/// What ends in the user's next run, by whatever the program then has: a few frames and ticks.
[[nodiscard]] std::span<const Act> ShortRun();

}  // namespace tolvane::faults
