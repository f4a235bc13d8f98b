#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/string.h"
#include "receive/adapters/canusb.h"
#include "receive/adapters/interfacecan.h"
#include "receive/adapters/kvasercan.h"

namespace tolvane {

/// A bit rate, and what each kind of adapter calls it; nothing where the kind lacks it. The
/// settings' dialog shows by colours which kinds have it.
struct BitRate {
  StringView text;  // in the windows and the logs
  StringView canusb;
  std::optional<std::int32_t> interface_board;
  std::optional<std::int32_t> kvaser;
};

namespace bit_rate_cells {

constexpr CANUSB kUsb;
constexpr InterfaceCAN kIf;
constexpr KvaserCAN kKv;
constexpr std::nullopt_t kNone = std::nullopt;

// In the order of the numbers of t_bitRate.
// clang-format off
constexpr std::array<BitRate, 9> kTable = {{
    {u"1M bps",   kUsb.CAN_BAUD_1M,   kIf.CAN_BAUDRATE_1M,   kKv.canBITRATE_1M},
    {u"800k bps", kUsb.CAN_BAUD_800K, kNone,                 kNone},
    {u"500k bps", kUsb.CAN_BAUD_500K, kIf.CAN_BAUDRATE_500k, kKv.canBITRATE_500K},
    {u"250k bps", kUsb.CAN_BAUD_250K, kIf.CAN_BAUDRATE_250k, kKv.canBITRATE_250K},
    {u"100k bps", kUsb.CAN_BAUD_100K, kIf.CAN_BAUDRATE_100k, kKv.canBITRATE_100K},
    {u"50k bps",  kUsb.CAN_BAUD_50K,  kIf.CAN_BAUDRATE_50k,  kKv.canBITRATE_50K},
    {u"20k bps",  kUsb.CAN_BAUD_20K,  kNone,                 kNone},
    {u"10k bps",  kUsb.CAN_BAUD_10K,  kNone,                 kKv.canBITRATE_10K},
    {u"125k bps", kUsb.CAN_BAUD_125K, kIf.CAN_BAUDRATE_125k, kKv.canBITRATE_125K},
}};
// clang-format on

}  // namespace bit_rate_cells

/// The one of `t_bitRate`; null for a number outside 0 to 8.
[[nodiscard]] constexpr const BitRate* BitRateOf(std::int32_t t_bitRate) {
  const auto& all = bit_rate_cells::kTable;
  if (t_bitRate < 0 || t_bitRate >= static_cast<std::int32_t>(all.size())) return nullptr;
  return &all[static_cast<std::size_t>(t_bitRate)];
}

}  // namespace tolvane
