#pragma once

#include <cstdint>

namespace tolvane::counting {

/// Calls of operator new in this program so far. Linking this library makes the program count.
[[nodiscard]] std::int64_t Allocations();

}  // namespace tolvane::counting
