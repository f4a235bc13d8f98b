#pragma once

#include <windows.h>

#include <oleauto.h>

#include <optional>

#include "simulator/office/com/lifetime.h"
#include "simulator/office/server.h"

namespace tolvane::office {

/// One object as clients see it: late bound, members by name. All calls come on the thread that
/// made it.
class DispatchObject final : public IDispatch {
 public:
  /// Has one reference, the caller's. `server` and `lifetime` outlive it.
  DispatchObject(Server& server, Lifetime& lifetime, Object object);
  DispatchObject(const DispatchObject&) = delete;
  DispatchObject& operator=(const DispatchObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* bad_argument) override;

 private:
  friend std::optional<Object> OwnObject(IDispatch* dispatch);
  ~DispatchObject();

  std::optional<Verb> VerbOf(DISPID member, WORD flags) const;
  void Give(const Value& value, VARIANT* out);

  Server& server_;
  Lifetime& lifetime_;
  Object object_;
  ULONG references_ = 1;
};

/// The object behind an interface of this server; empty for one of another process, and for null.
std::optional<Object> OwnObject(IDispatch* dispatch);

}  // namespace tolvane::office
