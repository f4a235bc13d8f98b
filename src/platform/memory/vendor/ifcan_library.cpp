#include "platform/memory/vendor/ifcan_library.h"

#include <algorithm>

#include "platform/memory/vendor/call_text.h"

namespace tolvane::platform::memory {
namespace {

constexpr std::int32_t kInvalidHandle = InterfaceCAN{}.IFCAN_ERROR_INVALID_HANDLE;

}  // namespace

std::int32_t IfcanLibrary::HandleOf(const Port& port) {
  return port.handle.value_or(port.number + kHandleBase);
}

const IfcanLibrary::Port* IfcanLibrary::PortOf(std::int32_t handle) const {
  const auto port = std::find_if(ports.begin(), ports.end(), [handle](const Port& candidate) {
    return HandleOf(candidate) == handle;
  });
  return port == ports.end() ? nullptr : &*port;
}

std::int32_t IfcanLibrary::StatusFor(std::int32_t handle, std::int32_t status) const {
  return PortOf(handle) == nullptr ? kInvalidHandle : status;
}

std::int32_t IfcanLibrary::CanOpenPort(const std::string& name) {
  journal_.Note(CallText("CanOpenPort", {Quoted(name)}));
  for (const Port& port : ports) {
    if (name == "IFCAN" + std::to_string(port.number)) return HandleOf(port);
  }
  return kNoPort;
}

std::int32_t IfcanLibrary::CanClosePort(std::int32_t handle) {
  journal_.Note(CallText("CanClosePort", {handle}));
  return StatusFor(handle, close_status);
}

std::int32_t IfcanLibrary::CanGetConfig(std::int32_t handle, IfcanConfig& read) {
  journal_.Note(CallText("CanGetConfig", {handle}));
  const std::int32_t status = StatusFor(handle, get_config_status);
  if (Writes(status)) read = config;
  return status;
}

std::int32_t IfcanLibrary::CanSetConfig(std::int32_t handle, const IfcanConfig& written) {
  const auto& kept = written.passed_through;
  journal_.Note(CallText("CanSetConfig", {handle, written.mode, kept[0], kept[1], kept[2], kept[3],
                                          kept[4], written.baud_rate}));
  return StatusFor(handle, set_config_status);
}

std::int32_t IfcanLibrary::CanActivate(std::int32_t handle) {
  journal_.Note(CallText("CanActivate", {handle}));
  return StatusFor(handle, activate_status);
}

std::int32_t IfcanLibrary::CanDeactivate(std::int32_t handle) {
  journal_.Note(CallText("CanDeactivate", {handle}));
  return StatusFor(handle, deactivate_status);
}

std::int32_t IfcanLibrary::CanReceiveMessage(std::int32_t handle, IfcanMessage& message,
                                             std::int32_t& count) {
  if (note_reads) journal_.Note(CallText("CanReceiveMessage", {handle, count}));
  const IfcanMessage* frame = frames.Take();
  count = frame == nullptr ? 0 : 1;
  if (frame == nullptr) return empty_read_status;
  const auto before = message.data;
  message = *frame;
  if (only_bytes_of_length) {
    message.data = before;
    WriteBytes(frame->data, frame->dlc, message.data);
  }
  return 0;
}

std::int32_t IfcanLibrary::CanGetPortInformation(std::int32_t handle,
                                                 IfcanPortInformation& information) {
  journal_.Note(CallText("CanGetPortInformation", {handle}));
  const Port* port = PortOf(handle);
  if (port == nullptr) return kInvalidHandle;
  if (Writes(port->information_status)) information = port->information;
  return port->information_status;
}

}  // namespace tolvane::platform::memory
