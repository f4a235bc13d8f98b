#pragma once

#include <cstdint>
#include <optional>

#include "platform/local_time.h"

namespace tolvane::logtool {

/// As Outside says; written in each outside.
[[nodiscard]] std::optional<std::int64_t> UnixSeconds(const platform::LocalTime& time);

}  // namespace tolvane::logtool
