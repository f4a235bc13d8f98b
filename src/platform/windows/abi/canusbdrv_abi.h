#pragma once

#include <cstdint>

#include "platform/canusb_library.h"
#include "platform/windows/abi/stdcall.h"

namespace tolvane::platform::windows::abi {

/// The called exports of canusbdrv.dll, each member under its exported name. The simulated library
/// checks its functions against the same members.
///
/// The library also exports canusb_ReadFirst, canusb_Write, canusb_Status and canusb_Flush. The
/// program sends nothing and reads no adapter status: they are never called, and a library that
/// lacks them serves as well.
struct Canusbdrv {
  /// Only the low half of the result register means anything, so the type has 16 bits.
  std::int16_t(TOLVANE_STDCALL* canusb_getFirstAdapter)(char* serial, std::int32_t size);
  std::int16_t(TOLVANE_STDCALL* canusb_getNextAdapter)(char* serial, std::int32_t size);

  /// `rate` is written back, perhaps longer than it came in, so its buffer has room to spare.
  std::int32_t(TOLVANE_STDCALL* canusb_Open)(const char* serial, char* rate,
                                             std::int32_t acceptance_code,
                                             std::int32_t acceptance_mask, std::int32_t flags);
  std::int32_t(TOLVANE_STDCALL* canusb_Close)(std::int32_t handle);
  std::int32_t(TOLVANE_STDCALL* canusb_Read)(std::int32_t handle, CanusbMessage* message);
  /// `version` has room for CanusbLibrary::kVersionSize bytes.
  std::int32_t(TOLVANE_STDCALL* canusb_VersionInfo)(std::int32_t handle, char* version);
};
static_assert(sizeof(Canusbdrv) == 6 * sizeof(void*));
static_assert(sizeof(CanusbMessage) == 20);

/// Calls `visit(name, member)` for every export.
template <typename Visit>
void ForEachExport(Canusbdrv& library, Visit visit) {
  visit("canusb_getFirstAdapter", library.canusb_getFirstAdapter);
  visit("canusb_getNextAdapter", library.canusb_getNextAdapter);
  visit("canusb_Open", library.canusb_Open);
  visit("canusb_Close", library.canusb_Close);
  visit("canusb_Read", library.canusb_Read);
  visit("canusb_VersionInfo", library.canusb_VersionInfo);
}

}  // namespace tolvane::platform::windows::abi
