#pragma once

#include <string>
#include <vector>

#include "platform/code_page.h"
#include "tools/log/runs/complaints.h"
#include "tools/log/runs/log_files.h"
#include "tools/log/runs/log_run.h"

namespace tolvane::logtool {

struct InfoWishes {
  double multiple = 5.0;  // a silence of more cycles is a gap
  bool as_json = false;
  bool mends_clock = false;
};

/// Reads runs to their ends and tells of them. Empty where the complaints end the reading.
[[nodiscard]] std::string InfoOf(const std::vector<LogRun>& runs, const InfoWishes& wishes,
                                 LogFiles& files, platform::CodePage& code_page,
                                 Complaints& complaints);

}  // namespace tolvane::logtool
