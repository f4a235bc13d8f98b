#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane::OptFunction1 {

/// 1 when an enabled exclusion range holds `id`, both bounds included, else 0. IDs compare as
/// signed numbers, so a range whose start lies above its end holds nothing.
[[nodiscard]] std::int32_t Check_DisableID(std::int32_t id, const ELM327_Info& device);

/// Foot of the page: one line for each enabled range below a blank line, and a last one when the
/// ranges hold for the logs too. Empty without an enabled range.
[[nodiscard]] String Make_DisableID_Text(const ELM327_Info& device);

}  // namespace tolvane::OptFunction1
