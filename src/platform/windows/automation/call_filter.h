#pragma once

#include "platform/windows/system/win32.h"

// After windows.h, which it needs.
#include <objbase.h>

namespace tolvane::platform::windows {

/// What becomes of messages while an automation call is on its way: input stays in the queue until
/// the next yield, windows are painted. Without it the system drops keys and clicks in a long call.
///
/// Registered for the thread while it lives, which must be in a single-threaded apartment; its
/// count is not kept.
class CallFilter final : public IMessageFilter {
 public:
  CallFilter() { CoRegisterMessageFilter(this, nullptr); }
  CallFilter(const CallFilter&) = delete;
  CallFilter& operator=(const CallFilter&) = delete;
  ~CallFilter() { CoRegisterMessageFilter(nullptr, nullptr); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD kind, HTASK caller, DWORD elapsed,
                                             INTERFACEINFO* called) override;
  DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD elapsed, DWORD reject) override;
  DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD elapsed, DWORD pending) override;
};

}  // namespace tolvane::platform::windows
