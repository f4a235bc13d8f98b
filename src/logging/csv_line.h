#pragma once

#include <cstddef>
#include <span>

#include "logging/log_record.h"
#include "logging/log_table.h"
#include "platform/string.h"

namespace tolvane {

constexpr std::size_t kCsvLine_MAX = 96;  // characters; the longest line has 87

// What stands between the parts of a line: behind time and identifier; ahead of the first byte; and
// ahead of each other one.
inline constexpr StringView kCsvGap = u" , ";
inline constexpr StringView kCsvBytesGap = u" ,  ";
inline constexpr StringView kCsvByteGap = u",";

/// The marks of 29-bit mode, between time and identifier, each with the gap behind it.
inline constexpr StringView kCsvMarkExtended = u"* , ";
inline constexpr StringView kCsvMarkStandard = u"  , ";

[[nodiscard]] constexpr StringView CsvMark29(std::int32_t can_Flag) {
  return can_Flag == 1 ? kCsvMarkExtended : kCsvMarkStandard;
}

/// Writes one line, CR LF included, to `line`, which has room for kCsvLine_MAX characters.
/// `mark` has at most 4 characters, `identifier` at most 15. Returns the number of characters.
std::size_t WriteCsvLine(const LogRecord& record, StringView mark, StringView identifier,
                         char16_t* line);

/// Appends the same line for a row of the spreadsheet records; `with_mark` is true in 29-bit mode.
void AppendCsvLine(std::span<const String, LogTable::kColumns> row, bool with_mark, String& lines);

}  // namespace tolvane
