#pragma once

namespace tolvane::platform {

/// `term` as the first one of a sum in the x87 format, of 64 bits of mantissa, with the unit set to
/// compute in it: rounding to nearest, every exception masked. Any library called since the last
/// sum may have left the unit otherwise; looking costs a nanosecond. The sum is to begin with what
/// comes back, or the compiler might compute it before the unit is set.
[[nodiscard]] long double ExtendedTerm(double term);

}  // namespace tolvane::platform
