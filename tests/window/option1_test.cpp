// The extension settings in the real window.
#include "tests/window/control_ids.h"
#include "tests/window/dialog_fixture.h"

#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

using Option1 = OpenedWindows;

TEST_F(Option1, TakesGoodRowsDropsBadOnesAndNeverWritesTheLastRange) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  DrivenWindow dialog = Open(id::menu_opt_function1);
  ASSERT_TRUE(dialog.Exists());
  EXPECT_EQ(Utf8(dialog.Text()), Utf8(L"Tolvane Ver1.23　　- 拡張機能１ -"));
  dialog.Type(id::TB_DisableID_Start_0, L"1a0");
  dialog.Type(id::TB_DisableID_End_0, L"7FF");
  EXPECT_TRUE(dialog.Click(id::CB_DisableID_0));
  dialog.Type(id::TB_DisableID_Start_1, L"7FF");
  dialog.Type(id::TB_DisableID_End_1, L"100");
  EXPECT_TRUE(dialog.Click(id::CB_DisableID_1));
  dialog.Type(id::TB_DisableID_Start_6, L"1FFFFFFF");
  dialog.Type(id::TB_DisableID_End_6, L"1FFFFFFF");
  dialog.Type(id::TB_DisableID_Start_7, L"100");
  dialog.Type(id::TB_DisableID_End_7, L"200");
  // Shown, and grey: the last range cannot be changed here.
  EXPECT_FALSE(dialog.Click(id::CB_DisableID_7));
  for (const int first : {id::CB_DisableID_0, id::TB_DisableID_Start_0, id::TB_DisableID_End_0}) {
    for (int row = 0; row < 8; ++row) EXPECT_EQ(dialog.Enabled(first + row), row != 7) << first;
  }
  EXPECT_TRUE(dialog.Click(id::CB_Save_ID_DisableMode));
  dialog.Type(id::TB_MsgMarkerID_7, L"F");
  dialog.Type(id::TB_MsgMarkerStartByte_7, L"3");
  dialog.Type(id::TB_MsgMarkerEndByte_7, L"8");
  dialog.Type(id::TB_MsgMarkerStartByte_0, L"3");
  dialog.Type(id::TB_MsgMarkerEndByte_0, L"2");
  EXPECT_TRUE(dialog.Click(id::CB_MsgMarker_0));
  AnswerColourDialog(dialog, id::Bt_MarkerColor_Dialog_7, IDOK);
  PressOk(dialog);

  dialog = Open(id::menu_opt_function1);
  EXPECT_EQ(dialog.Text(id::TB_DisableID_Start_0), L"1A0");
  EXPECT_EQ(dialog.Text(id::TB_DisableID_End_0), L"7FF");
  EXPECT_TRUE(dialog.Checked(id::CB_DisableID_0));
  EXPECT_EQ(dialog.Text(id::TB_DisableID_Start_1), L"0");
  EXPECT_EQ(dialog.Text(id::TB_DisableID_End_1), L"0");
  EXPECT_TRUE(dialog.Checked(id::CB_DisableID_1));
  EXPECT_EQ(dialog.Text(id::TB_DisableID_Start_6), L"1FFFFFFF");
  EXPECT_EQ(dialog.Text(id::TB_DisableID_Start_7), L"0");
  EXPECT_FALSE(dialog.Checked(id::CB_DisableID_7));
  EXPECT_TRUE(dialog.Checked(id::CB_Save_ID_DisableMode));
  EXPECT_EQ(dialog.Text(id::TB_MsgMarkerID_7), L"00F");
  EXPECT_EQ(dialog.Text(id::TB_MsgMarkerStartByte_7), L"3");
  EXPECT_EQ(dialog.Text(id::TB_MsgMarkerEndByte_7), L"8");
  EXPECT_EQ(dialog.Text(id::TB_MsgMarkerStartByte_0), L"1");
  EXPECT_TRUE(dialog.Checked(id::CB_MsgMarker_0));
  EXPECT_TRUE(Shows(dialog, id::Bt_MarkerColor_Dialog_7, RGB(0, 0, 0), 100));
  EXPECT_TRUE(Shows(dialog, id::Bt_MarkerColor_Dialog_6, RGB(0xF3, 0xB3, 0xFF), 100));
  KeepPicture(dialog.Handle(), "window");
  PressCancel(dialog);
  End();
}

TEST_F(Option1, BadInputInEveryBoxClosesSilently) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  DrivenWindow dialog = Open(id::menu_opt_function1);
  for (int row = 0; row < 8; ++row) {
    dialog.Type(id::TB_DisableID_End_0 + row, L"7FF");
    dialog.Type(id::TB_MsgMarkerID_0 + row, L"123");
    dialog.Type(id::TB_MsgMarkerEndByte_0 + row, L"8");
  }
  PressOk(dialog);
  for (const std::wstring& bad :
       {std::wstring(L"xyz"), std::wstring(40, L'F'), std::wstring(L"FFFFFFFF"),
        std::wstring(L"20000000"), std::wstring(L"-1"), std::wstring(L"😀")}) {
    dialog = Open(id::menu_opt_function1);
    ASSERT_TRUE(dialog.Exists());
    for (int row = 0; row < 8; ++row) {
      // A start that is no number counts as 0 and an end of 7FF stands, so both get it.
      for (const int control : {id::TB_DisableID_Start_0, id::TB_MsgMarkerID_0,
                                id::TB_MsgMarkerStartByte_0, id::TB_MsgMarkerEndByte_0}) {
        dialog.Type(control + row, bad);
      }
    }
    PressOk(dialog);
    dialog = Open(id::menu_opt_function1);
    for (int row = 0; row < 8; ++row) {
      EXPECT_EQ(dialog.Text(id::TB_DisableID_Start_0 + row), L"0") << Utf8(bad) << row;
      EXPECT_EQ(dialog.Text(id::TB_DisableID_End_0 + row), row < 7 ? L"7FF" : L"0")
          << Utf8(bad) << row;
      EXPECT_EQ(dialog.Text(id::TB_MsgMarkerID_0 + row), L"123") << Utf8(bad) << row;
      EXPECT_EQ(dialog.Text(id::TB_MsgMarkerStartByte_0 + row), L"1") << Utf8(bad) << row;
      EXPECT_EQ(dialog.Text(id::TB_MsgMarkerEndByte_0 + row), L"8") << Utf8(bad) << row;
    }
    PressCancel(dialog);
  }
  End();
}

}  // namespace
}  // namespace tolvane::window
