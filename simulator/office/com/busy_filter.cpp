#include "simulator/office/com/busy_filter.h"

#include <oleauto.h>

namespace tolvane::office {

HRESULT BusyFilter::QueryInterface(REFIID id, void** out) {
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IMessageFilter);
  *out = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

DWORD BusyFilter::HandleInComingCall(DWORD, HTASK, DWORD, INTERFACEINFO* called) {
  const bool work = called != nullptr && (IsEqualIID(called->iid, IID_IDispatch) ||
                                          IsEqualIID(called->iid, IID_IClassFactory));
  return work && server_.TurnsAway(BusyAs::kRejected) ? SERVERCALL_REJECTED : SERVERCALL_ISHANDLED;
}

// The server calls nobody: the other two are never asked.
DWORD BusyFilter::RetryRejectedCall(HTASK, DWORD, DWORD) { return static_cast<DWORD>(-1); }
DWORD BusyFilter::MessagePending(HTASK, DWORD, DWORD) { return PENDINGMSG_WAITDEFPROCESS; }

}  // namespace tolvane::office
