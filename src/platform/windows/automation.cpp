#include "platform/windows/automation.h"

#include <vector>

#include "platform/windows/handle.h"
#include "platform/windows/text.h"
#include "platform/windows/variant.h"

namespace tolvane::platform::windows {
namespace {

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
  explicit DispatchObject(IDispatch* object) : object_(object) {}

  [[nodiscard]] IDispatch* Interface() const { return object_.Get(); }

  [[nodiscard]] std::optional<AutomationResult> Get(
      StringView name, std::span<const AutomationArgument> arguments) override {
    ArgumentList list;
    if (!AddPositional(arguments, list)) return std::nullopt;
    Variant result;
    // Some servers know "cells" with indices as a method, some as a property.
    if (!Invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, list, &*result)) return std::nullopt;
    return FromVariant(*result);
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
    // Not every method stands the wish for a result, and none is needed.
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
    if (FAILED(object_.Get()->GetIDsOfNames(IID_NULL, pointers.data(),
                                            static_cast<UINT>(pointers.size()), LOCALE_USER_DEFAULT,
                                            ids.data()))) {
      return std::nullopt;
    }
    return ids;
  }

  bool Invoke(StringView name, WORD kind, ArgumentList& list, VARIANT* result) {
    std::vector<String> names{String(name)};
    const std::optional<std::vector<DISPID>> ids = FindIds(names);
    if (!ids) return false;
    DISPPARAMS parameters = list.Parameters();
    return SUCCEEDED(object_.Get()->Invoke(ids->front(), IID_NULL, LOCALE_USER_DEFAULT, kind,
                                           &parameters, result, nullptr, nullptr));
  }

  ComHandle<IDispatch> object_;
};

}  // namespace

std::unique_ptr<AutomationObject> WrapObject(IDispatch* object) {
  return std::make_unique<DispatchObject>(object);
}

IDispatch* UnwrapObject(AutomationObject& object) {
  return static_cast<DispatchObject&>(object).Interface();
}

std::unique_ptr<AutomationObject> WindowsAutomationServers::CreateObject(StringView name) {
  CLSID id;
  if (FAILED(CLSIDFromProgID(Wide(String(name)), &id))) return nullptr;
  void* object = nullptr;
  if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, &object))) return nullptr;
  return WrapObject(static_cast<IDispatch*>(object));
}

}  // namespace tolvane::platform::windows
