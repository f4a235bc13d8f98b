#pragma once

#include "platform/string.h"
#include "simulator/office/cell_value.h"

namespace tolvane::office {

/// What a cell gets from a text. Number formats are the built-in ones, which bear the same numbers
/// in both kinds of workbook.
struct Typed {
  CellValue value;
  int number_format = 0;    // of a number that was written in a form of its own, 0 for none
  bool is_formula = false;  // nothing here can work one out; `value` is empty
};

/// Takes a text as a spreadsheet program does that finds it typed into a cell, which is also what
/// it does with a lone text of an automation client and with each text inside an array of VARIANT:
/// "7E8", "001", "50%", "1,234", "TRUE", "2024/1/2 3:04:05" and "3:04" are no texts, and an
/// apostrophe ahead keeps what follows a text. Month names and fractions stay texts here.
Typed ParseTyped(StringView text);

}  // namespace tolvane::office
