#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/number_text.h"

namespace tolvane {

// The records of two adapter kinds keep their handle as decimal text and convert it at each use.

[[nodiscard]] inline String HandleText(std::int32_t handle) {
  return String(DecimalText(std::int64_t{handle}).View());
}

/// Of a text made by HandleText.
[[nodiscard]] inline std::int32_t HandleNumber(StringView text) {
  const bool negative = text.starts_with(u'-');
  std::int64_t number = 0;
  for (const char16_t digit : text.substr(negative ? 1 : 0)) number = number * 10 + (digit - u'0');
  return static_cast<std::int32_t>(negative ? -number : number);
}

}  // namespace tolvane
