#pragma once

#include <cstdint>

#include "platform/ifcan_library.h"
#include "platform/windows/abi/stdcall.h"

namespace tolvane::platform::windows::abi {

/// The called exports of IFCan.dll, each member under its exported name. Handles and statuses are
/// 32 bits in both bitnesses.
///
/// Exported too, never called and so never demanded: CanGetStatus, CanSendMessage,
/// CanGetErrorEvent, CanSetEvent, CanKillEvent, CanSetEventMask, CanGetEventMask,
/// CanSetAcceptanceFilter, CanGetAcceptanceFilter, CanClearBuffer, CanSetFifoTrigger,
/// CanGetFifoTrigger, CanCyclicSendMessage, CanStopCyclicSendMessage, CanSetTimerConfig,
/// CanGetCompletionMessage, CanMultiCyclicSendMessage, CanStopMultiCyclicSendMessage,
/// CanSetTransmissionCycle, CanGetTimerCount, CanControlTimer, CanOutputSync.
struct Ifcan {
  std::int32_t(TOLVANE_STDCALL* CanOpenPort)(const char* name);
  std::int32_t(TOLVANE_STDCALL* CanClosePort)(std::int32_t handle);
  std::int32_t(TOLVANE_STDCALL* CanGetConfig)(std::int32_t handle, IfcanConfig* config);
  std::int32_t(TOLVANE_STDCALL* CanSetConfig)(std::int32_t handle, const IfcanConfig* config);
  std::int32_t(TOLVANE_STDCALL* CanActivate)(std::int32_t handle);
  std::int32_t(TOLVANE_STDCALL* CanDeactivate)(std::int32_t handle);
  /// `count` is the room behind `message` in records, then the number delivered.
  std::int32_t(TOLVANE_STDCALL* CanReceiveMessage)(std::int32_t handle, IfcanMessage* message,
                                                   std::int32_t* count);
  std::int32_t(TOLVANE_STDCALL* CanGetPortInformation)(std::int32_t handle,
                                                       IfcanPortInformation* information);
};
static_assert(sizeof(Ifcan) == 8 * sizeof(void*));
static_assert(sizeof(IfcanPortInformation) == 36 && sizeof(IfcanConfig) == 28 &&
              sizeof(IfcanMessage) == 24);

/// Calls `visit(name, member)` for every export.
template <typename Visit>
void ForEachExport(Ifcan& library, Visit visit) {
  visit("CanOpenPort", library.CanOpenPort);
  visit("CanClosePort", library.CanClosePort);
  visit("CanGetConfig", library.CanGetConfig);
  visit("CanSetConfig", library.CanSetConfig);
  visit("CanActivate", library.CanActivate);
  visit("CanDeactivate", library.CanDeactivate);
  visit("CanReceiveMessage", library.CanReceiveMessage);
  visit("CanGetPortInformation", library.CanGetPortInformation);
}

}  // namespace tolvane::platform::windows::abi
