#pragma once

#include <cstddef>
#include <vector>

#include "platform/string.h"

namespace tolvane::office {

/// A rectangle of texts, row by row, as one call carries it: texts.size() is rows x columns.
/// A list that came with one dimension is one row.
struct Table {
  std::size_t rows = 0;
  std::size_t columns = 0;
  std::vector<String> texts;
  bool as_typed = false;  // each text came in a VARIANT of its own: it is taken as if typed
};

}  // namespace tolvane::office
