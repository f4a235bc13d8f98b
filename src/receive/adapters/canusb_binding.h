#pragma once

#include <string>

#include "platform/canusb_library.h"
#include "receive/adapters/binding.h"
#include "receive/adapters/can_db.h"
#include "receive/adapters/canusb.h"

namespace tolvane {

/// CANUSB through canusbdrv.dll. It refuses no rate: an unknown one is tried as an empty text. It
/// goes on the bus with the open and has no silent mode.
class CanusbBinding final : public Binding {
 public:
  CanusbBinding(platform::CanusbLibrary& canusbdrv, const CANUSB& CAN_u, CAN_DB& CAN_d)
      : canusbdrv_(canusbdrv), CAN_u_(CAN_u), CAN_d_(CAN_d) {}

  [[nodiscard]] bool TakeRate(std::int32_t t_bitRate) override;
  [[nodiscard]] bool Open() override;
  void Configure(const ELM327_Info&) override {}
  void GoOnBus() override {}
  [[nodiscard]] const ReceivedFrame* Read() override;
  std::int32_t Close() override;

  /// Flags 0 and 128 match the keys stored as 0 and 1, any others match none, so that a remote
  /// frame makes a new key each time. A new key gets flags / 128, rounded, halves to even.
  [[nodiscard]] static KeyFlags KeyFlagsOf(std::uint8_t flags);

 private:
  platform::CanusbLibrary& canusbdrv_;
  const CANUSB& CAN_u_;
  CAN_DB& CAN_d_;
  std::string rate_;
  platform::CanusbMessage record_ = {};
  ReceivedFrame frame_ = {.can_DATA = record_.data};
};

}  // namespace tolvane
