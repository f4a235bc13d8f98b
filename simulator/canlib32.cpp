// The exports of the simulated canlib32.dll. Only this file knows Windows and the calling
// convention; the behaviour is in CanlibBench.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "platform/windows/abi/canlib_abi.h"
#include "simulator/canlib_bench.h"
#include "simulator/module_bench.h"

namespace {

using tolvane::simulator::CanlibBench;
using Abi = tolvane::platform::windows::abi::Canlib;

CanlibBench& Library() {
  static CanlibBench library(tolvane::simulator::LoadModuleBench("canlib32"));
  return library;
}

}  // namespace

SIMULATED_EXPORT void TOLVANE_STDCALL canInitializeLibrary() { Library().canInitializeLibrary(); }

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canGetNumberOfChannels(std::int32_t* count) {
  return Library().canGetNumberOfChannels(*count);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canGetChannelData(std::int32_t channel,
                                                                std::int32_t item, void* buffer,
                                                                std::size_t size) {
  return Library().canGetChannelData(channel, item, {static_cast<std::byte*>(buffer), size});
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canOpenChannel(std::int32_t channel,
                                                             std::int32_t flags) {
  return Library().canOpenChannel(channel, flags);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canClose(std::int32_t handle) {
  return Library().canClose(handle);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL
canSetBusParams(std::int32_t handle, std::int32_t rate, std::uint32_t tseg1, std::uint32_t tseg2,
                std::uint32_t sjw, std::uint32_t no_samp, std::uint32_t syncmode) {
  return Library().canSetBusParams(handle, rate, tseg1, tseg2, sjw, no_samp, syncmode);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canSetBusOutputControl(std::int32_t handle,
                                                                     std::uint32_t driver_type) {
  return Library().canSetBusOutputControl(handle, driver_type);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canBusOn(std::int32_t handle) {
  return Library().canBusOn(handle);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canBusOff(std::int32_t handle) {
  return Library().canBusOff(handle);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL canRead(std::int32_t handle, std::int32_t* id,
                                                      void* msg, std::int32_t* dlc,
                                                      std::int32_t* flag, std::int32_t* time) {
  // What the library does not write stays as the program left it.
  std::array<std::uint8_t, 8> data;
  std::memcpy(data.data(), msg, data.size());
  const std::int32_t status = Library().canRead(handle, *id, data, *dlc, *flag, *time);
  std::memcpy(msg, data.data(), data.size());
  return status;
}

static_assert(
    std::is_same_v<decltype(&canInitializeLibrary), decltype(Abi::canInitializeLibrary)> &&
    std::is_same_v<decltype(&canGetNumberOfChannels), decltype(Abi::canGetNumberOfChannels)> &&
    std::is_same_v<decltype(&canGetChannelData), decltype(Abi::canGetChannelData)> &&
    std::is_same_v<decltype(&canOpenChannel), decltype(Abi::canOpenChannel)> &&
    std::is_same_v<decltype(&canClose), decltype(Abi::canClose)> &&
    std::is_same_v<decltype(&canSetBusParams), decltype(Abi::canSetBusParams)> &&
    std::is_same_v<decltype(&canSetBusOutputControl), decltype(Abi::canSetBusOutputControl)> &&
    std::is_same_v<decltype(&canBusOn), decltype(Abi::canBusOn)> &&
    std::is_same_v<decltype(&canBusOff), decltype(Abi::canBusOff)> &&
    std::is_same_v<decltype(&canRead), decltype(Abi::canRead)>);
