#include "simulator/office/com/dispatch_object.h"

#include <cstdint>
#include <utility>

#include "simulator/office/com/text.h"
#include "simulator/office/com/variant_value.h"

namespace tolvane::office {
namespace {

/// Answered by objects of this process only: no proxy is known for it.
constexpr IID kOwnObject = {
    0x6b1d2f80, 0x3c55, 0x4e0a, {0x8f, 0x21, 0x5d, 0x90, 0x7a, 0x4c, 0xe1, 0x10}};

bool Assign(Arguments& arguments, DISPID name, Value&& value) {
  if (name == DISPID_PROPERTYPUT) {
    arguments.positional.push_back(std::move(value));
  } else if (name == NameId(u"FileName")) {
    arguments.file_name = std::move(value);
  } else if (name == NameId(u"FileFormat")) {
    arguments.file_format = std::move(value);
  } else {
    return false;
  }
  return true;
}

/// Parameters stand in reverse order, named ones first.
HRESULT ReadArguments(const DISPPARAMS& parameters, Arguments& arguments) {
  for (UINT index = parameters.cArgs; index-- > 0;) {
    std::optional<Value> value = FromVariant(parameters.rgvarg[index]);
    if (!value) return DISP_E_TYPEMISMATCH;
    if (index >= parameters.cNamedArgs) {
      arguments.positional.push_back(*std::move(value));
    } else if (!Assign(arguments, parameters.rgdispidNamedArgs[index], *std::move(value))) {
      return DISP_E_PARAMNOTFOUND;
    }
  }
  return S_OK;
}

HRESULT ByException(std::uint32_t result, EXCEPINFO* exception) {
  if (exception != nullptr) {
    *exception = EXCEPINFO{};
    exception->scode = static_cast<HRESULT>(result);
    exception->bstrSource = SysAllocString(L"tolvane_office");
    exception->bstrDescription = SysAllocString(L"The stand-in office program refused the call.");
  }
  return DISP_E_EXCEPTION;
}

/// Errors of the automation machinery are the call's own result; the program's go by exception.
HRESULT Report(std::uint32_t result, EXCEPINFO* exception) {
  constexpr std::uint32_t kDispatchFacility = 0x80020000;
  if (result == kDone || (result & 0xFFFF0000) == kDispatchFacility) {
    return static_cast<HRESULT>(result);
  }
  return ByException(result, exception);
}

}  // namespace

DispatchObject::DispatchObject(Server& server, Lifetime& lifetime, Object object)
    : server_(server), lifetime_(lifetime), object_(std::move(object)) {
  lifetime_.Add();
}

DispatchObject::~DispatchObject() { lifetime_.Remove(); }

HRESULT DispatchObject::QueryInterface(REFIID id, void** out) {
  const bool known =
      IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, kOwnObject);
  *out = known ? this : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG DispatchObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** out) {
  *out = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale,
                                      DISPID* ids) {
  if (server_.TurnsAway(BusyAs::kLater)) return RPC_E_SERVERCALL_RETRYLATER;
  const bool english = server_.Understands(locale);
  HRESULT result = S_OK;
  for (UINT index = 0; index < count; ++index) {
    const String name = FromWide(std::wstring(names[index]));
    std::int32_t id = 0;
    if (english) id = index == 0 ? server_.FindMember(object_, name) : NameId(name);
    ids[index] = id == 0 ? DISPID_UNKNOWN : id;
    if (id == 0) result = DISP_E_UNKNOWNNAME;
  }
  return result;
}

/// A client that does not care sends "get" and "call" together.
std::optional<Verb> DispatchObject::VerbOf(DISPID member, WORD flags) const {
  constexpr std::pair<WORD, Verb> kVerbs[] = {
      {DISPATCH_PROPERTYPUT, Verb::kPut},
      {DISPATCH_PROPERTYGET, Verb::kGet},
      {DISPATCH_METHOD, Verb::kCall},
  };
  for (const auto& [flag, verb] : kVerbs) {
    if ((flags & flag) != 0 && MemberName(object_.kind, verb, member)) return verb;
  }
  return std::nullopt;
}

HRESULT DispatchObject::Invoke(DISPID member, REFIID, LCID locale, WORD flags,
                               DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                               UINT*) {
  if (server_.TurnsAway(BusyAs::kLater)) return RPC_E_SERVERCALL_RETRYLATER;
  if (server_.TurnsAway(BusyAs::kSuspended)) return static_cast<HRESULT>(kSuspended);
  if (server_.TurnsAway(BusyAs::kException)) return ByException(kSuspended, exception);
  if (!server_.Understands(locale)) return static_cast<HRESULT>(kOldFormat);
  const std::optional<Verb> verb = VerbOf(member, flags);
  if (!verb) return DISP_E_MEMBERNOTFOUND;
  Arguments arguments;
  const HRESULT read = ReadArguments(*parameters, arguments);
  if (FAILED(read)) return read;
  const Outcome outcome = server_.Invoke(object_, *verb, member, std::move(arguments));
  if (result != nullptr) Give(outcome.value, result);
  return Report(outcome.result, exception);
}

void DispatchObject::Give(const Value& value, VARIANT* out) {
  VariantInit(out);
  if (const String* const text = std::get_if<String>(&value)) {
    const std::wstring wide = ToWide(*text);
    out->vt = VT_BSTR;
    out->bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  } else if (const Object* const object = std::get_if<Object>(&value)) {
    out->vt = VT_DISPATCH;
    out->pdispVal = new DispatchObject(server_, lifetime_, *object);
  }
}

std::optional<Object> OwnObject(IDispatch* dispatch) {
  void* own = nullptr;
  if (dispatch == nullptr || FAILED(dispatch->QueryInterface(kOwnObject, &own))) {
    return std::nullopt;
  }
  auto* const object = static_cast<DispatchObject*>(own);
  std::optional<Object> found = object->object_;
  object->Release();
  return found;
}

}  // namespace tolvane::office
