#pragma once

#include <vector>

#include "tools/log/reading/log_frame.h"

namespace tolvane::fuzz {

/// Has the gaps of these frames found, and judges them by what the frames themselves say: each gap
/// that is told is one, none of a regular identifier is hidden, and no lost frame counts twice.
void JudgeGaps(const std::vector<logtool::LogFrame>& frames, double multiple);

}  // namespace tolvane::fuzz
