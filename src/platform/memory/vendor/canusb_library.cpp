#include "platform/memory/vendor/canusb_library.h"

#include "platform/memory/vendor/call_text.h"

namespace tolvane::platform::memory {

std::int16_t CanusbLibrary::canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) {
  journal_.Note("canusb_getFirstAdapter()");
  next_adapter_ = 0;
  return GiveAdapter(serial);
}

std::int16_t CanusbLibrary::canusb_getNextAdapter(std::array<char, kSerialSize>& serial) {
  journal_.Note("canusb_getNextAdapter()");
  return GiveAdapter(serial);
}

std::int16_t CanusbLibrary::GiveAdapter(std::array<char, kSerialSize>& serial) {
  if (next_adapter_ >= serials.size()) return 0;
  const std::string& text = serials[next_adapter_++];
  if (Writes(search_result)) CopyText(text, serial);
  return search_result;
}

std::int32_t CanusbLibrary::canusb_Open(const std::string& serial, std::string& rate,
                                        std::int32_t acceptance_code, std::int32_t acceptance_mask,
                                        std::int32_t flags) {
  journal_.Note(
      CallText("canusb_Open", {Quoted(serial), Quoted(rate), std::to_string(acceptance_code),
                               std::to_string(acceptance_mask), std::to_string(flags)}));
  return open_result;
}

void CanusbLibrary::canusb_Close(std::int32_t handle) {
  journal_.Note(CallText("canusb_Close", {handle}));
}

std::int32_t CanusbLibrary::canusb_Read(std::int32_t handle, CanusbMessage& message) {
  if (note_reads) journal_.Note(CallText("canusb_Read", {handle}));
  const CanusbMessage* frame = frames.Take();
  if (frame == nullptr) return empty_read_result;
  if (read_result <= 0) return read_result;
  const auto before = message.data;
  message = *frame;
  if (only_bytes_of_length) {
    message.data = before;
    WriteBytes(frame->data, frame->len, message.data);
  }
  return read_result;
}

std::int32_t CanusbLibrary::canusb_VersionInfo(std::int32_t handle,
                                               std::array<char, kVersionSize>& text) {
  journal_.Note(CallText("canusb_VersionInfo", {handle}));
  if (Writes(version_result)) CopyText(version, text);
  return version_result;
}

}  // namespace tolvane::platform::memory
