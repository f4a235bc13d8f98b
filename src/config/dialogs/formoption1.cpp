// Here two loops stand in place of the other dialogs' list of pairs: the two ends of a range, and
// of a marker's bytes, are taken together or not at all, and the last exclusion row is shown and
// not taken.
#include "config/dialogs/formoption1.h"

#include "config/dialogs/number_input.h"
#include "receive/adapters/id_limits.h"
#include "run/number_text.h"

namespace tolvane {

namespace {

bool IsID(std::int64_t value) { return value >= 0 && value <= kMaxExtendedID; }

void TakeRange(const TextControl& start_box, const TextControl& end_box, std::int16_t row,
               ELM327_Info& device) {
  const std::int64_t start = HexInput(start_box.text).value_or(0);
  const std::int64_t end = HexInput(end_box.text).value_or(0);
  if (!IsID(start) || !IsID(end) || start > end) return;
  device.t_DisableID_Start(row, static_cast<std::int32_t>(start));
  device.t_DisableID_End(row, static_cast<std::int32_t>(end));
}

void TakeMarkerBytes(const TextControl& start_box, const TextControl& end_box, std::int16_t row,
                     ELM327_Info& device) {
  const auto start = WholeNumberInput(start_box.text, 1, 8);
  const auto end = WholeNumberInput(end_box.text, 1, 8);
  if (!start || !end || *start > *end) return;
  device.t_MsgMarkerStartByte(row, *start);
  device.t_MsgMarkerEndByte(row, *end);
}

}  // namespace

void FormOption1::read_setting(const ELM327_Info& device) {
  Caption = device.Application_title + u"　　- 拡張機能１ -";
  for (std::size_t i = 0; i < kRows; ++i) {
    const auto row = static_cast<std::int16_t>(i);
    CB_DisableID[i].checked = device.t_DisableID_ON(row) == 1;
    TB_DisableID_Start[i].text = String(HexSettingText(device.t_DisableID_Start(row)));
    TB_DisableID_End[i].text = String(HexSettingText(device.t_DisableID_End(row)));
  }
  CB_DisableID.back().enabled = false;
  TB_DisableID_Start.back().enabled = false;
  TB_DisableID_End.back().enabled = false;
  CB_Save_ID_DisableMode.checked = device.t_Save_ID_DisableMode == 1;
  for (std::size_t i = 0; i < kRows; ++i) {
    const auto row = static_cast<std::int16_t>(i);
    Bt_MarkerColor_Dialog[i].back_colour = device.t_MsgMarkerColor(row);
    CB_MsgMarker[i].checked = device.t_MsgMarker_ON(row) == 1;
    TB_MsgMarkerID[i].text = String(HexSettingText(device.t_MsgMarkerID(row)));
    TB_MsgMarkerStartByte[i].text =
        String(DecimalText(std::int64_t{device.t_MsgMarkerStartByte(row)}));
    TB_MsgMarkerEndByte[i].text = String(DecimalText(std::int64_t{device.t_MsgMarkerEndByte(row)}));
  }
}

void FormOption1::Bt_OK_Click(ELM327_Info& device) const {
  for (std::size_t i = 0; i + 1 < kRows; ++i) {
    const auto row = static_cast<std::int16_t>(i);
    device.t_DisableID_ON(row, CB_DisableID[i].checked);
    TakeRange(TB_DisableID_Start[i], TB_DisableID_End[i], row, device);
  }
  device.t_Save_ID_DisableMode = CB_Save_ID_DisableMode.checked;
  for (std::size_t i = 0; i < kRows; ++i) {
    const auto row = static_cast<std::int16_t>(i);
    device.t_MsgMarkerColor(row, Bt_MarkerColor_Dialog[i].back_colour);
    device.t_MsgMarker_ON(row, CB_MsgMarker[i].checked);
    const auto id = HexInput(TB_MsgMarkerID[i].text);
    if (id && IsID(*id)) device.t_MsgMarkerID(row, static_cast<std::int32_t>(*id));
    TakeMarkerBytes(TB_MsgMarkerStartByte[i], TB_MsgMarkerEndByte[i], row, device);
  }
}

}  // namespace tolvane
