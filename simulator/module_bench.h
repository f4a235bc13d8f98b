#pragma once

#include <memory>
#include <string_view>

#include "simulator/bench.h"

/// In front of each function that a simulated library exports.
#define SIMULATED_EXPORT extern "C" __declspec(dllexport)

namespace tolvane::simulator {

/// The bench of the library that this is linked into: the file that the environment variable
/// TOLVANE_BENCH names, else tolvane-bench.ini beside the library, else the default bench.
std::unique_ptr<Bench> LoadModuleBench(std::string_view library);

}  // namespace tolvane::simulator
