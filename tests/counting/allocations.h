#pragma once

#include <cstddef>
#include <cstdint>

namespace tolvane::counting {

/// Calls of operator new in this program so far. Linking this library makes the program count.
[[nodiscard]] std::int64_t Allocations();

/// Bytes of the last allocation of a megabyte or more that nothing was written to; it has to be
/// there still. Their pages would come in with their first use, in the midst of a run.
[[nodiscard]] std::size_t UntouchedOfLastLarge();

/// From now on there is no memory for allocations of more bytes.
void RefuseAbove(std::size_t bytes);

}  // namespace tolvane::counting
