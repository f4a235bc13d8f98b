#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/local_time.h"

namespace tolvane::logtool {

/// The moment that a log's head tells, written by WallClock::GeneralDate where dates begin with the
/// year; without a time of day it is midnight. Empty for any other form.
[[nodiscard]] std::optional<platform::LocalTime> MomentOf(std::string_view written);

/// Milliseconds since 1970 in the calendar alone, which knows no time zones.
[[nodiscard]] std::int64_t CalendarMs(const platform::LocalTime& time);
/// The way back; milliseconds are lost.
[[nodiscard]] platform::LocalTime CalendarTime(std::int64_t ms);

}  // namespace tolvane::logtool
