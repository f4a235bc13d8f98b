#pragma once

#include <string>
#include <vector>

#include "tools/log/runs/log_run.h"
#include "tools/log/runs/run_reader.h"

namespace tolvane::logtool {

/// Where the files are not as the program writes them, a sentence each: a number is missing between
/// two of them or ahead of the run, one that is not full is followed by another, or a full one is
/// the last. `read` has read all of them.
[[nodiscard]] std::vector<std::string> OddSeams(const LogRun& run, const RunReader& read);

}  // namespace tolvane::logtool
