#pragma once

#include <array>

#include "platform/canlib_library.h"
#include "receive/adapters/binding.h"
#include "receive/adapters/can_db_kvaser.h"
#include "receive/adapters/kvasercan.h"

namespace tolvane {

/// A Kvaser channel through canlib32.dll.
class KvaserBinding final : public Binding {
 public:
  KvaserBinding(platform::CanlibLibrary& canlib32, const KvaserCAN& kvCan_u, CAN_DB_Kvaser& kvCan_d)
      : canlib32_(canlib32), kvCan_u_(kvCan_u), kvCan_d_(kvCan_d) {}

  [[nodiscard]] bool TakeRate(std::int32_t t_bitRate) override;
  [[nodiscard]] bool Open() override;
  void Configure(const ELM327_Info& device) override;
  void GoOnBus() override;
  [[nodiscard]] const ReceivedFrame* Read() override;
  std::int32_t Close() override;

  /// A flag that is exactly canMSG_STD or canMSG_EXT matches the keys stored as 0 or 1 and makes
  /// such a key. Any other (remote, error frame, acknowledge) matches and makes none; the log takes
  /// it for extended.
  [[nodiscard]] static KeyFlags KeyFlagsOf(const KvaserCAN& kvCan_u, std::int32_t flag);

 private:
  [[nodiscard]] std::int32_t Handle() const;
  void SetDriver(std::int32_t driver_type);

  platform::CanlibLibrary& canlib32_;
  const KvaserCAN& kvCan_u_;
  CAN_DB_Kvaser& kvCan_d_;
  std::int32_t rate_ = 0;
  std::array<std::uint8_t, 8> msg_ = {};
  std::int32_t flag_ = 0;
  ReceivedFrame frame_ = {.can_DATA = msg_};
};

}  // namespace tolvane
