#pragma once

#include <cstdint>

#include "platform/platform.h"
#include "run/elm327_info.h"

namespace tolvane {

// Bits of DLL_Presence_Check's result.
constexpr std::int32_t kLibraryCanusb = 1;
constexpr std::int32_t kLibraryInterface = 2;
constexpr std::int32_t kLibraryKvaser = 4;

namespace Common_Function {

/// Which adapter libraries stand in the system folder, as the sum of their bits; whether one can be
/// used shows when its adapters are searched. -1 when the program must end, for want of qxt100.dll
/// or of every adapter library, which a message box has told.
[[nodiscard]] std::int32_t DLL_Presence_Check(const platform::Platform& platform,
                                              const ELM327_Info& device);

}  // namespace Common_Function
}  // namespace tolvane
