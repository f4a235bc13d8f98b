#include "receive/adapters/kvaser_binding.h"

#include "receive/adapters/bit_rate.h"
#include "receive/adapters/handle_text.h"

namespace tolvane {

bool KvaserBinding::TakeRate(std::int32_t t_bitRate) {
  const BitRate* rate = BitRateOf(t_bitRate);
  if (rate == nullptr || !rate->kvaser) return false;
  rate_ = *rate->kvaser;
  return true;
}

bool KvaserBinding::Open() {
  const auto selected = static_cast<std::int16_t>(kvCan_d_.KvCAN_SelectNo - 1);
  const std::int32_t handle = canlib32_.canOpenChannel(kvCan_d_.Kvaser_DevChannel(selected),
                                                       kvCan_u_.canOPEN_REQUIRE_INIT_ACCESS);
  if (handle < 0) return false;
  kvCan_d_.KvCAN_Handle = HandleText(handle);
  return true;
}

void KvaserBinding::Configure(const ELM327_Info& device) {
  // The rate is a predefined one, so the library ignores the timing values behind it.
  canlib32_.canSetBusParams(Handle(), rate_, 5, 2, 1, 1, 0);
  if (device.t_silent_mode == 0) SetDriver(kvCan_u_.canDRIVER_NORMAL);
  if (device.t_silent_mode == 1) SetDriver(kvCan_u_.canDRIVER_SILENT);
}

void KvaserBinding::SetDriver(std::int32_t driver_type) {
  canlib32_.canSetBusOutputControl(Handle(), static_cast<std::uint32_t>(driver_type));
}

void KvaserBinding::GoOnBus() { canlib32_.canBusOn(Handle()); }

const ReceivedFrame* KvaserBinding::Read() {
  const std::int32_t ret =
      canlib32_.canRead(Handle(), frame_.id, msg_, frame_.can_DLC, flag_, frame_.device_time);
  if (ret < kvCan_u_.canOK) return nullptr;
  frame_.plain_standard = flag_ == kvCan_u_.canMSG_STD;
  frame_.key = KeyFlagsOf(kvCan_u_, flag_);
  return &frame_;
}

std::int32_t KvaserBinding::Close() {
  canlib32_.canBusOff(Handle());
  canlib32_.canClose(Handle());
  return 0;
}

KeyFlags KvaserBinding::KeyFlagsOf(const KvaserCAN& kvCan_u, std::int32_t flag) {
  if (flag == kvCan_u.canMSG_STD) return {.match = 0, .insert = 0, .can_Flag = 0};
  if (flag == kvCan_u.canMSG_EXT) return {.match = 1, .insert = 1, .can_Flag = 1};
  return {.match = {}, .insert = {}, .can_Flag = 1};
}

std::int32_t KvaserBinding::Handle() const { return HandleNumber(kvCan_d_.KvCAN_Handle); }

}  // namespace tolvane
