#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tolvane::platform {

/// CanGetPortInformation's record: nine 32-bit words.
struct IfcanPortInformation {
  std::int32_t ulStructLength;
  std::int32_t ulVendorID;
  std::int32_t ulDeviceID;
  std::int32_t ulSubsystemID;
  std::int32_t ulRevisionID;
  std::int32_t ulBoardID;
  std::int32_t ulModelNumber;
  std::int32_t ulChannelNumber;
  std::int32_t ulPhysicalLayer;
};
static_assert(sizeof(IfcanPortInformation) == 36);

/// CanGetConfig's and CanSetConfig's record: word 1 the mode, words 2 to 6 the board's own and
/// passed through untouched, word 7 the baud-rate code.
struct IfcanConfig {
  std::int32_t mode;
  std::array<std::int32_t, 5> passed_through;
  std::int32_t baud_rate;
};
static_assert(sizeof(IfcanConfig) == 28 && offsetof(IfcanConfig, baud_rate) == 24);

/// CanReceiveMessage's record. Bit 31 of the ID word marks an extended frame. The timestamp's
/// thousandth part counts as milliseconds.
struct IfcanMessage {
  std::int32_t dlc;
  std::int32_t word2;
  std::int32_t id;
  std::array<std::uint8_t, 8> data;
  std::int32_t timestamp;
};
static_assert(sizeof(IfcanMessage) == 24 && offsetof(IfcanMessage, id) == 8 &&
              offsetof(IfcanMessage, data) == 12 && offsetof(IfcanMessage, timestamp) == 20);

/// IFCan.dll, reached by its exported names. Statuses are 0 for success, else the codes of
/// InterfaceCAN::Get_Status_Message. A library that cannot be used opens no port. Nothing here
/// pumps messages or blocks.
class IfcanLibrary {
 public:
  static constexpr std::int32_t kNoPort = -1;

  virtual ~IfcanLibrary() = default;

  /// A port handle, or kNoPort when there is no such port.
  virtual std::int32_t CanOpenPort(const std::string& name) = 0;
  virtual std::int32_t CanClosePort(std::int32_t handle) = 0;
  virtual std::int32_t CanGetConfig(std::int32_t handle, IfcanConfig& config) = 0;
  virtual std::int32_t CanSetConfig(std::int32_t handle, const IfcanConfig& config) = 0;
  virtual std::int32_t CanActivate(std::int32_t handle) = 0;
  virtual std::int32_t CanDeactivate(std::int32_t handle) = 0;
  /// `count` is the room in `message` on the way in, 1 here, and the frames delivered on the way
  /// out, which nobody reads: success means that a frame was delivered.
  virtual std::int32_t CanReceiveMessage(std::int32_t handle, IfcanMessage& message,
                                         std::int32_t& count) = 0;
  virtual std::int32_t CanGetPortInformation(std::int32_t handle,
                                             IfcanPortInformation& information) = 0;
};

}  // namespace tolvane::platform
