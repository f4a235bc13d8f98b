#include <windows.h>

#include <cstdint>
#include <type_traits>

#include "platform/colour_fade.h"
#include "platform/windows/abi/qxt100_abi.h"

extern "C" {

double TOLVANE_STDCALL qx_timeGetTime() {
  LARGE_INTEGER frequency;
  LARGE_INTEGER counter;
  // Both succeed on every system that can run the program.
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&counter);
  // Whole seconds and the rest apart: counter * 1000 would overflow after some months at the
  // frequencies of some machines.
  const std::int64_t seconds = counter.QuadPart / frequency.QuadPart;
  const std::int64_t rest = counter.QuadPart % frequency.QuadPart;
  return static_cast<double>(seconds * 1000 + rest * 1000 / frequency.QuadPart);
}

std::int32_t TOLVANE_STDCALL ColorAttenuation(std::int32_t colour, std::int32_t remaining,
                                              std::int32_t total) {
  return tolvane::platform::FadeToBlack(colour, remaining, total);
}

}  // extern "C"

using tolvane::platform::windows::abi::Qxt100;
static_assert(std::is_same_v<decltype(&qx_timeGetTime), decltype(Qxt100::qx_timeGetTime)>);
static_assert(std::is_same_v<decltype(&ColorAttenuation), decltype(Qxt100::ColorAttenuation)>);
