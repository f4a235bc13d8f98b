// The common settings in the real window.
#include <map>

#include "tests/window/control_ids.h"
#include "tests/window/dialog_fixture.h"
#include "tools/drive/screen_picture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

using CommonSetting = OpenedWindows;

using BoxTexts = std::map<int, std::wstring>;

const BoxTexts kDefaultBoxes{{id::TB_DataChangeColorTime, L"60"},
                             {id::TB_MsgLateColor_Ratio, L"30"},
                             {id::TB_MsgLateColor_Time, L"60"},
                             {id::TB_Msg_Blackout_Ratio, L"250"},
                             {id::TB_dividend_ratio, L"1"}};

BoxTexts Boxes(const DrivenWindow& dialog) {
  BoxTexts texts;
  for (const auto& [control, text] : kDefaultBoxes) texts[control] = dialog.Text(control);
  return texts;
}

constexpr COLORREF kPurple = RGB(192, 0, 192);
constexpr COLORREF kBlue = RGB(0, 0, 255);

TEST_F(CommonSetting, OpensOverTheDisabledMainWindowWithColoursThatShow) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  const DrivenWindow dialog = Open(id::menu_common_setting);
  ASSERT_TRUE(dialog.Exists());
  EXPECT_FALSE(IsWindowEnabled(main_.Handle()));
  EXPECT_EQ(Utf8(dialog.Text()), Utf8(L"Tolvane Ver1.23　　- 共通設定 -"));
  EXPECT_EQ((GetWindowLongPtrW(dialog.Handle(), GWL_STYLE) & (WS_THICKFRAME | WS_MAXIMIZEBOX)), 0);
  EXPECT_EQ(Boxes(dialog), kDefaultBoxes);
  for (int control = id::RB_BitRate_0; control <= id::RB_BitRate_8; ++control) {
    EXPECT_EQ(dialog.Checked(control), control == id::RB_BitRate_2) << control;
  }

  EXPECT_TRUE(Shows(dialog, id::Label9, kPurple, 20));
  for (int control = id::RB_BitRate_0; control <= id::RB_BitRate_8; ++control) {
    const bool blue = control == id::RB_BitRate_1 || control == id::RB_BitRate_6;
    const COLORREF black = GetSysColor(COLOR_BTNTEXT);
    EXPECT_TRUE(Shows(dialog, control,
                      blue                          ? kBlue
                      : control == id::RB_BitRate_7 ? kPurple
                                                    : black))
        << control;
    EXPECT_EQ(CountScreenPixels(dialog.Control(control), kBlue) > 0, blue) << control;
    EXPECT_EQ(CountScreenPixels(dialog.Control(control), kPurple) > 0, control == id::RB_BitRate_7)
        << control;
  }
  EXPECT_TRUE(Shows(dialog, id::Label6, kBlue, 20));
  EXPECT_TRUE(Shows(dialog, id::Bt_DataChangeColor_Dialog, RGB(255, 0, 0), 100));
  KeepPicture(dialog.Handle(), "window");

  // A second command from outside opens no second dialog.
  main_.Command(id::menu_opt_function1);
  main_.Close();
  EXPECT_EQ(dialog.Text(id::TB_dividend_ratio), L"1");
  EXPECT_EQ(TopWindows(kSettingsDialogClass, program_->Id()).size(), 1u);
  PressCancel(dialog);
  EXPECT_TRUE(main_.Exists());
  End();
}

TEST_F(CommonSetting, BadInputInEveryBoxClosesSilentlyAndKeepsTheOldValues) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  for (const std::wstring& bad : BadNumbers()) {
    const DrivenWindow dialog = Open(id::menu_common_setting);
    ASSERT_TRUE(dialog.Exists());
    EXPECT_EQ(Boxes(dialog), kDefaultBoxes) << "before " << Utf8(bad.substr(0, 40));
    for (const auto& [control, text] : kDefaultBoxes) dialog.Type(control, bad);
    PressOk(dialog);
  }
  const DrivenWindow dialog = Open(id::menu_common_setting);
  EXPECT_EQ(Boxes(dialog), kDefaultBoxes);
  PressCancel(dialog);
  End();
}

TEST_F(CommonSetting, OkKeepsWhatWasSetUntilTheNextStartAndCancelForgetsIt) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  DrivenWindow dialog = Open(id::menu_common_setting);
  dialog.Type(id::TB_DataChangeColorTime, L" 1.5 ");
  dialog.Type(id::TB_MsgLateColor_Ratio, L"100");
  dialog.Type(id::TB_MsgLateColor_Time, L"3600");
  dialog.Type(id::TB_Msg_Blackout_Ratio, L"10000");
  dialog.Type(id::TB_dividend_ratio, L"1.00025");
  for (const int control :
       {id::RB_BitRate_8, id::RB_MsgType_1, id::RB_MsgFmtTyp_1, id::RB_Silent_Mode_1,
        id::RB_Timer_Mode_1, id::CB_ViewCaution, id::CB_MsgLateColor_Enable}) {
    EXPECT_TRUE(dialog.Click(control));
  }
  AnswerColourDialog(dialog, id::Bt_MsgLateColor_Dialog, IDCANCEL);
  EXPECT_TRUE(Shows(dialog, id::Bt_MsgLateColor_Dialog, RGB(255, 0, 0), 100));
  // The dialog does not start on the present colour, so a bare OK gives black.
  AnswerColourDialog(dialog, id::Bt_DataChangeColor_Dialog, IDOK);
  EXPECT_TRUE(Shows(dialog, id::Bt_DataChangeColor_Dialog, RGB(0, 0, 0), 100));
  dialog.PressKey(id::TB_dividend_ratio, VK_RETURN);
  ASSERT_TRUE(Closed(dialog));

  dialog = Open(id::menu_common_setting);
  dialog.Type(id::TB_MsgLateColor_Ratio, L"55");
  dialog.PressKey(id::TB_MsgLateColor_Ratio, VK_ESCAPE);
  ASSERT_TRUE(Closed(dialog));
  End();

  ASSERT_NO_FATAL_FAILURE(Start());
  dialog = Open(id::menu_common_setting);
  EXPECT_EQ(Boxes(dialog), (BoxTexts{{id::TB_DataChangeColorTime, L"2"},
                                     {id::TB_MsgLateColor_Ratio, L"100"},
                                     {id::TB_MsgLateColor_Time, L"3600"},
                                     {id::TB_Msg_Blackout_Ratio, L"10000"},
                                     {id::TB_dividend_ratio, L"1.00025"}}));
  for (const int control : {id::RB_BitRate_8, id::RB_MsgType_1, id::RB_MsgFmtTyp_1,
                            id::RB_Silent_Mode_1, id::RB_Timer_Mode_1}) {
    EXPECT_TRUE(dialog.Checked(control)) << control;
  }
  EXPECT_FALSE(dialog.Checked(id::CB_ViewCaution));
  EXPECT_FALSE(dialog.Checked(id::CB_MsgLateColor_Enable));
  EXPECT_TRUE(Shows(dialog, id::Bt_DataChangeColor_Dialog, RGB(0, 0, 0), 100));
  PressCancel(dialog);
  End();
}

TEST_F(CommonSetting, WhatStandsBehindAModalWindowTakesNoMessageOfOtherProgramsEither) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  const DrivenWindow dialog = Open(id::menu_common_setting);
  EXPECT_TRUE(main_.Click(id::Bt_Connect));
  (void)Send(main_.Handle(), WM_COMMAND, id::Bt_Connect, 0);
  ASSERT_TRUE(main_.AwaitPosted(id::TB_Protocol));
  EXPECT_TRUE(main_.Enabled(id::Bt_Connect));
  EXPECT_EQ(main_.Text(id::TB_Protocol), L"---");

  dialog.Command(id::Bt_DataChangeColor_Dialog);
  ASSERT_TRUE(WaitUntil([&] { return Find(L"#32770").Exists(); }));
  const DrivenWindow colours = Find(L"#32770");
  EXPECT_TRUE(dialog.Click(id::Bt_OK));
  (void)Send(dialog.Handle(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(dialog.Exists());
  EXPECT_TRUE(colours.Exists());
  PostMessageW(colours.Handle(), WM_COMMAND, IDCANCEL, 0);
  EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(dialog.Handle()) != FALSE; }));
  PressCancel(dialog);
  End();
}

}  // namespace
}  // namespace tolvane::window
