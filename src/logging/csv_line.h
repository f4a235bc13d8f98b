#pragma once

#include <cstddef>
#include <span>

#include "logging/log_record.h"
#include "logging/log_table.h"
#include "platform/string.h"

namespace tolvane {

constexpr std::size_t kCsvLine_MAX = 96;  // characters; the longest line has 87

/// The text between time and identifier in a line of 29-bit mode.
[[nodiscard]] constexpr StringView CsvMark29(std::int32_t can_Flag) {
  return can_Flag == 1 ? StringView(u"* , ") : StringView(u"  , ");
}

/// Writes one line, CR LF included, to `line`, which has room for kCsvLine_MAX characters.
/// `mark` has at most 4 characters, `identifier` at most 15. Returns the number of characters.
std::size_t WriteCsvLine(const LogRecord& record, StringView mark, StringView identifier,
                         char16_t* line);

/// Appends the same line for a row of the spreadsheet records; `with_mark` is true in 29-bit mode.
void AppendCsvLine(std::span<const String, LogTable::kColumns> row, bool with_mark, String& lines);

}  // namespace tolvane
