#pragma once

#include <string>
#include <vector>

#include "tools/log/runs/log_run.h"
#include "tools/log/runs/run_reader.h"

namespace tolvane::logtool {

/// Where one file of a run follows another as the program does not write them, a sentence each: a
/// number is missing between them, or the first one is not full. `read` has read all of them.
[[nodiscard]] std::vector<std::string> OddSeams(const LogRun& run, const RunReader& read);

}  // namespace tolvane::logtool
