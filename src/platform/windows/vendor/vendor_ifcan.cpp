#include "platform/windows/vendor/vendor_libraries.h"
#include "receive/adapters/interfacecan.h"

namespace tolvane::platform::windows {
namespace {

// Without the library no handle is valid.
constexpr std::int32_t kInvalidHandle = InterfaceCAN{}.IFCAN_ERROR_INVALID_HANDLE;

}  // namespace

std::int32_t WindowsIfcan::CanOpenPort(const std::string& name) {
  return library_.Load(path_) ? library_->CanOpenPort(name.c_str()) : kNoPort;
}

std::int32_t WindowsIfcan::CanClosePort(std::int32_t handle) {
  return library_ ? library_->CanClosePort(handle) : kInvalidHandle;
}

std::int32_t WindowsIfcan::CanGetConfig(std::int32_t handle, IfcanConfig& config) {
  return library_ ? library_->CanGetConfig(handle, &config) : kInvalidHandle;
}

std::int32_t WindowsIfcan::CanSetConfig(std::int32_t handle, const IfcanConfig& config) {
  return library_ ? library_->CanSetConfig(handle, &config) : kInvalidHandle;
}

std::int32_t WindowsIfcan::CanActivate(std::int32_t handle) {
  return library_ ? library_->CanActivate(handle) : kInvalidHandle;
}

std::int32_t WindowsIfcan::CanDeactivate(std::int32_t handle) {
  return library_ ? library_->CanDeactivate(handle) : kInvalidHandle;
}

std::int32_t WindowsIfcan::CanReceiveMessage(std::int32_t handle, IfcanMessage& message,
                                             std::int32_t& count) {
  return library_ ? library_->CanReceiveMessage(handle, &message, &count) : kInvalidHandle;
}

std::int32_t WindowsIfcan::CanGetPortInformation(std::int32_t handle,
                                                 IfcanPortInformation& information) {
  return library_ ? library_->CanGetPortInformation(handle, &information) : kInvalidHandle;
}

}  // namespace tolvane::platform::windows
