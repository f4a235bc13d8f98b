#pragma once

#include <windows.h>

#include <objbase.h>

#include "simulator/office/com/lifetime.h"
#include "simulator/office/server.h"

namespace tolvane::office {

/// Makes the program's object for the one client of this process. Lives on the stack of the serving
/// function, so references to it are not counted.
class ClassFactory final : public IClassFactory {
 public:
  ClassFactory(Server& server, Lifetime& lifetime) : server_(server), lifetime_(lifetime) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  Server& server_;
  Lifetime& lifetime_;
};

}  // namespace tolvane::office
