#include "platform/windows/automation/automation.h"

#include <vector>

#include "platform/windows/automation/patience.h"
#include "platform/windows/automation/variant.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

/// The language of the names and values in a call, whatever the user's is: a spreadsheet program in
/// another language expects its own names in calls of that language.
constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
static_assert(kEnglish == 1033);

/// The error code that a server gives along with DISP_E_EXCEPTION.
class Exception {
 public:
  Exception() = default;
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;
  ~Exception() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
  }

  EXCEPINFO* Address() { return &info_; }
  /// Always a failure: a server may give a number of its own instead.
  HRESULT Code() {
    if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
    return FAILED(info_.scode) ? info_.scode : DISP_E_EXCEPTION;
  }

 private:
  EXCEPINFO info_{};
};

/// The arguments of one call in the order in which Invoke takes them: named ones first, then the
/// positional ones from the last to the first.
class ArgumentList {
 public:
  void AddNamed(DISPID id, Variant value) {
    ids_.push_back(id);
    values_.push_back(std::move(value));
  }
  void AddPositional(Variant value) { values_.push_back(std::move(value)); }

  /// Valid until the list changes.
  DISPPARAMS Parameters() {
    raw_.clear();
    for (Variant& value : values_) raw_.push_back(*value);
    return {raw_.data(), ids_.data(), static_cast<UINT>(raw_.size()),
            static_cast<UINT>(ids_.size())};
  }

 private:
  std::vector<Variant> values_;
  std::vector<VARIANT> raw_;  // borrowed from values_
  std::vector<DISPID> ids_;
};

class DispatchObject final : public AutomationObject {
 public:
  DispatchObject(IDispatch* object, std::shared_ptr<Patience> patience)
      : object_(object), patience_(std::move(patience)) {}

  [[nodiscard]] IDispatch* Interface() const { return object_.Get(); }

  void BeginSequence() override { patience_->Renew(); }

  [[nodiscard]] std::optional<AutomationResult> Get(
      StringView name, std::span<const AutomationArgument> arguments) override {
    ArgumentList list;
    if (!AddPositional(arguments, list)) return std::nullopt;
    Variant result;
    // Some servers know "cells" with indices as a method, some as a property.
    if (!Invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, list, &*result)) return std::nullopt;
    return FromVariant(*result, patience_);
  }

  [[nodiscard]] bool Put(StringView name, const AutomationArgument& value) override {
    std::optional<Variant> variant = ToVariant(value);
    if (!variant) return false;
    ArgumentList list;
    list.AddNamed(DISPID_PROPERTYPUT, std::move(*variant));
    return Invoke(name, DISPATCH_PROPERTYPUT, list, nullptr);
  }

  [[nodiscard]] bool Call(StringView name, std::span<const AutomationArgument> arguments,
                          std::span<const NamedArgument> named) override {
    ArgumentList list;
    if (!AddNamed(name, named, list) || !AddPositional(arguments, list)) return false;
    // Some methods fail when a result is asked for, and none is needed.
    return Invoke(name, DISPATCH_METHOD, list, nullptr);
  }

 private:
  static bool AddPositional(std::span<const AutomationArgument> arguments, ArgumentList& list) {
    for (std::size_t i = arguments.size(); i > 0; --i) {
      std::optional<Variant> variant = ToVariant(arguments[i - 1]);
      if (!variant) return false;
      list.AddPositional(std::move(*variant));
    }
    return true;
  }

  /// The ids of argument names are found together with the method they belong to.
  bool AddNamed(StringView method, std::span<const NamedArgument> named, ArgumentList& list) {
    if (named.empty()) return true;
    std::vector<String> names{String(method)};
    for (const NamedArgument& argument : named) names.emplace_back(argument.name);
    const std::optional<std::vector<DISPID>> ids = FindIds(names);
    if (!ids) return false;
    for (std::size_t i = 0; i < named.size(); ++i) {
      std::optional<Variant> variant = ToVariant(named[i].value);
      if (!variant) return false;
      list.AddNamed((*ids)[i + 1], std::move(*variant));
    }
    return true;
  }

  std::optional<std::vector<DISPID>> FindIds(std::vector<String>& names) {
    std::vector<wchar_t*> pointers;
    for (String& name : names) pointers.push_back(WideData(name));
    std::vector<DISPID> ids(names.size());
    const HRESULT found = patience_->Insist([&] {
      return object_.Get()->GetIDsOfNames(IID_NULL, pointers.data(),
                                          static_cast<UINT>(pointers.size()), kEnglish, ids.data());
    });
    if (FAILED(found)) return std::nullopt;
    return ids;
  }

  bool Invoke(StringView name, WORD kind, ArgumentList& list, VARIANT* result) {
    std::vector<String> names{String(name)};
    const std::optional<std::vector<DISPID>> ids = FindIds(names);
    if (!ids) return false;
    DISPPARAMS parameters = list.Parameters();
    return SUCCEEDED(patience_->Insist([&] {
      Exception exception;
      const HRESULT done = object_.Get()->Invoke(ids->front(), IID_NULL, kEnglish, kind,
                                                 &parameters, result, exception.Address(), nullptr);
      return done == DISP_E_EXCEPTION ? exception.Code() : done;
    }));
  }

  ComHandle<IDispatch> object_;
  std::shared_ptr<Patience> patience_;  // one for all objects of a server
};

}  // namespace

std::unique_ptr<AutomationObject> WrapObject(IDispatch* object,
                                             std::shared_ptr<Patience> patience) {
  return std::make_unique<DispatchObject>(object, std::move(patience));
}

IDispatch* UnwrapObject(AutomationObject& object) {
  return static_cast<DispatchObject&>(object).Interface();
}

std::unique_ptr<AutomationObject> WindowsAutomationServers::CreateObject(StringView name) {
  CLSID id;
  if (FAILED(CLSIDFromProgID(Wide(String(name)), &id))) return nullptr;
  const auto patience = std::make_shared<Patience>();
  // In two steps, as CoCreateInstance would start another process with each attempt.
  void* made = nullptr;
  const HRESULT found = patience->Insist(
      [&] { return CoGetClassObject(id, CLSCTX_SERVER, nullptr, IID_IClassFactory, &made); });
  if (FAILED(found)) return nullptr;
  const ComHandle<IClassFactory> factory(static_cast<IClassFactory*>(made));
  const HRESULT created = patience->Insist(
      [&] { return factory.Get()->CreateInstance(nullptr, IID_IDispatch, &made); });
  if (FAILED(created)) return nullptr;
  return WrapObject(static_cast<IDispatch*>(made), patience);
}

}  // namespace tolvane::platform::windows
