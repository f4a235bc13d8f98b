#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tools/log/reading/log_frame.h"

namespace tolvane::logtool {

enum class LineFault : std::uint8_t {
  kNone,
  kTime,
  kNoSuchTime,
  kMark,
  kIdentifier,
  kNoSuchIdentifier,
  kLength,
  kBytes,
};

/// What is wrong with a line, in a sentence that goes on behind "FILE:LINE: ".
[[nodiscard]] std::string_view FaultText(LineFault fault);

/// What a line had beside its frame.
struct LineTraits {
  std::size_t strays = 0;    // zeros ahead of the line, which belong to identifiers of another file
  bool has_bare_id = false;  // an identifier of 29-bit mode without its zeros
};

/// Takes a line apart that WriteCsvLine has written. `with_mark` in 29-bit mode. Nothing but the
/// zeros that this mode loses and collects may differ from what is written there.
[[nodiscard]] LineFault ReadRecordLine(std::string_view line, bool with_mark, LogFrame& frame,
                                       LineTraits& traits);

}  // namespace tolvane::logtool
