#pragma once

#include <array>
#include <cstdint>

namespace tolvane::simulator {

enum class FrameKind : std::uint8_t {
  kData,
  kRemote,
  kError,
  kTransmitted,  // a data frame that this adapter itself has sent
};

inline constexpr std::uint32_t kMaxStandardId = 0x7FF;
inline constexpr std::uint32_t kMaxExtendedId = 0x1FFFFFFF;

/// One frame on the simulated bus. Bytes beyond the frame's length are 0.
struct BusFrame {
  std::int64_t time_us = 0;  // bus time since the source began
  std::uint32_t id = 0;      // 11 or 29 bits
  bool extended = false;
  FrameKind kind = FrameKind::kData;
  std::uint8_t dlc = 0;  // 0 to 15; above 8 still means eight bytes
  std::array<std::uint8_t, 8> data{};

  bool operator==(const BusFrame&) const = default;
};

/// Something that talks on the bus.
class BusSource {
 public:
  virtual ~BusSource() = default;

  /// Told the bus time ahead of a look for frames. What comes from outside is taken here.
  virtual void Reach(std::int64_t /*bus_us*/) {}

  /// The next frame, false after the last one, or while none has come from outside. Times never
  /// step back. Allocates nothing.
  virtual bool Next(BusFrame& frame) = 0;
};

/// Which identifiers a source that makes its own frames uses.
enum class IdFormat : std::uint8_t { kStandard, kExtended, kBoth };

}  // namespace tolvane::simulator
