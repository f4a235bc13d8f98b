#pragma once

#include <memory>
#include <string_view>

#include "simulator/bench.h"

/// Marks a function that a simulated library exports.
#define SIMULATED_EXPORT extern "C" __declspec(dllexport)

namespace tolvane::simulator {

/// The bench of the library that this is linked into: from the file named by the environment
/// variable TOLVANE_BENCH, or else from tolvane-bench.ini next to the library, or else the default
/// bench.
std::unique_ptr<Bench> LoadModuleBench(std::string_view library);

}  // namespace tolvane::simulator
