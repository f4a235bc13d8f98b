#include "config/dialogs/formcommonsetting.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/memory/dialogs/colour_dialog.h"

namespace tolvane {
namespace {

class FormCommonSettingTest : public testing::Test {
 protected:
  FormCommonSettingTest() { device.Param_ALL_Clear(); }

  void Open() { form.read_setting(device); }

  ELM327_Info device{u"C:\\Tolvane"};
  FormCommonSetting form;
};

TEST_F(FormCommonSettingTest, AChosenColourIsShownByItsButtonAloneAndWrittenOnOk) {
  using Click = void (FormCommonSetting::*)(platform::ColourDialog&);
  struct Row {
    Click click;
    ColourButton FormCommonSetting::*button;
    std::int32_t ELM327_Info::*field;
  };
  const Row rows[] = {
      {&FormCommonSetting::Bt_DataChangeColor_Dialog_Click,
       &FormCommonSetting::Bt_DataChangeColor_Dialog, &ELM327_Info::t_DataChangeColor},
      {&FormCommonSetting::Bt_MsgLateColor_Dialog_Click, &FormCommonSetting::Bt_MsgLateColor_Dialog,
       &ELM327_Info::t_MsgLateColor},
      {&FormCommonSetting::Bt_Msg_Blackout_Dialog_Click, &FormCommonSetting::Bt_Msg_Blackout_Dialog,
       &ELM327_Info::t_MsgBlackout_Color},
  };
  for (const Row& row : rows) {
    device.Param_ALL_Clear();
    Open();
    const std::int32_t before = device.*row.field;
    platform::memory::ColourDialog dialog;
    dialog.Answer(0x123456);
    (form.*row.click)(dialog);
    EXPECT_EQ((form.*row.button).back_colour, 0x123456);
    EXPECT_EQ(device.*row.field, before);
    for (const Row& other : rows) {
      EXPECT_EQ((form.*other.button).back_colour == 0x123456, &other == &row);
    }
    form.Bt_OK_Click(device);
    EXPECT_EQ(device.*row.field, 0x123456);
  }
}

TEST_F(FormCommonSettingTest, ACancelledColourDialogChangesNothing) {
  Open();
  platform::memory::ColourDialog dialog;
  form.Bt_DataChangeColor_Dialog_Click(dialog);
  form.Bt_MsgLateColor_Dialog_Click(dialog);
  form.Bt_Msg_Blackout_Dialog_Click(dialog);
  EXPECT_EQ(form.Bt_DataChangeColor_Dialog.back_colour, device.t_DataChangeColor);
  EXPECT_EQ(form.Bt_MsgLateColor_Dialog.back_colour, device.t_MsgLateColor);
  EXPECT_EQ(form.Bt_Msg_Blackout_Dialog.back_colour, device.t_MsgBlackout_Color);
}

template <std::size_t N>
void Select(std::array<Choice, N>& buttons, std::size_t index) {
  for (std::size_t i = 0; i < N; ++i) buttons[i].checked = i == index;
}

TEST_F(FormCommonSettingTest, OpeningShowsTheDefaults) {
  Open();
  EXPECT_EQ(form.Caption, u"Tolvane Ver1.23　　- 共通設定 -");
  for (std::size_t i = 0; i < form.RB_BitRate.size(); ++i) {
    EXPECT_EQ(form.RB_BitRate[i].checked, i == 2) << i;
  }
  EXPECT_TRUE(form.RB_MsgType[0].checked);
  EXPECT_FALSE(form.RB_MsgType[1].checked);
  EXPECT_TRUE(form.RB_MsgFmtTyp[0].checked);
  EXPECT_TRUE(form.RB_Silent_Mode[0].checked);
  EXPECT_TRUE(form.CB_DataChangeColor_Enable.checked);
  EXPECT_EQ(form.TB_DataChangeColorTime.text, u"60");
  EXPECT_EQ(form.Bt_DataChangeColor_Dialog.back_colour, 0x0000FF);
  EXPECT_TRUE(form.CB_MsgLateColor_Enable.checked);
  EXPECT_EQ(form.TB_MsgLateColor_Ratio.text, u"30");
  EXPECT_EQ(form.TB_MsgLateColor_Time.text, u"60");
  EXPECT_EQ(form.Bt_MsgLateColor_Dialog.back_colour, 0x0000FF);
  EXPECT_TRUE(form.CB_Msg_Blackout_Enable.checked);
  EXPECT_EQ(form.TB_Msg_Blackout_Ratio.text, u"250");
  EXPECT_EQ(form.Bt_Msg_Blackout_Dialog.back_colour, 0x969696);
  EXPECT_TRUE(form.CB_ViewCaution.checked);
  EXPECT_TRUE(form.RB_Timer_Mode[0].checked);
  EXPECT_EQ(form.TB_dividend_ratio.text, u"1");
}

TEST_F(FormCommonSettingTest, EveryOptionButtonWritesItsValue) {
  for (std::int32_t rate = 0; rate < 9; ++rate) {
    Open();
    Select(form.RB_BitRate, static_cast<std::size_t>(rate));
    form.Bt_OK_Click(device);
    EXPECT_EQ(device.t_bitRate, rate);
  }
  Select(form.RB_MsgType, 1);
  Select(form.RB_MsgFmtTyp, 1);
  Select(form.RB_Silent_Mode, 1);
  Select(form.RB_Timer_Mode, 1);
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_msgID_type, 128);
  EXPECT_EQ(device.t_MsgFmtTyp, 1);
  EXPECT_EQ(device.t_silent_mode, 1);
  EXPECT_EQ(device.t_Timer_Mode, 1);
  Open();
  EXPECT_TRUE(form.RB_MsgType[1].checked);
  EXPECT_TRUE(form.RB_MsgFmtTyp[1].checked);
  EXPECT_TRUE(form.RB_Silent_Mode[1].checked);
  EXPECT_TRUE(form.RB_Timer_Mode[1].checked);
}

TEST_F(FormCommonSettingTest, AValueThatNoButtonHasSelectsNoneAndStaysAtOK) {
  device.t_bitRate = 42;
  device.t_silent_mode = 2;
  Open();
  EXPECT_TRUE(std::none_of(form.RB_BitRate.begin(), form.RB_BitRate.end(),
                           [](const Choice& button) { return button.checked; }));
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_bitRate, 42);
  EXPECT_EQ(device.t_silent_mode, 2);
}

TEST_F(FormCommonSettingTest, CheckBoxesAndColoursAreTaken) {
  Open();
  form.CB_DataChangeColor_Enable.checked = false;
  form.CB_MsgLateColor_Enable.checked = false;
  form.CB_Msg_Blackout_Enable.checked = false;
  form.CB_ViewCaution.checked = false;
  form.Bt_DataChangeColor_Dialog.back_colour = 0x010203;
  form.Bt_MsgLateColor_Dialog.back_colour = 0x040506;
  form.Bt_Msg_Blackout_Dialog.back_colour = 0x070809;
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_DataChangeColorEnable, 0);
  EXPECT_EQ(device.t_MsgLateColorEnable, 0);
  EXPECT_EQ(device.t_MsgBlackout_Enable, 0);
  EXPECT_EQ(device.t_ViewCaution, 0);
  EXPECT_EQ(device.t_DataChangeColor, 0x010203);
  EXPECT_EQ(device.t_MsgLateColor, 0x040506);
  EXPECT_EQ(device.t_MsgBlackout_Color, 0x070809);
}

TEST_F(FormCommonSettingTest, HalfSecondsAreShownAndABareOKRoundsThemToEven) {
  device.t_DataChangeColorTime = 1500;
  Open();
  EXPECT_EQ(form.TB_DataChangeColorTime.text, u"1.5");
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_DataChangeColorTime, 2000);
}

struct Limit {
  const char* label;
  TextControl FormCommonSetting::*box;
  std::int32_t ELM327_Info::*field;
  StringView text;
  std::int32_t expected;  // kKept when the text is to be ignored
};
constexpr std::int32_t kKept = -12345;

class FormCommonSettingLimits : public FormCommonSettingTest,
                                public testing::WithParamInterface<Limit> {};

TEST_P(FormCommonSettingLimits, AreInclusiveAndRefuseSilently) {
  const Limit& limit = GetParam();
  Open();
  device.*limit.field = kKept;
  (form.*limit.box).text = String(limit.text);
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.*limit.field, limit.expected);
}

using F = FormCommonSetting;
using D = ELM327_Info;
const Limit kLimits[] = {
    {"DataTimeLow", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"1", 1000},
    {"DataTimeHigh", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"3600", 3600000},
    {"DataTimeZero", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"0", kKept},
    {"DataTimeAbove", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"3601", kKept},
    {"DataTimeHalf", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"0.5", kKept},
    {"DataTimeOneAndAHalf", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"1.5", 2000},
    {"DataTimeLetters", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"abc", kKept},
    {"DataTimeEmpty", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"", kKept},
    {"DataTimeHuge", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"99999999999", kKept},
    {"DataTimeExponent", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"1E1", kKept},
    {"DataTimeFullWidth", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"６０", kKept},
    {"DataTimeEmoji", &F::TB_DataChangeColorTime, &D::t_DataChangeColorTime, u"😀", kKept},
    {"LateTimeLow", &F::TB_MsgLateColor_Time, &D::t_MsgLateColor_Time, u"1", 1000},
    {"LateTimeHigh", &F::TB_MsgLateColor_Time, &D::t_MsgLateColor_Time, u"3600", 3600000},
    {"LateTimeZero", &F::TB_MsgLateColor_Time, &D::t_MsgLateColor_Time, u"0", kKept},
    {"LateTimeAbove", &F::TB_MsgLateColor_Time, &D::t_MsgLateColor_Time, u"3601", kKept},
    {"LateRatioLow", &F::TB_MsgLateColor_Ratio, &D::t_MsgLateColor_Ratio, u"1", 1},
    {"LateRatioHigh", &F::TB_MsgLateColor_Ratio, &D::t_MsgLateColor_Ratio, u"100", 100},
    {"LateRatioZero", &F::TB_MsgLateColor_Ratio, &D::t_MsgLateColor_Ratio, u"0", kKept},
    {"LateRatioAbove", &F::TB_MsgLateColor_Ratio, &D::t_MsgLateColor_Ratio, u"101", kKept},
    {"LateRatioHalf", &F::TB_MsgLateColor_Ratio, &D::t_MsgLateColor_Ratio, u"100.5", 100},
    {"BlackoutLow", &F::TB_Msg_Blackout_Ratio, &D::t_MsgBlackout_Ratio, u"150", 150},
    {"BlackoutHigh", &F::TB_Msg_Blackout_Ratio, &D::t_MsgBlackout_Ratio, u"10000", 10000},
    {"BlackoutBelow", &F::TB_Msg_Blackout_Ratio, &D::t_MsgBlackout_Ratio, u"149", kKept},
    {"BlackoutAbove", &F::TB_Msg_Blackout_Ratio, &D::t_MsgBlackout_Ratio, u"10001", kKept},
};
INSTANTIATE_TEST_SUITE_P(Boxes, FormCommonSettingLimits, testing::ValuesIn(kLimits),
                         [](const auto& row) { return row.param.label; });

TEST_F(FormCommonSettingTest, TheDivisionRatioIsKeptUnroundedFromATenthToTen) {
  struct Row {
    StringView text;
    double expected;
  };
  const Row rows[] = {{u"0.1", 0.1},  {u"10", 10.0},  {u"1.00025", 1.00025},
                      {u"0.09", 3.0}, {u"10.1", 3.0}, {u"10.0001", 3.0},
                      {u"abc", 3.0},  {u"", 3.0},     {u"-1", 3.0}};
  for (const Row& row : rows) {
    Open();
    device.t_dividend_ratio = 3.0;
    form.TB_dividend_ratio.text = String(row.text);
    form.Bt_OK_Click(device);
    EXPECT_EQ(device.t_dividend_ratio, row.expected) << row.expected;
  }
}

TEST_F(FormCommonSettingTest, AnyRecordFromAFileIsShownAndTakenBackWithoutHarm) {
  device.t_DataChangeColorTime = INT32_MIN;
  device.t_MsgLateColor_Time = INT32_MAX;
  device.t_MsgLateColor_Ratio = INT32_MIN;
  device.t_dividend_ratio = 0.0;
  Open();
  EXPECT_EQ(form.TB_DataChangeColorTime.text, u"-2147483.648");
  EXPECT_EQ(form.TB_dividend_ratio.text, u"0");
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_DataChangeColorTime, INT32_MIN);
  EXPECT_EQ(device.t_MsgLateColor_Time, INT32_MAX);
  EXPECT_EQ(device.t_dividend_ratio, 0.0);
}

}  // namespace
}  // namespace tolvane
