#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "run/elm327_info.h"

namespace tolvane {

/// How a frame's format meets the keys of a 29-bit run.
struct KeyFlags {
  static constexpr std::int32_t kNone = -1;

  std::int32_t match;     // the stored flag that counts as the same key, kNone for no such flag
  std::int32_t insert;    // the flag of a new key, kNone when the frame makes no key
  std::int32_t can_Flag;  // what the log is told
  friend bool operator==(const KeyFlags&, const KeyFlags&) = default;
};

/// A frame as an adapter delivered it. `can_DATA` looks into the adapter's receive record, which
/// the next read overwrites.
struct ReceivedFrame {
  std::span<const std::uint8_t, 8> can_DATA;
  std::int32_t id = 0;       // of the Interface boards the whole ID word
  std::int32_t can_DLC = 0;  // as the adapter reported it, above 8 included
  std::int32_t flag = 0;     // CANUSB and Kvaser: the record's flags; Interface: 1 when extended
  std::int32_t device_time = 0;  // ms of the adapter's timer
  KeyFlags key = {};
};

/// One adapter kind during a run. Nothing here pumps messages or blocks.
class Binding {
 public:
  virtual ~Binding() = default;

  /// Chooses the adapter's rate for `t_bitRate`. False when the adapter has no such rate.
  [[nodiscard]] virtual bool TakeRate(std::int32_t t_bitRate) = 0;

  /// False when the adapter does not open.
  [[nodiscard]] virtual bool Open(const ELM327_Info& device) = 0;

  /// Writes rate and silent mode, where that is a step of its own. Results are not looked at.
  virtual void Configure(const ELM327_Info& device) = 0;
  /// Starts the traffic, where that is a step of its own.
  virtual void GoOnBus() = 0;

  /// Takes one frame; null when there is none or the adapter fails. The frame is the caller's to
  /// change, until the next call.
  [[nodiscard]] virtual ReceivedFrame* Read() = 0;

  /// The adapter's status of the close, 0 where there is none.
  virtual std::int32_t Close() = 0;
};

}  // namespace tolvane
