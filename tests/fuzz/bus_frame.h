#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>

#include "platform/memory/vendor/canlib_library.h"
#include "platform/memory/vendor/canusb_library.h"
#include "platform/memory/vendor/ifcan_library.h"
#include "run/elm327_info.h"

namespace tolvane::fuzz {

/// A frame as any of the three libraries may deliver it, sound or not.
struct BusFrame {
  std::int32_t id;
  std::int32_t flag;
  std::int32_t dlc;
  std::int32_t stamp;
  std::array<std::uint8_t, 8> data;

  [[nodiscard]] platform::CanusbMessage ForCanusb() const {
    return {.id = id,
            .timestamp = stamp,
            .flags = static_cast<std::uint8_t>(flag),
            .len = static_cast<std::uint8_t>(dlc),
            .data = data};
  }
  [[nodiscard]] platform::IfcanMessage ForInterface() const {
    return {.dlc = dlc, .word2 = flag, .id = id, .data = data, .timestamp = stamp};
  }
  [[nodiscard]] platform::memory::CanlibFrame ForKvaser() const {
    return {.id = id, .msg = data, .dlc = dlc, .flag = flag, .time = stamp};
  }
};

/// What a log tells of a frame besides its time and its format.
struct LoggedFrame {
  std::uint32_t id;
  std::int32_t length;
  std::array<std::uint8_t, 8> data;  // 0 where the frame has no byte

  friend auto operator<=>(const LoggedFrame&, const LoggedFrame&) = default;
};

/// What a run with these settings logs of the frame, by the rules as a user would tell them, apart
/// from the program's tables; empty when it does not take it.
[[nodiscard]] std::optional<LoggedFrame> Taken(const BusFrame& frame, const ELM327_Info& device);

}  // namespace tolvane::fuzz
