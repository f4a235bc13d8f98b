#include "config/dialogs/formcommonsetting.h"

#include "config/dialogs/number_input.h"
#include "run/number_text.h"

namespace tolvane {

namespace {

constexpr OptionValues<9> kBitRates{{0, 1, 2, 3, 4, 5, 6, 7, 8}};
constexpr OptionValues<2> kMsgTypes{{0, kMsgIdType29Bit}};
constexpr OptionValues<2> kOffOn{{0, 1}};

constexpr std::int32_t kMillisecondsPerSecond = 1000;

String Seconds(std::int32_t milliseconds) {
  return String(DecimalText(static_cast<double>(milliseconds) / kMillisecondsPerSecond));
}

String Whole(std::int32_t value) { return String(DecimalText(std::int64_t{value})); }

void TakeSeconds(const TextControl& box, std::int32_t& milliseconds) {
  if (const auto seconds = WholeNumberInput(box.text, 1, 3600)) {
    milliseconds = *seconds * kMillisecondsPerSecond;
  }
}

void TakeRatio(const TextControl& box, std::int32_t low, std::int32_t high, std::int32_t& ratio) {
  if (const auto value = WholeNumberInput(box.text, low, high)) ratio = *value;
}

}  // namespace

void FormCommonSetting::read_setting(const ELM327_Info& device) {
  Caption = device.Application_title + u"　　- 共通設定 -";
  kBitRates.Show(device.t_bitRate, RB_BitRate);
  kMsgTypes.Show(device.t_msgID_type, RB_MsgType);
  kOffOn.Show(device.t_MsgFmtTyp, RB_MsgFmtTyp);
  kOffOn.Show(device.t_silent_mode, RB_Silent_Mode);
  CB_DataChangeColor_Enable.checked = device.t_DataChangeColorEnable == 1;
  TB_DataChangeColorTime.text = Seconds(device.t_DataChangeColorTime);
  Bt_DataChangeColor_Dialog.back_colour = device.t_DataChangeColor;
  CB_MsgLateColor_Enable.checked = device.t_MsgLateColorEnable == 1;
  TB_MsgLateColor_Ratio.text = Whole(device.t_MsgLateColor_Ratio);
  TB_MsgLateColor_Time.text = Seconds(device.t_MsgLateColor_Time);
  Bt_MsgLateColor_Dialog.back_colour = device.t_MsgLateColor;
  CB_Msg_Blackout_Enable.checked = device.t_MsgBlackout_Enable == 1;
  TB_Msg_Blackout_Ratio.text = Whole(device.t_MsgBlackout_Ratio);
  Bt_Msg_Blackout_Dialog.back_colour = device.t_MsgBlackout_Color;
  CB_ViewCaution.checked = device.t_ViewCaution == 1;
  kOffOn.Show(device.t_Timer_Mode, RB_Timer_Mode);
  TB_dividend_ratio.text = String(DecimalText(device.t_dividend_ratio));
}

void FormCommonSetting::Bt_OK_Click(ELM327_Info& device) const {
  kBitRates.Take(RB_BitRate, device.t_bitRate);
  kMsgTypes.Take(RB_MsgType, device.t_msgID_type);
  kOffOn.Take(RB_MsgFmtTyp, device.t_MsgFmtTyp);
  kOffOn.Take(RB_Silent_Mode, device.t_silent_mode);
  TakeSeconds(TB_DataChangeColorTime, device.t_DataChangeColorTime);
  device.t_DataChangeColorEnable = CB_DataChangeColor_Enable.checked;
  device.t_DataChangeColor = Bt_DataChangeColor_Dialog.back_colour;
  device.t_MsgLateColorEnable = CB_MsgLateColor_Enable.checked;
  TakeRatio(TB_MsgLateColor_Ratio, 1, 100, device.t_MsgLateColor_Ratio);
  device.t_MsgLateColor = Bt_MsgLateColor_Dialog.back_colour;
  TakeSeconds(TB_MsgLateColor_Time, device.t_MsgLateColor_Time);
  device.t_MsgBlackout_Enable = CB_Msg_Blackout_Enable.checked;
  TakeRatio(TB_Msg_Blackout_Ratio, 150, 10000, device.t_MsgBlackout_Ratio);
  device.t_MsgBlackout_Color = Bt_Msg_Blackout_Dialog.back_colour;
  device.t_ViewCaution = CB_ViewCaution.checked;
  kOffOn.Take(RB_Timer_Mode, device.t_Timer_Mode);
  const auto ratio = DecimalInput(TB_dividend_ratio.text);
  if (ratio && *ratio >= 0.1 && *ratio <= 10.0) device.t_dividend_ratio = *ratio;
}

}  // namespace tolvane
