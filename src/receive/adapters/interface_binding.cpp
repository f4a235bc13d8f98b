#include "receive/adapters/interface_binding.h"

#include "receive/adapters/bit_rate.h"
#include "receive/adapters/handle_text.h"
#include "receive/adapters/id_limits.h"

namespace tolvane {
namespace {

constexpr std::int32_t kNoPort = platform::IfcanLibrary::kNoPort;
constexpr std::int32_t kTimestampsPerMillisecond = 1000;

}  // namespace

bool InterfaceBinding::TakeRate(std::int32_t t_bitRate) {
  const BitRate* rate = BitRateOf(t_bitRate);
  if (rate == nullptr || !rate->interface_board) return false;
  rate_ = *rate->interface_board;
  return true;
}

bool InterfaceBinding::Open() {
  const std::int32_t handle = IFCan_.CanOpenPort(PortName(IfCan_d_.Interface_CAN_SelectNo));
  IfCan_d_.Interface_CAN_Handle = HandleText(handle);
  if (IFCan_.CanGetConfig(Handle(), config_) != IfCan_u_.IFCAN_ERROR_SUCCESS) {
    IFCan_.CanClosePort(Handle());
    IfCan_d_.Interface_CAN_Handle = HandleText(kNoPort);
  }
  return Handle() != kNoPort;
}

void InterfaceBinding::Configure(const ELM327_Info& device) {
  config_.baud_rate = rate_;
  if (device.t_silent_mode == 0) config_.mode = IfCan_u_.CAN_NORMAL_MODE;
  if (device.t_silent_mode == 1) config_.mode = IfCan_u_.CAN_LISTEN_ONLY_MODE;
  IFCan_.CanSetConfig(Handle(), config_);
}

void InterfaceBinding::GoOnBus() { IFCan_.CanActivate(Handle()); }

const ReceivedFrame* InterfaceBinding::Read() {
  std::int32_t count = 1;
  if (IFCan_.CanReceiveMessage(Handle(), record_, count) != IfCan_u_.IFCAN_ERROR_SUCCESS) {
    return nullptr;
  }
  frame_.id = record_.id & kMaxExtendedID;
  frame_.can_DLC = record_.dlc;
  frame_.plain_standard = frame_.id == record_.id;  // no other bit of the ID word is set
  frame_.device_time = record_.timestamp / kTimestampsPerMillisecond;
  frame_.key = KeyFlagsOf((record_.id & IfCan_u_.CAN_EXT_FRAME) != 0);
  return &frame_;
}

std::int32_t InterfaceBinding::Close() {
  IFCan_.CanDeactivate(Handle());
  return IFCan_.CanClosePort(Handle());
}

KeyFlags InterfaceBinding::KeyFlagsOf(bool extended) {
  const std::uint8_t flag = extended ? 1 : 0;
  return {.match = flag, .insert = flag, .can_Flag = flag};
}

std::int32_t InterfaceBinding::Handle() const {
  return HandleNumber(IfCan_d_.Interface_CAN_Handle);
}

}  // namespace tolvane
