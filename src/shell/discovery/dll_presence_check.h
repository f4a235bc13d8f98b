#pragma once

#include <cstdint>

#include "platform/platform.h"
#include "run/elm327_info.h"

namespace tolvane::Common_Function {

/// Which adapter libraries stand in the system folder, as the sum of their library bits; whether
/// one can be used shows when its adapters are searched. -1 when the program must end because
/// qxt100.dll or every adapter library is missing; a message box has then said so.
[[nodiscard]] std::int32_t DLL_Presence_Check(const platform::Platform& platform,
                                              const ELM327_Info& device);

}  // namespace tolvane::Common_Function
