#include "tests/simulator/office/com_client.h"

#include <string>
#include <type_traits>

#include "simulator/office/com/text.h"

namespace tolvane::office {
namespace {

BSTR NewBstr(StringView text) {
  const std::wstring wide = ToWide(text);
  return SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
}

VARIANT TableVariant(const Table& table, VARTYPE element) {
  SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(table.rows), 1},
                              {static_cast<ULONG>(table.columns), 1}};
  VARIANT out;
  VariantInit(&out);
  out.vt = static_cast<VARTYPE>(VT_ARRAY | element);
  out.parray = SafeArrayCreate(element, 2, bounds);
  void* data = nullptr;
  SafeArrayAccessData(out.parray, &data);
  for (std::size_t index = 0; index < table.texts.size(); ++index) {
    const std::size_t row = index / table.columns;
    const std::size_t place = (index % table.columns) * table.rows + row;
    const BSTR text = NewBstr(table.texts[index]);
    if (element == VT_BSTR) {
      static_cast<BSTR*>(data)[place] = text;
    } else {
      VARIANT& variant = static_cast<VARIANT*>(data)[place];
      variant.vt = VT_BSTR;
      variant.bstrVal = text;
    }
  }
  SafeArrayUnaccessData(out.parray);
  return out;
}

}  // namespace

ComClient::ComClient(const wchar_t* name, VARTYPE table_element) : table_element_(table_element) {
  CLSID id;
  created_ = CLSIDFromProgID(name, &id);
  IDispatch* program = nullptr;
  if (SUCCEEDED(created_)) {
    void* out = nullptr;
    created_ = CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch, &out);
    program = static_cast<IDispatch*>(out);
  }
  objects_.push_back(program);
}

void ComClient::Release() {
  for (IDispatch* const object : objects_) {
    if (object != nullptr) object->Release();
  }
  objects_.clear();
}

VARIANT ComClient::ToVariant(const Argument& argument) const {
  VARIANT out;
  VariantInit(&out);
  if (const bool* const flag = std::get_if<bool>(&argument)) {
    out.vt = VT_BOOL;
    out.boolVal = *flag ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (const auto* const number = std::get_if<std::int32_t>(&argument)) {
    out.vt = VT_I4;
    out.lVal = *number;
  } else if (const String* const text = std::get_if<String>(&argument)) {
    out.vt = VT_BSTR;
    out.bstrVal = NewBstr(*text);
  } else if (const Table* const table = std::get_if<Table>(&argument)) {
    out = TableVariant(*table, table_element_);
  } else if (const Handle* const handle = std::get_if<Handle>(&argument)) {
    out.vt = VT_DISPATCH;
    out.pdispVal = objects_[handle->index];
    if (out.pdispVal != nullptr) out.pdispVal->AddRef();
  }
  return out;
}

VARIANT ComClient::Invoke(Handle object, WORD flags, StringView name,
                          const std::vector<Argument>& arguments,
                          const std::vector<NamedArgument>& named) {
  VARIANT result;
  VariantInit(&result);
  IDispatch* const target = objects_[object.index];
  if (target == nullptr) {
    failures.push_back(E_POINTER);
    return result;
  }
  std::vector<std::wstring> names{ToWide(name)};
  for (const NamedArgument& argument : named) names.push_back(ToWide(argument.name));
  std::vector<LPOLESTR> pointers;
  for (std::wstring& text : names) pointers.push_back(text.data());
  std::vector<DISPID> ids(names.size());
  HRESULT done = target->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(ids.size()),
                                       locale, ids.data());
  if (SUCCEEDED(done)) {
    std::vector<VARIANT> values;  // reversed: named ones first
    for (std::size_t index = named.size(); index-- > 0;) {
      values.push_back(ToVariant(named[index].value));
    }
    for (std::size_t index = arguments.size(); index-- > 0;) {
      values.push_back(ToVariant(arguments[index]));
    }
    std::vector<DISPID> value_ids(ids.rbegin(), ids.rend() - 1);
    if ((flags & DISPATCH_PROPERTYPUT) != 0) value_ids.push_back(DISPID_PROPERTYPUT);
    DISPPARAMS parameters{values.data(), value_ids.data(), static_cast<UINT>(values.size()),
                          static_cast<UINT>(value_ids.size())};
    EXCEPINFO exception{};
    done =
        target->Invoke(ids[0], IID_NULL, locale, flags, &parameters, &result, &exception, nullptr);
    if (done == DISP_E_EXCEPTION) done = exception.scode;
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    for (VARIANT& value : values) VariantClear(&value);
  }
  if (FAILED(done)) failures.push_back(done);
  return result;
}

SampleClient::Handle ComClient::Get(Handle object, StringView name,
                                    const std::vector<Argument>& arguments) {
  const WORD flags = DISPATCH_PROPERTYGET | DISPATCH_METHOD;
  const VARIANT result = Invoke(object, flags, name, arguments, {});
  objects_.push_back(result.vt == VT_DISPATCH ? result.pdispVal : nullptr);
  return {objects_.size() - 1};
}

String ComClient::GetText(Handle object, StringView name) {
  VARIANT result = Invoke(object, DISPATCH_PROPERTYGET, name, {}, {});
  String text;
  if (result.vt == VT_BSTR) text = FromWide(result.bstrVal, SysStringLen(result.bstrVal));
  VariantClear(&result);
  return text;
}

void ComClient::Put(Handle object, StringView name, const Argument& value) {
  Invoke(object, DISPATCH_PROPERTYPUT, name, {value}, {});
}

void ComClient::Call(Handle object, StringView name, const std::vector<Argument>& arguments,
                     const std::vector<NamedArgument>& named) {
  VARIANT result = Invoke(object, DISPATCH_METHOD, name, arguments, named);
  VariantClear(&result);
}

}  // namespace tolvane::office
