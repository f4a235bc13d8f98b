// The exports of the simulated IFCan.dll. Only this file knows Windows and the calling convention;
// the behaviour is in IfcanBench.

#include <cstdint>
#include <type_traits>

#include "platform/windows/abi/ifcan_abi.h"
#include "simulator/ifcan_bench.h"
#include "simulator/module_bench.h"

namespace {

using tolvane::platform::IfcanConfig;
using tolvane::platform::IfcanMessage;
using tolvane::platform::IfcanPortInformation;
using tolvane::simulator::IfcanBench;
using Abi = tolvane::platform::windows::abi::Ifcan;

IfcanBench& Library() {
  static IfcanBench library(tolvane::simulator::LoadModuleBench("IFCan"));
  return library;
}

}  // namespace

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL CanOpenPort(const char* name) {
  return Library().CanOpenPort(name == nullptr ? "" : name);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL CanClosePort(std::int32_t handle) {
  return Library().CanClosePort(handle);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL CanGetConfig(std::int32_t handle,
                                                           IfcanConfig* config) {
  return Library().CanGetConfig(handle, *config);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL CanSetConfig(std::int32_t handle,
                                                           const IfcanConfig* config) {
  return Library().CanSetConfig(handle, *config);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL CanActivate(std::int32_t handle) {
  return Library().CanActivate(handle);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL CanDeactivate(std::int32_t handle) {
  return Library().CanDeactivate(handle);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL CanReceiveMessage(std::int32_t handle,
                                                                IfcanMessage* message,
                                                                std::int32_t* count) {
  return Library().CanReceiveMessage(handle, *message, *count);
}

SIMULATED_EXPORT std::int32_t TOLVANE_STDCALL
CanGetPortInformation(std::int32_t handle, IfcanPortInformation* information) {
  return Library().CanGetPortInformation(handle, *information);
}

static_assert(
    std::is_same_v<decltype(&CanOpenPort), decltype(Abi::CanOpenPort)> &&
    std::is_same_v<decltype(&CanClosePort), decltype(Abi::CanClosePort)> &&
    std::is_same_v<decltype(&CanGetConfig), decltype(Abi::CanGetConfig)> &&
    std::is_same_v<decltype(&CanSetConfig), decltype(Abi::CanSetConfig)> &&
    std::is_same_v<decltype(&CanActivate), decltype(Abi::CanActivate)> &&
    std::is_same_v<decltype(&CanDeactivate), decltype(Abi::CanDeactivate)> &&
    std::is_same_v<decltype(&CanReceiveMessage), decltype(Abi::CanReceiveMessage)> &&
    std::is_same_v<decltype(&CanGetPortInformation), decltype(Abi::CanGetPortInformation)>);
