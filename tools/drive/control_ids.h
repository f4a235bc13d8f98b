#pragma once

#include <string_view>

namespace tolvane::window {

/// The number that a symbol of resource.h or decimal digits stand for; 0 for anything else.
[[nodiscard]] int ControlId(std::wstring_view name);

}  // namespace tolvane::window
