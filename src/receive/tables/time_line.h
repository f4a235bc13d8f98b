#pragma once

#include "receive/tables/common_function2.h"

namespace tolvane {

/// The time variables of one run, in ms.
struct TimeLine {
  double Time_Origin = Common_Function2::kNoOrigin;
  double Time_Last_Elapsed = 0.0;
  double Message_Time = 0.0;  // of the frame in hand
};

}  // namespace tolvane
