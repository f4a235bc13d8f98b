#pragma once

#include <string>
#include <vector>

#include "tools/log/runs/log_run.h"
#include "tools/log/runs/run_reader.h"

namespace tolvane::logtool {

/// Where the files are not as the program writes them, a sentence each: a number is missing between
/// two of them or ahead of the run, one that is not full is followed by another, or a full one is
/// the last. Then where the time line of a board steps back. `read` has read all of them.
[[nodiscard]] std::vector<std::string> OddSeams(const LogRun& run, const RunReader& read);

}  // namespace tolvane::logtool
