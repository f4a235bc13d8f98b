#pragma once

#include <cstdint>

namespace tolvane::platform {

/// What qxt100.dll answers to ColorAttenuation: `colour` (0x00BBGGRR) on its way to black: each
/// channel falls in proportion to `remaining` over `total`, rounded down. `colour` itself comes
/// back while `remaining` is at least `total`, also when `total` is 0 or less and anything remains;
/// black once nothing remains. Every argument is allowed.
[[nodiscard]] std::int32_t FadeToBlack(std::int32_t colour, std::int32_t remaining,
                                       std::int32_t total);

}  // namespace tolvane::platform
