#pragma once

#include <cstdint>
#include <span>

#include "platform/automation.h"
#include "platform/event_loop.h"
#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane {

/// The content of a log workbook and the path to save it to.
struct LogWorkbook {
  StringView path;
  StringView date;  // of the flush, as text
  StringView str_bitrate;
  StringView hardware_information;
  std::span<const String> records;  // 20,001 x 12 cells, which may be empty; an empty span: none
};

/// Builds, saves and closes the workbook with a fixed number of automation calls. Stops with false
/// at the first call that fails; the unfinished workbook then stays open in the server. Yields
/// once, before the save.
[[nodiscard]] bool WriteLogWorkbook(platform::AutomationObject* objExcel,
                                    const LogWorkbook& workbook, const ELM327_Info& device,
                                    platform::EventLoop& events);

}  // namespace tolvane
