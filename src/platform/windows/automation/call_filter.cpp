#include "platform/windows/automation/call_filter.h"

namespace tolvane::platform::windows {

HRESULT CallFilter::QueryInterface(REFIID id, void** object) {
  const bool known = id == IID_IUnknown || id == IID_IMessageFilter;
  *object = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

/// As without a filter. The program serves nobody; what comes in are questions of the system's own
/// parts in this process, such as those for screen readers, which do not go through the event gate.
DWORD CallFilter::HandleInComingCall(DWORD, HTASK, DWORD, INTERFACEINFO*) {
  return SERVERCALL_ISHANDLED;
}

/// No further try from here: whoever made the call repeats it, see Patience.
DWORD CallFilter::RetryRejectedCall(HTASK, DWORD, DWORD) { return static_cast<DWORD>(-1); }

/// PENDINGMSG_WAITDEFPROCESS would let the system discard input that it considers dangerous.
DWORD CallFilter::MessagePending(HTASK, DWORD, DWORD) {
  MSG paint;
  // The kinds beside the number, which alone would let a WM_QUIT of the posted ones through.
  constexpr UINT kHow = PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE;
  // One of them: a window that never counts as painted would hold the call up.
  if (PeekMessageW(&paint, nullptr, WM_PAINT, WM_PAINT, kHow)) DispatchMessageW(&paint);
  return PENDINGMSG_WAITNOPROCESS;
}

}  // namespace tolvane::platform::windows
