#include "platform/windows/dialogs/formcommonsetting_window.h"

#include <tolvane_control_ids.h>
#include "platform/windows/dialogs/control_colour.h"
#include "platform/windows/system/text.h"
#include "receive/adapters/bit_rate.h"

namespace tolvane::platform::windows {
namespace {

using enum PartKind;

// Three columns of groups on one grid, all ending at the same height; units of 96 dpi.
constexpr int kTop = 12;
constexpr int kBottom = 346;
constexpr int kWidth = 648;
constexpr int kHeight = kBottom + 12;
constexpr int kInside = 12;  // from the edge of a group to its contents
constexpr int kHead = 24;    // from its top
constexpr int kStep = 24;    // from line to line

constexpr int kColumn1 = 12;
constexpr int kColumn1Width = 184;
constexpr int kColumn2 = kColumn1 + kColumn1Width + 12;
constexpr int kColumn2Width = 192;
constexpr int kColumn3 = kColumn2 + kColumn2Width + 12;
constexpr int kColumn3Width = kWidth - kColumn3 - 12;

constexpr int kRates = kColumn1 + kInside;
constexpr int kRateWidth = kColumn1Width - 2 * kInside;
constexpr int RateTop(int index) { return kTop + kHead + index * kStep; }

constexpr DialogPart kRateGroup[] = {
    {kNoId, kGroup, L"通信速度", kColumn1, kTop, kColumn1Width, kBottom - kTop},
};
constexpr DialogPart kRateNotes[] = {
    {id::Label9, kLabel, L"紫・・・CANUSB、Kvaser", kRates, kBottom - 58, kRateWidth, kLine},
    {id::Label6, kLabel, L"青・・・CANUSBのみ", kRates, kBottom - 34, kRateWidth, kLine},
};

constexpr int kChoices = kColumn2 + kInside;
constexpr int kChoiceWidth = kColumn2Width - 2 * kInside;
constexpr int kHalf = kChoiceWidth / 2;
constexpr int kTwoLines = kHead + 2 * kStep + 4;  // height of a group
constexpr int kType = kTop;
constexpr int kFilter = kType + kTwoLines + 8;
constexpr int kSilent = kFilter + kTwoLines + 8;
constexpr int kTimer = kSilent + kTwoLines + 8;

constexpr DialogPart kSecondColumn[] = {
    {kNoId, kGroup, L"メッセージ仕様", kColumn2, kType, kColumn2Width, kTwoLines},
    {id::RB_MsgType_0, kFirstRadio, L"11ビットＣＡＮ", kChoices, kType + kHead, kChoiceWidth,
     kLine},
    {id::RB_MsgType_1, kRadio, L"29ビットＣＡＮ", kChoices, kType + kHead + kStep, kChoiceWidth,
     kLine},
    {kNoId, kGroup, L"拡張CAN 受信フィルタ", kColumn2, kFilter, kColumn2Width, kTwoLines},
    {id::RB_MsgFmtTyp_0, kFirstRadio, L"11ビットＣＡＮも受信", kChoices, kFilter + kHead,
     kChoiceWidth, kLine},
    {id::RB_MsgFmtTyp_1, kRadio, L"29ビットＣＡＮのみ", kChoices, kFilter + kHead + kStep,
     kChoiceWidth, kLine},
    {kNoId, kGroup, L"サイレントモード", kColumn2, kSilent, kColumn2Width, kTwoLines},
    {id::RB_Silent_Mode_0, kFirstRadio, L"ACKを返す", kChoices, kSilent + kHead, kHalf, kLine},
    {id::RB_Silent_Mode_1, kRadio, L"サイレント", kChoices, kSilent + kHead + kStep, kHalf, kLine},
    {id::Label7, kLabel, L"Interface ", kChoices + kHalf + 8, kSilent + kHead, kHalf - 8, kLine},
    {id::Label8, kLabel, L"Kvaserのみ", kChoices + kHalf + 8, kSilent + kHead + kStep, kHalf - 8,
     kLine},
    {kNoId, kGroup, L"タイマー", kColumn2, kTimer, kColumn2Width, kBottom - kTimer},
    {id::RB_Timer_Mode_0, kFirstRadio, L"デバイス", kChoices, kTimer + kHead, kHalf, kLine},
    {id::RB_Timer_Mode_1, kRadio, L"Windows", kChoices + kHalf, kTimer + kHead, kHalf, kLine},
    {kNoId, kLabel, L"分周比", kChoices, kTimer + kHead + kStep + 4, 56, kLine},
    {id::TB_dividend_ratio, kNumberBox, L"", kChoices + kHalf, kTimer + kHead + kStep + 4, kHalf,
     kLine},
};

constexpr int kEnable = kColumn3 + kInside;
constexpr int kEnableWidth = 64;
constexpr int kBox = kEnable + kEnableWidth + 4;
constexpr int kBoxWidth = 60;
constexpr int kUnit = kBox + kBoxWidth + 4;
constexpr int kUnitWidth = 28;
constexpr int kColourWidth = 44;
constexpr int kColourLeft = kColumn3 + kColumn3Width - kInside - kColourWidth;
constexpr int kOneLine = kHead + kLine + 12;  // height of a group
constexpr int kBoxStep = 28;
constexpr int kData = kTop;
constexpr int kLate = kData + kOneLine + 8;
constexpr int kBlackout = kLate + kOneLine + kBoxStep + 8;
constexpr int kCaution = kBlackout + kOneLine + 10;

constexpr DialogPart kThirdColumn[] = {
    {kNoId, kGroup, L"データ変化時の色表示", kColumn3, kData, kColumn3Width, kOneLine},
    {id::CB_DataChangeColor_Enable, kCheck, L"有効", kEnable, kData + kHead, kEnableWidth, kLine,
     L"データ変化時の色表示を有効にする"},
    {id::TB_DataChangeColorTime, kNumberBox, L"", kBox, kData + kHead, kBoxWidth, kLine,
     L"データ変化時の色表示の時間、秒"},
    {kNoId, kLabel, L"sec", kUnit, kData + kHead, kUnitWidth, kLine},
    {id::Bt_DataChangeColor_Dialog, kColour, L"", kColourLeft, kData + kHead, kColourWidth, kLine,
     L"データ変化時の色"},
    {kNoId, kGroup, L"受信周期遅れの色表示", kColumn3, kLate, kColumn3Width, kOneLine + kBoxStep},
    {id::CB_MsgLateColor_Enable, kCheck, L"有効", kEnable, kLate + kHead, kEnableWidth, kLine,
     L"受信周期遅れの色表示を有効にする"},
    {id::TB_MsgLateColor_Ratio, kNumberBox, L"", kBox, kLate + kHead, kBoxWidth, kLine,
     L"受信周期遅れの割合、％"},
    {kNoId, kLabel, L"％", kUnit, kLate + kHead, kUnitWidth, kLine},
    {id::Bt_MsgLateColor_Dialog, kColour, L"", kColourLeft, kLate + kHead, kColourWidth, kLine,
     L"受信周期遅れの色"},
    {kNoId, kLabel, L"表示時間", kEnable, kLate + kHead + kBoxStep, kEnableWidth, kLine},
    {id::TB_MsgLateColor_Time, kNumberBox, L"", kBox, kLate + kHead + kBoxStep, kBoxWidth, kLine,
     L"受信周期遅れの表示時間、秒"},
    {kNoId, kLabel, L"sec", kUnit, kLate + kHead + kBoxStep, kUnitWidth, kLine},
    {kNoId, kGroup, L"受信途絶の色表示", kColumn3, kBlackout, kColumn3Width, kOneLine},
    {id::CB_Msg_Blackout_Enable, kCheck, L"有効", kEnable, kBlackout + kHead, kEnableWidth, kLine,
     L"受信途絶の色表示を有効にする"},
    {id::TB_Msg_Blackout_Ratio, kNumberBox, L"", kBox, kBlackout + kHead, kBoxWidth, kLine,
     L"受信途絶の割合、％"},
    {kNoId, kLabel, L"％", kUnit, kBlackout + kHead, kUnitWidth, kLine},
    {id::Bt_Msg_Blackout_Dialog, kColour, L"", kColourLeft, kBlackout + kHead, kColourWidth, kLine,
     L"受信途絶の色"},
    {id::CB_ViewCaution, kCheck, L"接続中に警告表示をする", kEnable, kCaution,
     kColumn3Width - kInside, kLine},
};

// The text colour of a bit rate tells which adapters offer it: the notes below the rates say so.
constexpr COLORREF kAllKinds = 0;  // the system's text colour
constexpr COLORREF kCanusbAndKvaser = RGB(192, 0, 192);
constexpr COLORREF kCanusbOnly = RGB(0, 0, 255);

COLORREF ColourOf(const BitRate& rate) {
  if (!rate.kvaser) return kCanusbOnly;
  return rate.interface_board ? kAllKinds : kCanusbAndKvaser;
}

}  // namespace

FormCommonSettingWindow::FormCommonSettingWindow(const DialogSurroundings& surroundings,
                                                 HelpWindow& help, StringResources& resources,
                                                 ELM327_Info& device)
    : SettingsDialogOf(surroundings, help, resources, device, {kWidth, kHeight},
                       id::HELP_COMMON_SETTING) {}

void FormCommonSettingWindow::AddControls() {
  Add(kRateGroup);
  AddRates();
  Add(kRateNotes);
  SetControlColour(Child(id::Label9), kCanusbAndKvaser);
  SetControlColour(Child(id::Label6), kCanusbOnly);
  Add(kSecondColumn);
  Add(kThirdColumn);
  AddClosingButtons();
}

void FormCommonSettingWindow::AddRates() {
  for (int index = 0; const BitRate* rate = BitRateOf(index); ++index) {
    const int control = id::RB_BitRate_0 + index;
    const String text(rate->text);
    const DialogPart button[] = {{control, index == 0 ? kFirstRadio : kRadio, Wide(text), kRates,
                                  RateTop(index), kRateWidth, kLine}};
    Add(button);
    SetControlColour(Child(control), ColourOf(*rate));
  }
}

void FormCommonSettingWindow::Bind(const ControlBinder& bind) {
  bind(id::RB_BitRate_0, form_.RB_BitRate);
  bind(id::RB_MsgType_0, form_.RB_MsgType);
  bind(id::RB_MsgFmtTyp_0, form_.RB_MsgFmtTyp);
  bind(id::RB_Silent_Mode_0, form_.RB_Silent_Mode);
  bind(id::CB_DataChangeColor_Enable, form_.CB_DataChangeColor_Enable);
  bind(id::TB_DataChangeColorTime, form_.TB_DataChangeColorTime);
  bind(id::Bt_DataChangeColor_Dialog, form_.Bt_DataChangeColor_Dialog);
  bind(id::CB_MsgLateColor_Enable, form_.CB_MsgLateColor_Enable);
  bind(id::TB_MsgLateColor_Ratio, form_.TB_MsgLateColor_Ratio);
  bind(id::TB_MsgLateColor_Time, form_.TB_MsgLateColor_Time);
  bind(id::Bt_MsgLateColor_Dialog, form_.Bt_MsgLateColor_Dialog);
  bind(id::CB_Msg_Blackout_Enable, form_.CB_Msg_Blackout_Enable);
  bind(id::TB_Msg_Blackout_Ratio, form_.TB_Msg_Blackout_Ratio);
  bind(id::Bt_Msg_Blackout_Dialog, form_.Bt_Msg_Blackout_Dialog);
  bind(id::CB_ViewCaution, form_.CB_ViewCaution);
  bind(id::RB_Timer_Mode_0, form_.RB_Timer_Mode);
  bind(id::TB_dividend_ratio, form_.TB_dividend_ratio);
}

void FormCommonSettingWindow::OnClick(int control) {
  switch (control) {
    case id::Bt_DataChangeColor_Dialog:
      return form_.Bt_DataChangeColor_Dialog_Click(CommonDialog1());
    case id::Bt_MsgLateColor_Dialog:
      return form_.Bt_MsgLateColor_Dialog_Click(CommonDialog1());
    case id::Bt_Msg_Blackout_Dialog:
      return form_.Bt_Msg_Blackout_Dialog_Click(CommonDialog1());
    default:
      return;
  }
}

}  // namespace tolvane::platform::windows
