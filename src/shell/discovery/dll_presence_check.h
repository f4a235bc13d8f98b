#pragma once

#include <cstdint>

#include "platform/platform.h"
#include "run/elm327_info.h"

namespace tolvane::Common_Function {

/// Which adapter libraries stand in the system folder, as the sum of their library bits; whether
/// one can be used shows when its adapters are searched. -1 when the program must end, for want of
/// qxt100.dll or of every adapter library, which a message box has told.
[[nodiscard]] std::int32_t DLL_Presence_Check(const platform::Platform& platform,
                                              const ELM327_Info& device);

}  // namespace tolvane::Common_Function
