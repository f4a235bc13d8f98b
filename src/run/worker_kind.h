#pragma once

#include <cstdint>

namespace tolvane {

/// The four receive workers. The names ending in 2 drop excluded frames before table and log; the
/// names with 29 keep a table of keys instead of one row per 11-bit identifier.
enum class WorkerKind : std::uint8_t { FormBG, FormBG2, FormBG_29, FormBG2_29 };

}  // namespace tolvane
