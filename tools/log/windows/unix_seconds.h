#pragma once

#include <cstdint>
#include <optional>

#include "platform/local_time.h"

namespace tolvane::logtool {

/// In the time zone of this computer (outside.h).
[[nodiscard]] std::optional<std::int64_t> UnixSeconds(const platform::LocalTime& time);

}  // namespace tolvane::logtool
