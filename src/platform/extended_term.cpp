#include "platform/extended_term.h"

#include <cfloat>
#include <cstdint>

namespace tolvane::platform {
namespace {

static_assert(LDBL_MANT_DIG == 64);

constexpr std::uint16_t kExtendedPrecision = 0x037F;  // rounds to nearest, masks every exception

}  // namespace

long double ExtendedTerm(double term) {
  std::uint16_t control = 0;
  asm volatile("fnstcw %0" : "=m"(control));
  if (control != kExtendedPrecision) {
    // The term passes through the setting, so that it is loaded after it.
    asm volatile("fldcw %1" : "+m"(term) : "m"(kExtendedPrecision));
  }
  return term;
}

}  // namespace tolvane::platform
