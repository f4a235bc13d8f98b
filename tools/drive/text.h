#pragma once

#include <string>
#include <string_view>

namespace tolvane::window {

/// Between the system's text and the UTF-8 of files, consoles and test messages.
[[nodiscard]] std::string Utf8(std::wstring_view text);
[[nodiscard]] std::wstring Wide(std::string_view utf8);

}  // namespace tolvane::window
