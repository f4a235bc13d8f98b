#pragma once

#include <windows.h>

#include <objbase.h>

#include "simulator/office/server.h"

namespace tolvane::office {

/// Turns calls away before they reach an object, as the script wants it: the creation and calls of
/// IDispatch. Registered for the thread while it lives, and not counted.
///
/// Wine carries only a plain rejection to the client; SERVERCALL_RETRYLATER counts as consent
/// there. What a client sees of it on Windows is therefore given as the result of the call instead.
class BusyFilter final : public IMessageFilter {
 public:
  explicit BusyFilter(Server& server) : server_(server) { CoRegisterMessageFilter(this, nullptr); }
  ~BusyFilter() { CoRegisterMessageFilter(nullptr, nullptr); }
  BusyFilter(const BusyFilter&) = delete;
  BusyFilter& operator=(const BusyFilter&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD kind, HTASK caller, DWORD elapsed,
                                             INTERFACEINFO* called) override;
  DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK, DWORD, DWORD) override;
  DWORD STDMETHODCALLTYPE MessagePending(HTASK, DWORD, DWORD) override;

 private:
  Server& server_;
};

}  // namespace tolvane::office
