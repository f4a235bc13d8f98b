#pragma once

#include <cstdint>

#include "platform/windows/abi/stdcall.h"

namespace tolvane::platform::windows::abi {

/// The exports of qxt100.dll, each member under its exported name. Their results are described in
/// platform/support_library.h.
struct Qxt100 {
  double(TOLVANE_STDCALL* qx_timeGetTime)();
  std::int32_t(TOLVANE_STDCALL* ColorAttenuation)(std::int32_t colour, std::int32_t remaining,
                                                  std::int32_t total);
};
static_assert(sizeof(Qxt100) == 2 * sizeof(void*) && sizeof(double) == 8);

/// Calls `visit(name, member)` for every export.
template <typename Visit>
void ForEachExport(Qxt100& library, Visit visit) {
  visit("qx_timeGetTime", library.qx_timeGetTime);
  visit("ColorAttenuation", library.ColorAttenuation);
}

}  // namespace tolvane::platform::windows::abi
