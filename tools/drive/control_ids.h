#pragma once

#include <string_view>

namespace tolvane::window {

/// The number behind a symbol of resource.h, or behind decimal digits; 0 for what is neither.
[[nodiscard]] int ControlId(std::wstring_view name);

}  // namespace tolvane::window
