#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "tools/log/runs/log_run.h"

namespace tolvane::logtool {

/// Where one file of a run follows another as the program does not write them, a sentence each: a
/// number is missing between them, or the first one is not full. `frames` tells how many frames
/// each file has.
[[nodiscard]] std::vector<std::string> OddSeams(const LogRun& run,
                                                std::span<const std::uint64_t> frames);

}  // namespace tolvane::logtool
