#pragma once

#include <cstdint>
#include <optional>

#include "platform/code_page.h"
#include "platform/local_time.h"
#include "tools/log/reading/bytes.h"
#include "tools/log/runs/log_files.h"

namespace tolvane::logtool {

/// What the command has of its system. Texts are UTF-8.
struct Outside {
  LogFiles& files;
  ByteSink& output;
  ByteSink& messages;
  platform::CodePage& code_page;
  /// Seconds since 1970 of a moment as the clock on the wall shows it here; its weekday is not
  /// looked at. Empty for a moment that there is not.
  std::optional<std::int64_t> (*unix_seconds)(const platform::LocalTime& time);
};

}  // namespace tolvane::logtool
