#include "simulator/office/com/class_factory.h"

#include <optional>

#include "simulator/office/com/dispatch_object.h"

namespace tolvane::office {

HRESULT ClassFactory::QueryInterface(REFIID id, void** out) {
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
  *out = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** out) {
  *out = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  if (server_.TurnsAway(BusyAs::kLater)) return RPC_E_SERVERCALL_RETRYLATER;
  const std::optional<Object> program = server_.Create();
  if (!program) {
    // Nobody will come any more: the process ends as if its last client had left.
    lifetime_.Add();
    lifetime_.Remove();
    return E_FAIL;
  }
  auto* const object = new DispatchObject(server_, lifetime_, *program);
  const HRESULT result = object->QueryInterface(id, out);
  object->Release();
  return result;
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  if (lock != FALSE) {
    lifetime_.Add();
  } else {
    lifetime_.Remove();
  }
  return S_OK;
}

}  // namespace tolvane::office
