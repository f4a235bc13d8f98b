#include "config/dialogs/formcommonsetting.h"

#include "config/dialogs/setting_pairs.h"

namespace tolvane {

namespace {

constexpr OptionValues<9> kBitRates{{0, 1, 2, 3, 4, 5, 6, 7, 8}};
constexpr OptionValues<2> kMsgTypes{{0, kMsgIdType29Bit}};
constexpr OptionValues<2> kOffOn{{0, 1}};
constexpr CheckValues kEnable;
constexpr WholeNumber kSeconds{.low = 1, .high = 3600, .scale = 1000};
constexpr WholeNumber kLateRatio{.low = 1, .high = 100};
constexpr WholeNumber kBlackoutRatio{.low = 150, .high = 10000};
constexpr DecimalNumber kDividendRatio{.low = 0.1, .high = 10.0};
constexpr AsItStands kColour;

template <typename Form, typename Device, typename Way>
void EachPair(Form& form, Device& device, const Way& way) {
  way(form.RB_BitRate, device.t_bitRate, kBitRates);
  way(form.RB_MsgType, device.t_msgID_type, kMsgTypes);
  way(form.RB_MsgFmtTyp, device.t_MsgFmtTyp, kOffOn);
  way(form.RB_Silent_Mode, device.t_silent_mode, kOffOn);
  way(form.TB_DataChangeColorTime, device.t_DataChangeColorTime, kSeconds);
  way(form.CB_DataChangeColor_Enable, device.t_DataChangeColorEnable, kEnable);
  way(form.Bt_DataChangeColor_Dialog, device.t_DataChangeColor, kColour);
  way(form.CB_MsgLateColor_Enable, device.t_MsgLateColorEnable, kEnable);
  way(form.TB_MsgLateColor_Ratio, device.t_MsgLateColor_Ratio, kLateRatio);
  way(form.Bt_MsgLateColor_Dialog, device.t_MsgLateColor, kColour);
  way(form.TB_MsgLateColor_Time, device.t_MsgLateColor_Time, kSeconds);
  way(form.CB_Msg_Blackout_Enable, device.t_MsgBlackout_Enable, kEnable);
  way(form.TB_Msg_Blackout_Ratio, device.t_MsgBlackout_Ratio, kBlackoutRatio);
  way(form.Bt_Msg_Blackout_Dialog, device.t_MsgBlackout_Color, kColour);
  way(form.CB_ViewCaution, device.t_ViewCaution, kEnable);
  way(form.RB_Timer_Mode, device.t_Timer_Mode, kOffOn);
  way(form.TB_dividend_ratio, device.t_dividend_ratio, kDividendRatio);
}

}  // namespace

void FormCommonSetting::read_setting(const ELM327_Info& device) {
  Caption = device.Application_title + u"　　- 共通設定 -";
  EachPair(*this, device, kShow);
}

void FormCommonSetting::Bt_OK_Click(ELM327_Info& device) const { EachPair(*this, device, kTake); }

}  // namespace tolvane
