#include "tests/fuzz/bus_frame.h"

#include <algorithm>

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

bool IsLeftOut(std::int32_t id, const ELM327_Info& device) {
  if (device.t_Save_ID_DisableMode == 1) return IsExcluded(id, device);
  // Behind the filter alone any other number than 0 drops everything.
  return device.t_MsgFmtTyp == 1 && device.t_Save_ID_DisableMode != 0;
}

}  // namespace

std::optional<LoggedFrame> Taken(const BusFrame& frame, const ELM327_Info& device) {
  const bool is_29 = device.t_msgID_type == kMsgIdType29Bit;
  const bool is_canusb = device.t_select_Vender == kVenderCanusb;
  const Heard heard = is_canusb ? OnCanusb(frame, is_29)
                      : device.t_select_Vender == kVenderInterface
                          ? OnInterface(frame, is_29, device)
                          : OnKvaser(frame, is_29);
  if (!heard.is_sound || IsLeftOut(heard.id, device)) return std::nullopt;
  LoggedFrame logged{.id = static_cast<std::uint32_t>(heard.id),
                     .length = is_canusb ? frame.dlc & 0xFF : frame.dlc,
                     .data = {}};
  const auto bytes = static_cast<std::size_t>(std::clamp(logged.length, 0, 8));
  std::copy_n(frame.data.begin(), bytes, logged.data.begin());
  return logged;
}

}  // namespace tolvane::fuzz
