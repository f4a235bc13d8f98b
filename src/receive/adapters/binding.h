#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "run/elm327_info.h"

namespace tolvane {

/// How a frame's format meets the keys of a 29-bit run.
struct KeyFlags {
  // The stored flag that counts as the same key, if there is one.
  std::optional<std::uint8_t> match;
  // The flag of a new key, if the frame makes one.
  std::optional<std::uint8_t> insert;
  // What the log is told: 1 for an extended frame, and with Kvaser for some other frames too; 2 for
  // extended remote ones of a CANUSB. Of a board it is the frame's format and nothing else, so the
  // format filter asks for it.
  std::int32_t can_Flag;
  friend bool operator==(const KeyFlags&, const KeyFlags&) = default;
};

/// A frame as an adapter delivered it. `can_DATA` looks into the adapter's receive record, which
/// the next read overwrites.
struct ReceivedFrame {
  std::span<const std::uint8_t, 8> can_DATA;
  std::int32_t id = 0;
  std::int32_t can_DLC = 0;      // as the adapter reported it, above 8 included
  bool plain_standard = false;   // a standard data frame, with no flag that says anything else
  std::int32_t device_time = 0;  // ms of the adapter's timer
  KeyFlags key = {};
};

/// One adapter kind during a run. Nothing here pumps messages or blocks.
class Binding {
 public:
  Binding() = default;
  Binding(const Binding&) = delete;  // the frame that Read gives looks into the binding
  Binding& operator=(const Binding&) = delete;
  virtual ~Binding() = default;

  /// Chooses the adapter's rate for `t_bitRate`. False when the adapter has no such rate.
  [[nodiscard]] virtual bool TakeRate(std::int32_t t_bitRate) = 0;

  /// False when the adapter does not open.
  [[nodiscard]] virtual bool Open() = 0;

  /// Writes rate and silent mode, where that is a step of its own. Results are not looked at.
  virtual void Configure(const ELM327_Info& device) = 0;
  /// Starts the traffic, where that is a step of its own.
  virtual void GoOnBus() = 0;

  /// Takes one frame, which stays until the next call; null when there is none or the adapter
  /// fails.
  [[nodiscard]] virtual const ReceivedFrame* Read() = 0;

  /// The adapter's status of the close, 0 where there is none.
  virtual std::int32_t Close() = 0;
};

}  // namespace tolvane
