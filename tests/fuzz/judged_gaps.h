#pragma once

#include <cstddef>
#include <vector>

#include "tools/log/reading/log_frame.h"

namespace tolvane::fuzz {

/// Has the gaps of these frames found, and judges them by what the frames themselves say: each gap
/// that is told is one, what is plainly one of all is told, none of a regular identifier is hidden,
/// and no lost frame counts twice.
void JudgeGaps(const std::vector<logtool::LogFrame>& frames, double multiple);

/// They are the same where the clock jumps every so many frames, ahead or back. For whole ms, in
/// their order, and less than a quarter of an hour.
void JudgeJumps(const std::vector<logtool::LogFrame>& frames, std::size_t between, double multiple);

}  // namespace tolvane::fuzz
