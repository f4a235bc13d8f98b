#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "config/dialogs/dialog_controls.h"
#include "run/elm327_info.h"

namespace tolvane {

/// Exclusion ranges and markers, kRows each. IDs are hexadecimal, bytes decimal.
struct FormOption1 {
  static constexpr std::size_t kRows = kSettingRows;

  String Caption;
  std::array<Choice, kRows> CB_DisableID;
  std::array<TextControl, kRows> TB_DisableID_Start;
  std::array<TextControl, kRows> TB_DisableID_End;
  Choice CB_Save_ID_DisableMode;
  std::array<Choice, kRows> CB_MsgMarker;
  std::array<TextControl, kRows> TB_MsgMarkerID;
  std::array<TextControl, kRows> TB_MsgMarkerStartByte;
  std::array<TextControl, kRows> TB_MsgMarkerEndByte;
  std::array<ColourButton, kRows> Bt_MarkerColor_Dialog;

  void read_setting(const ELM327_Info& device);
  /// `Index` from 0.
  void Bt_MarkerColor_Dialog_Click(std::int16_t Index, platform::ColourDialog& CommonDialog1) {
    Bt_MarkerColor_Dialog[static_cast<std::size_t>(Index)].Ask(CommonDialog1);
  }
  /// Writes what is good, row by row; a bad range, ID or byte pair is dropped and the old one
  /// stays, while its row's check box is taken. The last exclusion row is shown, disabled, and
  /// never written back, so that a range in it stays in force until the settings file is gone.
  void Bt_OK_Click(ELM327_Info& device) const;
};

}  // namespace tolvane
