#pragma once

#include <cstdint>
#include <string>

#include "tools/log/reading/line_source.h"

namespace tolvane::logtool {

/// What stands ahead of the records, in the code page of the system that wrote it.
struct LogHead {
  std::string program;
  std::string written;  // when this file was
  std::string bit_rate;
  std::string adapter;
  std::string comment;
  bool with_mark = false;  // 29-bit mode
  std::size_t lines = 0;

  /// Whether two files can be of one run.
  [[nodiscard]] bool IsOfRunOf(const LogHead& other) const {
    return program == other.program && bit_rate == other.bit_rate && adapter == other.adapter &&
           comment == other.comment && with_mark == other.with_mark;
  }
};

enum class HeadOutcome : std::uint8_t { kHead, kNoLog, kUnreadable };

/// Reads up to the line of the columns, by which a log is known.
[[nodiscard]] HeadOutcome ReadLogHead(LineSource& lines, LogHead& head);

}  // namespace tolvane::logtool
