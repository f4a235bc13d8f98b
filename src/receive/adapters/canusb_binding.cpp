#include "receive/adapters/canusb_binding.h"

#include "platform/byte_text.h"
#include "receive/adapters/bit_rate.h"

namespace tolvane {
namespace {

constexpr int kExtended = CANUSB{}.CANMSG_EXTENDED;

}  // namespace

bool CanusbBinding::TakeRate(std::int32_t t_bitRate) {
  const BitRate* rate = BitRateOf(t_bitRate);
  rate_ = rate == nullptr ? std::string() : NarrowText(rate->canusb);
  return true;
}

bool CanusbBinding::Open() {
  CAN_d_.CAN_USB_Handle = canusbdrv_.canusb_Open(
      NarrowText(CAN_d_.CAN_USB_SelectSerial), rate_, CAN_u_.CANUSB_ACCEPTANCE_CODE_ALL,
      CAN_u_.CANUSB_ACCEPTANCE_MASK_ALL, CAN_u_.CANUSB_FLAG_TIMESTAMP);
  return CAN_d_.CAN_USB_Handle > 0;
}

const ReceivedFrame* CanusbBinding::Read() {
  if (canusbdrv_.canusb_Read(CAN_d_.CAN_USB_Handle, record_) <= 0) return nullptr;
  frame_.id = record_.id;
  frame_.can_DLC = record_.len;
  frame_.plain_standard = record_.flags == 0;
  frame_.device_time = record_.timestamp;
  frame_.key = KeyFlagsOf(record_.flags);
  return &frame_;
}

std::int32_t CanusbBinding::Close() {
  canusbdrv_.canusb_Close(CAN_d_.CAN_USB_Handle);
  return 0;
}

KeyFlags CanusbBinding::KeyFlagsOf(std::uint8_t flags) {
  const int whole = flags / kExtended;
  // Half of the divisor is added, and one less where the quotient is even.
  const int rounded = (flags + kExtended / 2 - 1 + whole) / kExtended;
  KeyFlags key = {.match = {}, .insert = static_cast<std::uint8_t>(rounded), .can_Flag = rounded};
  if (flags % kExtended == 0) key.match = static_cast<std::uint8_t>(whole);
  return key;
}

}  // namespace tolvane
