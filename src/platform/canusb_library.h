#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tolvane::platform {

/// The driver's published message record. Flags: 128 extended, 64 remote, 0 a standard data frame.
/// The timestamp counts milliseconds from 0 to 59,999 and starts over.
struct CanusbMessage {
  std::int32_t id;
  std::int32_t timestamp;
  std::uint8_t flags;
  std::uint8_t len;
  std::array<std::uint8_t, 8> data;
};
static_assert(offsetof(CanusbMessage, id) == 0 && offsetof(CanusbMessage, timestamp) == 4 &&
              offsetof(CanusbMessage, flags) == 8 && offsetof(CanusbMessage, len) == 9 &&
              offsetof(CanusbMessage, data) == 10 && sizeof(CanusbMessage) == 20);

/// canusbdrv.dll, reached by its exported names. Nothing here pumps messages or blocks.
///
/// A library that is missing, of the wrong bitness or without one of the called exports behaves
/// like one that finds no adapter: the searches and the open give 0.
class CanusbLibrary {
 public:
  static constexpr std::size_t kSerialSize = 32;   // bytes, the search buffer
  static constexpr std::size_t kVersionSize = 64;  // bytes, the version buffer

  virtual ~CanusbLibrary() = default;

  /// Both write the adapter's serial text, padded with NUL; all 32 bytes may be text. A driver that
  /// pads with one NUL alone leaves the rest as it was. The result is a signed 16-bit number,
  /// greater than 0 while an adapter was given.
  virtual std::int16_t canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) = 0;
  virtual std::int16_t canusb_getNextAdapter(std::array<char, kSerialSize>& serial) = 0;

  /// A handle greater than 0, or 0 and less on failure. `rate` comes back possibly rewritten.
  virtual std::int32_t canusb_Open(const std::string& serial, std::string& rate,
                                   std::int32_t acceptance_code, std::int32_t acceptance_mask,
                                   std::int32_t flags) = 0;
  virtual void canusb_Close(std::int32_t handle) = 0;

  /// Greater than 0 when a frame was delivered into `message`; never blocks.
  virtual std::int32_t canusb_Read(std::int32_t handle, CanusbMessage& message) = 0;

  /// Greater than 0 when the version text was written; all 64 bytes may be text.
  virtual std::int32_t canusb_VersionInfo(std::int32_t handle,
                                          std::array<char, kVersionSize>& version) = 0;
};

}  // namespace tolvane::platform
