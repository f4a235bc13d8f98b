#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "logging/log_record.h"
#include "logging/log_table.h"
#include "platform/string.h"

namespace tolvane {

// A line is ASCII, which has the same bytes in every code page. So lines are made as bytes.

constexpr std::size_t kCsvLine_MAX = 96;  // bytes; the longest line has 87

// What stands between the parts of a line: behind time and identifier; ahead of the first byte; and
// ahead of each other one.
inline constexpr std::string_view kCsvGap = " , ";
inline constexpr std::string_view kCsvBytesGap = " ,  ";
inline constexpr std::string_view kCsvByteGap = ",";

/// The marks of 29-bit mode, between time and identifier, each with the gap behind it.
inline constexpr std::string_view kCsvMarkExtended = "* , ";
inline constexpr std::string_view kCsvMarkStandard = "  , ";

[[nodiscard]] constexpr std::string_view CsvMark29(std::int32_t can_Flag) {
  return can_Flag == 1 ? kCsvMarkExtended : kCsvMarkStandard;
}

/// Writes one line, CR LF included, to `line`, which has room for kCsvLine_MAX bytes. `mark` has at
/// most 4 of them, `identifier` at most 15. Returns the number of bytes.
std::size_t WriteCsvLine(const LogRecord& record, std::string_view mark,
                         std::string_view identifier, char* line);

/// Appends the same line for a row of the spreadsheet records; `with_mark` is true in 29-bit mode.
void AppendCsvLine(std::span<const String, LogTable::kColumns> row, bool with_mark,
                   std::string& lines);

}  // namespace tolvane
