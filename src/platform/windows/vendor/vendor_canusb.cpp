#include <algorithm>
#include <vector>

#include "platform/windows/vendor/vendor_libraries.h"

namespace tolvane::platform::windows {
namespace {

// Drivers are given more room than they were told of: a text that fills its buffer may be followed
// by a NUL that nobody counted.
constexpr std::size_t kSlack = 64;

/// Calls `fill(buffer)` on a roomy copy of the text and takes the `Size` bytes that count: what the
/// driver does not write stays as its caller left it.
template <std::size_t Size, typename Fill>
auto FillText(std::array<char, Size>& text, Fill fill) {
  std::array<char, Size + kSlack> buffer{};
  std::ranges::copy(text, buffer.begin());
  const auto result = fill(buffer.data());
  std::copy_n(buffer.begin(), Size, text.begin());
  return result;
}

}  // namespace

std::int16_t WindowsCanusb::canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) {
  if (!library_.Load(path_)) return 0;
  return FillText(serial, [this](char* buffer) {
    return library_->canusb_getFirstAdapter(buffer, kSerialSize);
  });
}

std::int16_t WindowsCanusb::canusb_getNextAdapter(std::array<char, kSerialSize>& serial) {
  if (!library_.Load(path_)) return 0;
  return FillText(serial, [this](char* buffer) {
    return library_->canusb_getNextAdapter(buffer, kSerialSize);
  });
}

std::int32_t WindowsCanusb::canusb_Open(const std::string& serial, std::string& rate,
                                        std::int32_t acceptance_code, std::int32_t acceptance_mask,
                                        std::int32_t flags) {
  if (!library_.Load(path_)) return 0;
  std::vector<char> buffer(rate.size() + kSlack, '\0');
  std::ranges::copy(rate, buffer.begin());
  const std::int32_t handle =
      library_->canusb_Open(serial.c_str(), buffer.data(), acceptance_code, acceptance_mask, flags);
  rate.assign(buffer.begin(), std::ranges::find(buffer, '\0'));
  return handle;
}

void WindowsCanusb::canusb_Close(std::int32_t handle) {
  if (library_) library_->canusb_Close(handle);
}

std::int32_t WindowsCanusb::canusb_Read(std::int32_t handle, CanusbMessage& message) {
  return library_ ? library_->canusb_Read(handle, &message) : 0;
}

std::int32_t WindowsCanusb::canusb_VersionInfo(std::int32_t handle,
                                               std::array<char, kVersionSize>& version) {
  if (!library_) return 0;
  return FillText(version, [this, handle](char* buffer) {
    return library_->canusb_VersionInfo(handle, buffer);
  });
}

}  // namespace tolvane::platform::windows
