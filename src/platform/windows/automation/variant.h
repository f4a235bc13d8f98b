#pragma once

#include <memory>
#include <optional>

#include "platform/automation.h"
#include "platform/windows/automation/patience.h"
#include "platform/windows/system/win32.h"

// After windows.h, which it needs.
#include <oleauto.h>

namespace tolvane::platform::windows {

/// A VARIANT that clears itself.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  Variant(const Variant&) = delete;
  Variant& operator=(const Variant&) = delete;
  Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  ~Variant() { VariantClear(&value_); }

  VARIANT& operator*() { return value_; }
  VARIANT* operator->() { return &value_; }
  VARIANT* Address() { return &value_; }

 private:
  VARIANT value_;
};

/// An IDispatch, whose count the result takes over, seen as the logic sees automation objects.
[[nodiscard]] std::unique_ptr<AutomationObject> WrapObject(IDispatch* object,
                                                           std::shared_ptr<Patience> patience);
/// The interface behind an object of WrapObject, not counted up.
[[nodiscard]] IDispatch* UnwrapObject(AutomationObject& object);

/// `argument` as a VARIANT of its own: texts and tables are copied, objects counted up. Empty when
/// memory runs out. A table is an array of BSTR; in one of VARIANT a spreadsheet program would take
/// each text as if typed.
[[nodiscard]] std::optional<Variant> ToVariant(const AutomationArgument& argument);

/// What a call gave back. Numbers of other widths come as the nearest type of the result; what has
/// none (a date, a table) comes as text, or as nothing when it has no text either. An
/// object belongs to the server whose patience is given.
[[nodiscard]] AutomationResult FromVariant(VARIANT& value,
                                           const std::shared_ptr<Patience>& patience);

}  // namespace tolvane::platform::windows
