#include "run/control/form1.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/run/control/run_control.h"

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(RunControl, ARunTouchesTheWindowInOrder) {
  window_.TB_LogComment.Type(u"試験");
  Connect();
  EXPECT_THAT(memory_.journal.Lines(),
              ElementsAre("Bt_Connect.Enabled = false", "Bt_Disconnect.Enabled = true",
                          "RTB_MainView.Locked = true", "menu_opt_function1.Enabled = false",
                          "menu_common_setting.Enabled = false", "menu_opt_log1.Enabled = false",
                          "Cmb_Serect_Device.Enabled = false", "TB_LogComment.Locked = true",
                          "Pic_Caution.Visible = true", "TB_Status.Text = \"通信初期処理中\"",
                          "TB_Status.SetFocus()", "canusb_Open(\"LAW00001\", \"500\", 0, -1, 1)",
                          "TB_Protocol.Text = \"500k bps\"", "TB_Status.Text = \"通信中\"",
                          "FormBG.TimerBackView.Enabled = true", "timeBeginPeriod(1)",
                          "Bt_Disconnect.Enabled = false", "timeEndPeriod(1)",
                          "TB_Status.Text = \"終了処理中\"", "canusb_Close(1)",
                          "FormBG.TimerBackView.Enabled = false", "TB_Status.Text = \"\"",
                          "TB_Protocol.Text = \"---\"", "RTB_MainView.Locked = false",
                          "TB_Status.SetFocus()", "Bt_Connect.Enabled = true",
                          "Bt_Disconnect.Enabled = false", "menu_opt_function1.Enabled = true",
                          "menu_common_setting.Enabled = true", "menu_opt_log1.Enabled = true",
                          "Cmb_Serect_Device.Enabled = true", "Pic_Caution.Visible = false",
                          "TB_LogComment.Locked = false"));
  EXPECT_EQ(form_.RxFlag, 0);
}

TEST_F(RunControl, WithoutTheOptionNoCautionIsShown) {
  for (const std::int32_t option : {0, 2}) {
    form_.device.t_ViewCaution = option;
    Connect({[this] { EXPECT_FALSE(window_.Pic_Caution.Visible()); }});
  }
  EXPECT_THAT(bench_.Noted("Pic_Caution.Visible = true"), IsEmpty());
}

struct WorkerRow {
  std::int32_t t_Save_ID_DisableMode;
  std::int32_t t_MsgFmtTyp;
  std::int32_t t_msgID_type;
  const char* worker;
};

TEST_F(RunControl, TheWorkerIsTheSameForAllAdapterKinds) {
  constexpr WorkerRow kRows[] = {
      {0, 0, 0, "FormBG"},       {0, 0, 128, "FormBG_29"},  {1, 0, 0, "FormBG2"},
      {1, 0, 128, "FormBG2_29"}, {0, 1, 0, "FormBG2"},      {0, 1, 128, "FormBG2_29"},
      {1, 1, 0, "FormBG2"},      {1, 1, 128, "FormBG2_29"}, {2, 2, 0, "FormBG"},
      {2, 2, 128, "FormBG_29"},  {0, 0, 127, "FormBG"},     {0, 1, -1, "FormBG2"}};
  for (const std::int32_t vender : {kVenderCanusb, kVenderInterface, kVenderKvaser}) {
    Choose(vender);
    for (const WorkerRow& row : kRows) {
      form_.device.t_Save_ID_DisableMode = row.t_Save_ID_DisableMode;
      form_.device.t_MsgFmtTyp = row.t_MsgFmtTyp;
      form_.device.t_msgID_type = row.t_msgID_type;
      memory_.journal.Clear();
      Connect();
      std::vector<std::string> enabled;
      for (const std::string& line : bench_.Noted("FormBG")) {
        if (line.ends_with("Enabled = true")) enabled.push_back(line);
      }
      EXPECT_THAT(enabled, ElementsAre(row.worker + std::string(".TimerBackView.Enabled = true")))
          << "adapter kind " << vender;
    }
  }
}

TEST_F(RunControl, TheAdapterKindDecidesWhichLibraryIsOpened) {
  const std::pair<std::int32_t, const char*> kRows[] = {{kVenderCanusb, "canusb_Open"},
                                                        {kVenderInterface, "CanOpenPort"},
                                                        {kVenderKvaser, "canOpenChannel"}};
  for (const auto& [vender, open] : kRows) {
    Choose(vender);
    memory_.journal.Clear();
    Connect({[this] { EXPECT_EQ(form_.RxFlag, 1); }});
    for (const auto& [other, other_open] : kRows) {
      EXPECT_THAT(bench_.Noted(other_open), SizeIs(other == vender ? 1 : 0)) << open;
    }
  }
}

TEST_F(RunControl, WithoutAnAdapterNothingIsCalledAndRxFlagStays) {
  for (const std::int32_t vender : {kVenderNone, 4, -1}) {
    form_.device.t_select_Vender = vender;
    form_.RxFlag = 5;
    memory_.journal.Clear();
    form_.Bt_Connect_Click();
    EXPECT_EQ(form_.RxFlag, 5);
    EXPECT_EQ(window_.TB_Status.Text(), u"");
    EXPECT_TRUE(window_.Bt_Connect.Enabled());
    EXPECT_THAT(bench_.Noted("canusb_"), IsEmpty());
    EXPECT_THAT(bench_.Noted("timeBeginPeriod"), IsEmpty());
  }
}

// The comment.

TEST_F(RunControl, TheCommentIsTakenTrimmedAndStaysInItsBox) {
  window_.TB_LogComment.Type(u"  二 語  ");
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, u"二 語");
  EXPECT_EQ(window_.TB_LogComment.Text(), u"  二 語  ");
}

TEST_F(RunControl, AFullWidthBlankBelongsToTheComment) {
  window_.TB_LogComment.Type(u"　走行　");
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, u"　走行　");
}

TEST_F(RunControl, OfALongCommentTheFirst50UnitsAreKept) {
  window_.TB_LogComment.Type(u" " + String(50, u'あ') + String(10, u'い'));
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, String(50, u'あ'));
  EXPECT_EQ(window_.TB_LogComment.Text().size(), 61u);
}

TEST_F(RunControl, TheCutCountsUnitsNotCharacters) {
  window_.TB_LogComment.Type(String(49, u'a') + u"\U0001F697");  // 51 units, the last two a pair
  Connect();
  EXPECT_EQ(form_.device.t_LogComment, String(49, u'a') + u'\xD83D');
}

TEST_F(RunControl, AnEmptyCommentIsFineWithoutSubfolders) {
  window_.TB_LogComment.Type(u"   ");
  for (const std::int32_t option : {0, 2}) {
    form_.device.t_LogSave_subFolder = option;
    memory_.journal.Clear();
    Connect();
    EXPECT_EQ(form_.device.t_LogComment, u"") << option;
    EXPECT_THAT(bench_.Noted("canusb_Open"), SizeIs(1)) << option;
  }
}

TEST_F(RunControl, AnEmptyCommentIsRefusedWithSubfolders) {
  form_.device.t_LogSave_subFolder = 1;
  form_.device.t_LogComment = u"前回";
  form_.RxFlag = 5;
  window_.TB_LogComment.Type(u"   ");
  form_.Bt_Connect_Click();
  const auto& boxes = memory_.message_box.Boxes();
  ASSERT_THAT(boxes, SizeIs(1));
  EXPECT_EQ(boxes[0].kind, platform::memory::MessageBox::Kind::kCritical);
  EXPECT_EQ(boxes[0].title, u"Tolvane Ver1.23");
  EXPECT_EQ(boxes[0].text,
            u"「コメントをサブフォルダにして保存する」が有効になっています。\r\n"
            u"コメントを記入して下さい。");
  EXPECT_EQ(form_.RxFlag, 5) << "no run was wanted";
  EXPECT_EQ(form_.device.t_LogComment, u"前回");
  EXPECT_THAT(bench_.Noted("canusb_Open"), IsEmpty());
  EXPECT_THAT(bench_.Noted("TB_Status.Text"), IsEmpty()) << "its text stands as it was";
  EXPECT_TRUE(window_.Bt_Connect.Enabled());
  EXPECT_FALSE(memory_.RTB_MainView.Locked());
}

TEST_F(RunControl, TheWindowStaysWhileTheCommentIsAskedFor) {
  form_.device.t_LogSave_subFolder = 1;
  window_.TB_LogComment.Type(u"");
  memory_.message_box.WhileShown([this] { form_.menu_file_close_Click(); });
  form_.Bt_Connect_Click();
  EXPECT_THAT(bench_.Noted("Form1.Unload"), SizeIs(1));
  EXPECT_THAT(bench_.Noted("FormHelp.Unload"), IsEmpty());
}

// What a run leaves in the status box.

TEST_F(RunControl, ABoardThatFailsToCloseIsToldInTheStatusBox) {
  Choose(kVenderInterface);
  memory_.IFCan.close_status = form_.IfCan_u.IFCAN_ERROR_USB_TIMEOUT;
  Connect();
  EXPECT_EQ(window_.TB_Status.Text(), u"USB communicate Timeout.");
}

TEST_F(RunControl, AnUnknownStatusOfABoardLeavesTheBoxEmpty) {
  Choose(kVenderInterface);
  memory_.IFCan.close_status = 77;
  Connect();
  EXPECT_EQ(window_.TB_Status.Text(), u"");
}

TEST_F(RunControl, ABoardThatDoesNotOpenIsToldInTheStatusBox) {
  Choose(kVenderInterface);
  memory_.IFCan.get_config_status = form_.IfCan_u.IFCAN_ERROR_ACCESS_DENIED;
  form_.Bt_Connect_Click();
  EXPECT_EQ(window_.TB_Status.Text(), u"The device handle is invalid.");
  EXPECT_EQ(form_.RxFlag, 0);
}

TEST_F(RunControl, ARateThatTheBoardLacksLeavesTheBoxEmpty) {
  Choose(kVenderInterface);
  form_.device.t_bitRate = 7;
  form_.Bt_Connect_Click();
  EXPECT_THAT(memory_.message_box.Boxes(), SizeIs(1));
  EXPECT_THAT(bench_.Noted("CanOpenPort"), IsEmpty());
  EXPECT_EQ(window_.TB_Status.Text(), u"");
}

// The other handlers.

TEST_F(RunControl, DisconnectOnlyEndsTheLoopAndDisablesItsButton) {
  form_.RxFlag = 1;
  form_.Bt_Disconnect_Click();
  EXPECT_EQ(form_.RxFlag, 0);
  EXPECT_THAT(memory_.journal.Lines(), ElementsAre("Bt_Disconnect.Enabled = false"));
}

TEST_F(RunControl, ClearEmptiesTheViewAlsoDuringARun) {
  memory_.RTB_MainView.Text(u"notes");
  Connect({[this] {
    form_.Bt_ViewClear_Click();
    EXPECT_EQ(memory_.RTB_MainView.Text(), u"");
    EXPECT_EQ(form_.RxFlag, 1);
  }});
}

TEST_F(RunControl, TheSnapshotButtonSavesWhatIsShown) {
  form_.device.t_SaveFormat = 2;
  memory_.RTB_MainView.Text(u"page");
  form_.Bt_SaveFile_Click();
  EXPECT_EQ(memory_.files.Bytes(u"C:\\Tolvane\\KS26010509-001.txt"), "page");
}

TEST_F(RunControl, SelectingTheSameLineDoesNothing) {
  window_.Cmb_Serect_Device.ListIndex(0);
  EXPECT_THAT(bench_.Noted("canusb_Open"), IsEmpty());
}

TEST(DeviceList, SelectingAnotherLineSelectsItsAdapter) {
  Form1Bench bench;
  bench.memory.IFCan.ports = {{.number = 4, .information = {36, 0, 4852, 513, 1, 0, 0, 2, 0}}};
  bench.Start();
  bench.memory.window.Cmb_Serect_Device.ListIndex(1);
  EXPECT_EQ(bench.form.device.t_CmbBOX_device_SelectNo, 2);
  EXPECT_EQ(bench.form.device.t_select_Vender, kVenderInterface);
  EXPECT_EQ(bench.memory.window.TB_ODB_Hard_Version.Text(), u"Interface CBI-4852 RevID:1 ch:2");
  bench.memory.window.Cmb_Serect_Device.ListIndex(0);
  EXPECT_EQ(bench.form.device.t_select_Vender, kVenderCanusb);
}

TEST_F(RunControl, ClosingIsRefusedByEveryWorkerAndTheRunGoesOn) {
  for (const std::int32_t type : {0, kMsgIdType29Bit}) {
    for (const std::int32_t mode : {0, 1}) {
      form_.device.t_msgID_type = type;
      form_.device.t_Save_ID_DisableMode = mode;
      memory_.journal.Clear();
      int passes = 0;
      Connect({[this] { form_.menu_file_close_Click(); },
               [this, &passes] {
                 ++passes;
                 EXPECT_EQ(form_.RxFlag, 1);
                 EXPECT_TRUE(form_.ClosingIsRefused());
               }});
      EXPECT_EQ(passes, 1);
      EXPECT_THAT(bench_.Noted("FormHelp.Unload"), IsEmpty());
      EXPECT_FALSE(bench_.Wrote(u"config.dat"));
    }
  }
  EXPECT_FALSE(form_.ClosingIsRefused());
}

}  // namespace
}  // namespace tolvane
