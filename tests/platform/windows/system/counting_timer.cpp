// Stands for winmm.dll and tells how its timer service was called.
#include <cstdint>
#include <string>

#define EXPORTED extern "C" __declspec(dllexport)

namespace {

std::string& Calls() {
  static std::string calls;
  return calls;
}

}  // namespace

EXPORTED std::uint32_t __stdcall timeBeginPeriod(std::uint32_t period) {
  Calls() += "begin " + std::to_string(period) + '\n';
  return 0;
}

#ifndef TOLVANE_WITHOUT_END
EXPORTED std::uint32_t __stdcall timeEndPeriod(std::uint32_t period) {
  Calls() += "end " + std::to_string(period) + '\n';
  return 0;
}
#endif

/// Since the library was loaded, a line each.
EXPORTED const char* __stdcall TimerCalls() { return Calls().c_str(); }
