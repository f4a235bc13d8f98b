#include "tests/fuzz/bus_frame.h"

namespace tolvane::fuzz {
namespace {

constexpr std::int32_t kHighest11 = 0x7FF;
constexpr std::int32_t kHighest29 = 0x1FFFFFFF;

/// The identifier that counts, and whether the adapter's own rules let the frame in.
struct Heard {
  std::int32_t id;
  bool is_sound;
};

Heard OnCanusb(const BusFrame& frame, bool is_29) {
  if (is_29) return {frame.id, frame.id <= kHighest29};
  return {frame.id, frame.id >= 0 && frame.id <= kHighest11 && (frame.flag & 0xFF) == 0};
}

/// The format is bit 31 of the identifier. A filter applies to the workers that exclude.
Heard OnInterface(const BusFrame& frame, bool is_29, const ELM327_Info& device) {
  const bool excludes = device.t_Save_ID_DisableMode == 1 || device.t_MsgFmtTyp == 1;
  const bool extended = frame.id < 0;
  const bool filtered = excludes && device.t_MsgFmtTyp != 0;
  const bool passes = !filtered || (device.t_MsgFmtTyp == 1 && extended == is_29);
  if (is_29) return {frame.id & kHighest29, passes};
  return {frame.id, passes && frame.id >= 0 && frame.id <= kHighest11};
}

Heard OnKvaser(const BusFrame& frame, bool is_29) {
  constexpr std::int32_t kStandard = 2;
  if (is_29) return {frame.id, frame.id >= 0 && frame.id <= kHighest29};
  return {frame.id, frame.id >= 0 && frame.id <= kHighest11 && frame.flag == kStandard};
}

bool IsExcluded(std::int32_t id, const ELM327_Info& device) {
  for (std::int16_t i = 0; i < 8; ++i) {
    if (device.t_DisableID_ON(i) == 1 && id >= device.t_DisableID_Start(i) &&
        id <= device.t_DisableID_End(i)) {
      return true;
    }
  }
  return false;
}

}  // namespace

bool IsTaken(const BusFrame& frame, const ELM327_Info& device) {
  const bool is_29 = device.t_msgID_type == kMsgIdType29Bit;
  const Heard heard = device.t_select_Vender == kVenderCanusb ? OnCanusb(frame, is_29)
                      : device.t_select_Vender == kVenderInterface
                          ? OnInterface(frame, is_29, device)
                          : OnKvaser(frame, is_29);
  if (!heard.is_sound) return false;
  if (device.t_Save_ID_DisableMode == 1) return !IsExcluded(heard.id, device);
  // Behind the filter alone any other number than 0 drops everything.
  return device.t_MsgFmtTyp != 1 || device.t_Save_ID_DisableMode == 0;
}

}  // namespace tolvane::fuzz
