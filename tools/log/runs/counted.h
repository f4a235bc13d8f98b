#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tolvane::logtool {

/// "1 frame", "2 frames".
[[nodiscard]] inline std::string Counted(std::uint64_t number, std::string_view noun) {
  return std::to_string(number).append(" ").append(noun).append(number == 1 ? "" : "s");
}

}  // namespace tolvane::logtool
