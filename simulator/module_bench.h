#pragma once

#include <memory>
#include <string_view>

#include "simulator/bench.h"

namespace tolvane::simulator {

/// The bench of the library that this is linked into: the file that the environment variable
/// TOLVANE_BENCH names, else tolvane-bench.ini beside the library, else the default bench.
std::unique_ptr<Bench> LoadModuleBench(std::string_view library);

}  // namespace tolvane::simulator
