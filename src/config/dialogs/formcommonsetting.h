#pragma once

#include <array>

#include "config/dialogs/dialog_controls.h"
#include "run/elm327_info.h"

namespace tolvane {

/// The common settings: bit rate, message format, silent mode, colourings, caution, time base.
struct FormCommonSetting {
  String Caption;
  std::array<Choice, 9> RB_BitRate;
  std::array<Choice, 2> RB_MsgType;
  std::array<Choice, 2> RB_MsgFmtTyp;
  std::array<Choice, 2> RB_Silent_Mode;
  Choice CB_DataChangeColor_Enable;
  TextControl TB_DataChangeColorTime;  // seconds
  ColourButton Bt_DataChangeColor_Dialog;
  Choice CB_MsgLateColor_Enable;
  TextControl TB_MsgLateColor_Ratio;  // percent
  TextControl TB_MsgLateColor_Time;   // seconds
  ColourButton Bt_MsgLateColor_Dialog;
  Choice CB_Msg_Blackout_Enable;
  TextControl TB_Msg_Blackout_Ratio;  // percent
  ColourButton Bt_Msg_Blackout_Dialog;
  Choice CB_ViewCaution;
  std::array<Choice, 2> RB_Timer_Mode;
  TextControl TB_dividend_ratio;

  /// Fills every control.
  void read_setting(const ELM327_Info& device);
  void Bt_DataChangeColor_Dialog_Click(platform::ColourDialog& CommonDialog1) {
    Bt_DataChangeColor_Dialog.Ask(CommonDialog1);
  }
  void Bt_MsgLateColor_Dialog_Click(platform::ColourDialog& CommonDialog1) {
    Bt_MsgLateColor_Dialog.Ask(CommonDialog1);
  }
  void Bt_Msg_Blackout_Dialog_Click(platform::ColourDialog& CommonDialog1) {
    Bt_Msg_Blackout_Dialog.Ask(CommonDialog1);
  }
  /// Writes every control. A value outside its limits is ignored and the old one stays.
  void Bt_OK_Click(ELM327_Info& device) const;
};

}  // namespace tolvane
