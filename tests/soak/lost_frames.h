#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/soak/gap_causes.h"
#include "tests/soak/log_comparison.h"

namespace tolvane::soak {

/// The longest of the gaps in which the queue may have run full ahead of a loss: what lay in it
/// then is delivered between the two. `gaps` begin with the longest one. Null when none was kept.
[[nodiscard]] const CausedGap* GapOf(const Loss& loss, const std::vector<CausedGap>& gaps,
                                     std::int64_t queue);

/// All losses by the main cause of the gaps that led to them, the most frames first, such as "300
/// frames at 2 places: flush; 40 frames at 1 place: no gap of those that were kept". Empty without
/// any.
[[nodiscard]] std::string LossesByCause(const std::vector<Loss>& losses,
                                        const std::vector<CausedGap>& gaps,
                                        const std::vector<Moment>& moments, std::int64_t queue);

}  // namespace tolvane::soak
