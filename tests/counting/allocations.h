#pragma once

#include <cstddef>
#include <cstdint>

namespace tolvane::counting {

/// Calls of operator new in this program so far. Linking this library makes the program count.
[[nodiscard]] std::int64_t Allocations();

/// From now on there is no memory for allocations of more bytes.
void RefuseAbove(std::size_t bytes);

}  // namespace tolvane::counting
