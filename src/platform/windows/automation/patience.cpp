#include "platform/windows/automation/patience.h"

namespace tolvane::platform::windows {

bool IsTurnedAway(HRESULT result) {
  // The spreadsheet program's own "not now", which no header names.
  constexpr auto kSuspended = static_cast<HRESULT>(0x800AC472);
  return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER ||
         result == kSuspended;
}

}  // namespace tolvane::platform::windows
