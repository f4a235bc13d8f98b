#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/canlib_library.h"
#include "platform/windows/abi/stdcall.h"

namespace tolvane::platform::windows::abi {

/// The called exports of canlib32.dll, each member under its exported name. Handles, statuses and
/// the `long` parameters are 32 bits in both bitnesses, the buffer size as wide as a pointer.
///
/// Exported too, never called and so never demanded: canSetBitrate, canGetBusParams, canSetNotify,
/// canWrite, canGetTimestamp, canIoCtl, canResetBus.
struct Canlib {
  void(TOLVANE_STDCALL* canInitializeLibrary)();
  std::int32_t(TOLVANE_STDCALL* canGetNumberOfChannels)(std::int32_t* count);
  std::int32_t(TOLVANE_STDCALL* canGetChannelData)(std::int32_t channel, std::int32_t item,
                                                   void* buffer, std::size_t size);
  std::int32_t(TOLVANE_STDCALL* canOpenChannel)(std::int32_t channel, std::int32_t flags);
  std::int32_t(TOLVANE_STDCALL* canClose)(std::int32_t handle);
  std::int32_t(TOLVANE_STDCALL* canSetBusParams)(std::int32_t handle, std::int32_t rate,
                                                 std::uint32_t tseg1, std::uint32_t tseg2,
                                                 std::uint32_t sjw, std::uint32_t no_samp,
                                                 std::uint32_t syncmode);
  std::int32_t(TOLVANE_STDCALL* canSetBusOutputControl)(std::int32_t handle,
                                                        std::uint32_t driver_type);
  std::int32_t(TOLVANE_STDCALL* canBusOn)(std::int32_t handle);
  std::int32_t(TOLVANE_STDCALL* canBusOff)(std::int32_t handle);
  /// `msg` has room for eight bytes.
  std::int32_t(TOLVANE_STDCALL* canRead)(std::int32_t handle, std::int32_t* id, void* msg,
                                         std::int32_t* dlc, std::int32_t* flag, std::int32_t* time);
};
static_assert(sizeof(Canlib) == 10 * sizeof(void*));
static_assert(sizeof(std::size_t) == sizeof(void*));

/// Calls `visit(name, member)` for every export.
template <typename Visit>
void ForEachExport(Canlib& library, Visit visit) {
  visit("canInitializeLibrary", library.canInitializeLibrary);
  visit("canGetNumberOfChannels", library.canGetNumberOfChannels);
  visit("canGetChannelData", library.canGetChannelData);
  visit("canOpenChannel", library.canOpenChannel);
  visit("canClose", library.canClose);
  visit("canSetBusParams", library.canSetBusParams);
  visit("canSetBusOutputControl", library.canSetBusOutputControl);
  visit("canBusOn", library.canBusOn);
  visit("canBusOff", library.canBusOff);
  visit("canRead", library.canRead);
}

}  // namespace tolvane::platform::windows::abi
