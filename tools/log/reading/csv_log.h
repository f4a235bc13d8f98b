#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "tools/log/reading/line_source.h"
#include "tools/log/reading/log_frame.h"
#include "tools/log/reading/log_head.h"
#include "tools/log/reading/record_line.h"

namespace tolvane::logtool {

/// One file of a log: its head, then record by record.
class CsvLog {
 public:
  enum class Outcome { kFrame, kEnd, kFault };

  /// What was mended on the way.
  struct Mended {
    std::uint64_t bare_ids = 0;      // identifiers without their zeros
    std::uint64_t stray_blocks = 0;  // zeros of another file's identifiers, ahead of a record
    std::uint64_t strays = 0;        // zeros in all these

    Mended& operator+=(const Mended& other);
  };

  explicit CsvLog(ByteSource& bytes) : lines_(bytes) {}

  /// Comes first. False, with a fault, when this is no log.
  [[nodiscard]] bool ReadHead();
  [[nodiscard]] const LogHead& Head() const { return head_; }

  /// Behind a fault the next call goes on with the next line, unless IsBroken.
  [[nodiscard]] Outcome Next(LogFrame& frame);

  /// The line of the last record or fault, from 1; 0 of one of the whole file.
  [[nodiscard]] std::uint64_t Line() const { return line_; }
  [[nodiscard]] std::string_view Fault() const { return fault_; }
  /// True when the file could not be read on.
  [[nodiscard]] bool IsBroken() const { return is_broken_; }
  [[nodiscard]] const Mended& WhatWasMended() const { return mended_; }

 private:
  [[nodiscard]] Outcome Fail(std::string_view fault);
  [[nodiscard]] Outcome EndOf(LineSource::Outcome outcome);
  /// Zeros that no record follows: the last file of a run had nothing else.
  [[nodiscard]] bool IsBlockAlone(std::string_view line) const;
  void NoteTraits(const LineTraits& traits);

  LineSource lines_;
  LogHead head_;
  std::uint64_t line_ = 0;
  std::string_view fault_;
  bool is_broken_ = false;
  Mended mended_;
};

}  // namespace tolvane::logtool
