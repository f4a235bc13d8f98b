// The exports of the simulated canusbdrv.dll. Only this file knows Windows and the calling
// convention; the behaviour is in CanusbBench.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>

#include "platform/windows/abi/canusbdrv_abi.h"
#include "simulator/canusb_bench.h"
#include "simulator/module_bench.h"

namespace {

using tolvane::platform::CanusbMessage;
using tolvane::simulator::CanusbBench;
using Abi = tolvane::platform::windows::abi::Canusbdrv;

CanusbBench& Library() {
  static CanusbBench library(tolvane::simulator::LoadModuleBench("canusbdrv"));
  return library;
}

/// The result register of a search. Only its lower half is the result; the upper may hold anything.
std::int32_t Register(std::int16_t result) {
  return Library().SearchUpperHalf() * 0x10000 + static_cast<std::uint16_t>(result);
}

/// Searches with the program's buffer of `size` bytes, of which at most kSerialSize are used. Bytes
/// that the driver does not write keep their values.
template <typename Search>
std::int32_t SearchInto(char* buffer, std::int32_t size, Search search) {
  std::array<char, CanusbBench::kSerialSize> text{};
  const std::size_t room = std::min<std::size_t>(std::max(size, 0), text.size());
  std::memcpy(text.data(), buffer, room);
  const std::int16_t result = search(text);
  std::memcpy(buffer, text.data(), room);
  return Register(result);
}

}  // namespace

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canusb_getFirstAdapter(char* serial,
                                                                     std::int32_t size) {
  return SearchInto(serial, size,
                    [](auto& text) { return Library().canusb_getFirstAdapter(text); });
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canusb_getNextAdapter(char* serial,
                                                                    std::int32_t size) {
  return SearchInto(serial, size, [](auto& text) { return Library().canusb_getNextAdapter(text); });
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canusb_Open(const char* serial, char* rate,
                                                          std::int32_t acceptance_code,
                                                          std::int32_t acceptance_mask,
                                                          std::int32_t flags) {
  std::string rate_text = rate == nullptr ? "" : rate;
  const std::int32_t handle = Library().canusb_Open(serial == nullptr ? "" : serial, rate_text,
                                                    acceptance_code, acceptance_mask, flags);
  if (rate != nullptr) std::memcpy(rate, rate_text.c_str(), rate_text.size() + 1);
  return handle;
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canusb_Close(std::int32_t handle) {
  return Library().Close(handle);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canusb_Read(std::int32_t handle,
                                                          CanusbMessage* message) {
  return Library().canusb_Read(handle, *message);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canusb_VersionInfo(std::int32_t handle,
                                                                 char* version) {
  std::array<char, CanusbBench::kVersionSize> text;
  std::memcpy(text.data(), version, text.size());
  const std::int32_t result = Library().canusb_VersionInfo(handle, text);
  std::memcpy(version, text.data(), text.size());
  return result;
}

/// The type of an export that fills the whole register of which its caller takes half.
template <typename OfCaller>
struct WholeRegister;
template <typename... Arguments>
struct WholeRegister<std::int16_t(TOLVANE_STDCALL*)(Arguments...)> {
  using Type = std::int32_t(TOLVANE_STDCALL*)(Arguments...);
};

static_assert(std::is_same_v<decltype(&canusb_getFirstAdapter),
                             WholeRegister<decltype(Abi::canusb_getFirstAdapter)>::Type> &&
              std::is_same_v<decltype(&canusb_getNextAdapter),
                             WholeRegister<decltype(Abi::canusb_getNextAdapter)>::Type> &&
              std::is_same_v<decltype(&canusb_Open), decltype(Abi::canusb_Open)> &&
              std::is_same_v<decltype(&canusb_Close), decltype(Abi::canusb_Close)> &&
              std::is_same_v<decltype(&canusb_Read), decltype(Abi::canusb_Read)> &&
              std::is_same_v<decltype(&canusb_VersionInfo), decltype(Abi::canusb_VersionInfo)>);
