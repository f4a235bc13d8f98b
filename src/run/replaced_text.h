#pragma once

#include <algorithm>
#include <span>

#include "platform/string.h"

namespace tolvane {

struct Replacement {
  char16_t character;
  StringView text;
};

/// `text` with each character of the list replaced.
[[nodiscard]] inline String Replaced(StringView text, std::span<const Replacement> list) {
  String result;
  for (const char16_t character : text) {
    const auto found = std::ranges::find(list, character, &Replacement::character);
    if (found == list.end()) {
      result += character;
    } else {
      result += found->text;
    }
  }
  return result;
}

}  // namespace tolvane
