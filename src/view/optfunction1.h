#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane::OptFunction1 {

/// 1 when an enabled exclusion range contains `id`, both bounds included, else 0. IDs compare as
/// signed numbers; a range whose start is above its end contains nothing.
[[nodiscard]] std::int32_t Check_DisableID(std::int32_t id, const ELM327_Info& device);

/// The foot of the page: a blank line, one line for each enabled range, and one more when the
/// ranges apply to the logs too. Empty when no range is enabled.
[[nodiscard]] String Make_DisableID_Text(const ELM327_Info& device);

}  // namespace tolvane::OptFunction1
