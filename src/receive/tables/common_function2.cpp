#include "receive/tables/common_function2.h"

#include "platform/extended_term.h"

namespace tolvane::Common_Function2 {
namespace {

using platform::ExtendedTerm;

// The sums are made in the x87 format and rounded to double once, at the end.

double GrownLine(double elapsed, double wrap, double last_elapsed, double ratio, double line) {
  const long double growth = ExtendedTerm(elapsed) + wrap - last_elapsed;
  return static_cast<double>(growth * ratio + line);
}

void FollowDevice(double& Time_Origin, double& Message_Time, double& Time_Last_Elapsed,
                  double device_time, double device_time_wrap, double dividend_ratio) {
  double elapsed = 0.0;
  if (Time_Origin >= 0.0) {
    elapsed = device_time - Time_Origin;
  } else if (Time_Origin == kNoOrigin) {
    Time_Origin = device_time;
  }
  const bool wrapped = elapsed < Time_Last_Elapsed;
  Message_Time = GrownLine(elapsed, wrapped ? device_time_wrap : 0.0, Time_Last_Elapsed,
                           dividend_ratio, Message_Time);
  Time_Last_Elapsed = elapsed;
  if (wrapped) Time_Origin = 0.0;
}

void FollowClock(double& Time_Origin, double& Message_Time, double& Time_Last_Elapsed, double now) {
  double elapsed = 0.0;
  if (Time_Origin >= 0.0) {
    elapsed = now - Time_Origin;
  } else {
    Time_Origin = now;
  }
  Message_Time = static_cast<double>(ExtendedTerm(elapsed) + Message_Time - Time_Last_Elapsed);
  Time_Last_Elapsed = elapsed;
}

}  // namespace

void Frame_Time_Update(std::int32_t Timer_Mode, double& Time_Origin, double& Message_Time,
                       double& Time_Last_Elapsed, double device_time, double device_time_wrap,
                       double dividend_ratio, platform::SupportLibrary& qxt100) {
  if (Timer_Mode == 0) {
    FollowDevice(Time_Origin, Message_Time, Time_Last_Elapsed, device_time, device_time_wrap,
                 dividend_ratio);
  } else if (Timer_Mode == 1) {
    FollowClock(Time_Origin, Message_Time, Time_Last_Elapsed, qxt100.qx_timeGetTime());
  }
}

}  // namespace tolvane::Common_Function2
