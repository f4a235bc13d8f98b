#pragma once

#include <cstdint>
#include <span>

#include "platform/automation.h"
#include "platform/event_loop.h"
#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane {

/// What a workbook of the log holds and where it goes.
struct LogWorkbook {
  StringView path;
  StringView date;  // of the flush, as text
  StringView str_bitrate;
  StringView hardware_information;
  std::span<const String> records;  // 20,001 x 12 cells, filled or not; empty for none at all
};

/// Builds, saves and closes the workbook by a fixed number of automation calls. False at the first
/// call that fails; the sheet in progress then stays open in the server. Yields once, before the
/// save.
[[nodiscard]] bool WriteLogWorkbook(platform::AutomationObject* objExcel,
                                    const LogWorkbook& workbook, const ELM327_Info& device,
                                    platform::EventLoop& events);

}  // namespace tolvane
