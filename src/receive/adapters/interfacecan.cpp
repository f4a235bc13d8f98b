#include "receive/adapters/interfacecan.h"

namespace tolvane {

StringView InterfaceCAN::Get_Status_Message(std::int32_t status) const {
  const struct {
    std::int32_t status;
    StringView text;
  } messages[] = {
      {IFCAN_ERROR_NOT_READY, u"The current driver cannot be used."},
      {IFCAN_ERROR_ACCESS_DENIED, u"The current driver is deleted."},
      {IFCAN_ERROR_INVALID_PARAMETER, u"Invalid parameters are specified."},
      {IFCAN_ERROR_INSUFFICIENT_BUFFER, u"The data area passed to the system call is too small."},
      {IFCAN_ERROR_NOT_OPEN, u"The port tried to close before opening the port."},
      {IFCAN_ERROR_MEMORY_NOTALLOCATED, u"Not enough memory."},
      {IFCAN_ERROR_BUFFER_IS_FULL, u"The buffer is full."},
      {IFCAN_ERROR_BUFFER_IS_EMPTY, u"The buffer is empty."},
      {IFCAN_ERROR_CANNOT_ACCESS, u"Invalid function is specified."},
      {IFCAN_ERROR_INVALID_HANDLE, u"The device handle is invalid."},
      {IFCAN_ERROR_NOT_SUPPORTED, u"The specified capability is not supported."},
      {IFCAN_ERROR_NOW_SENDING, u"It is cycle or data transmission now."},
      {IFCAN_ERROR_USB_TIMEOUT, u"USB communicate Timeout."},
      {IFCAN_ERROR_USBIO_FAILED, u"USB communicate failed."},
  };
  for (const auto& message : messages) {
    if (message.status == status) return message.text;
  }
  return {};
}

}  // namespace tolvane
