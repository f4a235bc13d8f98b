#pragma once

#include <variant>

#include "platform/string.h"

namespace tolvane::office {

/// A text, a number or a truth value; an empty text is an empty cell.
using CellValue = std::variant<String, double, bool>;

}  // namespace tolvane::office
