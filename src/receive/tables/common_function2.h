#pragma once

#include <cstdint>

#include "platform/support_library.h"

namespace tolvane::Common_Function2 {

constexpr double kNoOrigin = -1.0;  // Time_Origin before the first frame

/// Moves a run's time line on to the frame in hand. All times are milliseconds; the line is 0.0 at
/// the first frame.
///
/// `Timer_Mode` 0 adds up the differences of `device_time`, each stretched by `dividend_ratio`; a
/// reading that steps back has wrapped after `device_time_wrap`, or simply steps back where that is
/// 0.0. 1 follows the computer's clock and ignores the last three numbers. Any other mode changes
/// nothing.
///
/// `Time_Origin` is the reading taken as zero and `Time_Last_Elapsed` the previous frame's distance
/// from the origin of its time. The first wrap makes the origin 0.0 but leaves that distance as it
/// was, so the line jumps forward by the first origin once, at the frame after the wrap.
///
/// Whatever a foreign library did to the x87 unit before, the sums come out the same.
void Frame_Time_Update(std::int32_t Timer_Mode, double& Time_Origin, double& Message_Time,
                       double& Time_Last_Elapsed, double device_time, double device_time_wrap,
                       double dividend_ratio, platform::SupportLibrary& qxt100);

}  // namespace tolvane::Common_Function2
