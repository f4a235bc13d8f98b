#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <utility>
#include <variant>

#include "platform/automation.h"

namespace tolvane {

/// A sequence of automation calls that stops at the first failure: after it nothing is sent to the
/// server and every object is null. Ok() is checked once, at the end. The limit on waiting for a
/// busy server holds for the sequence, not for each call.
class AutomationSequence {
 public:
  using Object = std::unique_ptr<platform::AutomationObject>;
  using Arguments = std::initializer_list<platform::AutomationArgument>;
  using NamedArguments = std::initializer_list<platform::NamedArgument>;

  /// `server` may be null; nothing succeeds then.
  explicit AutomationSequence(platform::AutomationObject* server) {
    if (server != nullptr) server->BeginSequence();
  }

  [[nodiscard]] bool Ok() const { return ok_; }

  /// The object that a property holds; anything else is a failure.
  [[nodiscard]] Object Get(platform::AutomationObject* object, StringView name,
                           Arguments arguments = {}) {
    if (!Usable(object)) return nullptr;
    auto result = object->Get(name, AsSpan(arguments));
    auto* held = result ? std::get_if<Object>(&*result) : nullptr;
    Note(held != nullptr && *held != nullptr);
    return ok_ ? std::move(*held) : nullptr;
  }

  void Put(platform::AutomationObject* object, StringView name,
           const platform::AutomationArgument& value) {
    if (Usable(object)) Note(object->Put(name, value));
  }

  void Call(platform::AutomationObject* object, StringView name, Arguments arguments = {},
            NamedArguments named = {}) {
    if (Usable(object)) Note(object->Call(name, AsSpan(arguments), AsSpan(named)));
  }

  /// Property `name` of the object that `holder` of `object` is: `Font.size` and the like.
  void PutOf(platform::AutomationObject* object, StringView holder, StringView name,
             const platform::AutomationArgument& value) {
    Put(Get(object, holder).get(), name, value);
  }

 private:
  template <typename T>
  static std::span<const T> AsSpan(std::initializer_list<T> list) {
    return {list.begin(), list.size()};
  }

  void Note(bool succeeded) { ok_ = ok_ && succeeded; }
  bool Usable(const platform::AutomationObject* object) {
    Note(object != nullptr);
    return ok_;
  }

  bool ok_ = true;
};

}  // namespace tolvane
