#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "tests/run/control/form1_bench.h"

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Closing : public testing::Test {
 protected:
  Closing() {
    bench_.Start();
    bench_.memory.files.Remove(bench_.Path(kFolder, u"lglist.dat"));
    bench_.memory.events.OnYield([this] { bench_.memory.journal.Note("yield"); });
  }
  std::int32_t Ask() {
    std::int32_t Cancel = 0;
    bench_.form.Form_QueryUnload(Cancel);
    return Cancel;
  }
  void ExpectRefused() {
    EXPECT_TRUE(bench_.form.ClosingIsRefused());
    bench_.memory.journal.Clear();
    EXPECT_EQ(Ask(), 1);
    EXPECT_THAT(bench_.memory.journal.Lines(), IsEmpty());
    EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
    EXPECT_FALSE(bench_.Wrote(u"lglist.dat"));
    EXPECT_FALSE(bench_.Wrote(u"config.dat"));
  }
  void ExpectClosedInOrder() {
    EXPECT_THAT(bench_.memory.journal.Lines(),
                ElementsAre("Form1.Unload()", "yield", "FormBG.TimerBackView.Enabled = false",
                            "RTB_MainView.SaveFile(\"C:\\Tolvane\\lglist.dat\")", "Form2.Unload()",
                            "yield", "FormBG.Unload()", "yield", "FormBG_29.Unload()", "yield",
                            "FormBG2.Unload()", "yield", "FormBG2_29.Unload()", "yield",
                            "FormVersion.Unload()", "yield", "FormCommonSetting.Unload()", "yield",
                            "FormOption1.Unload()", "yield", "FormHelp.Unload()", "yield"));
  }

  Form1Bench bench_;
};

TEST_F(Closing, IsRefusedWhileTheViewIsLocked) {
  bench_.memory.RTB_MainView.Locked(true);
  ExpectRefused();
}

TEST_F(Closing, IsRefusedWhileARunIsWanted) {
  bench_.form.RxFlag = 1;
  ExpectRefused();
  EXPECT_EQ(bench_.form.RxFlag, 1);
}

TEST_F(Closing, IsRefusedWhileTheTimerOfFormBGRuns) {
  bench_.memory.FormBG.Enabled(true);
  ExpectRefused();
  EXPECT_TRUE(bench_.memory.FormBG.Enabled());
}

TEST_F(Closing, DoesNotLookAtTheOtherTimers) {
  bench_.memory.FormBG2.Enabled(true);
  bench_.memory.FormBG_29.Enabled(true);
  bench_.memory.FormBG2_29.Enabled(true);
  EXPECT_FALSE(bench_.form.ClosingIsRefused());
  EXPECT_EQ(Ask(), 0);
}

TEST_F(Closing, SavesThenUnloadsTheOtherFormsInOrder) {
  bench_.form.menu_file_close_Click();
  ExpectClosedInOrder();
  EXPECT_TRUE(bench_.Wrote(u"lglist.dat"));
  EXPECT_TRUE(bench_.Wrote(u"config.dat"));
}

TEST_F(Closing, SavesTheViewBeforeTheSettings) {
  Form1Bench measured;
  measured.Start();
  measured.form.menu_file_close_Click();
  const auto view = measured.memory.files.Bytes(measured.Path(kFolder, u"lglist.dat"));
  ASSERT_TRUE(view.has_value());

  bench_.memory.files.FreeSpace(view->size());
  bench_.form.menu_file_close_Click();
  EXPECT_EQ(bench_.memory.files.Bytes(bench_.Path(kFolder, u"lglist.dat")), view);
  EXPECT_EQ(bench_.memory.files.Bytes(bench_.Path(kFolder, u"config.dat")).value_or(""), "");
  EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
}

TEST_F(Closing, TakesTheCommentTrimmedAndCut) {
  bench_.memory.window.TB_LogComment.Type(u"  " + String(60, u'試') + u" ");
  EXPECT_EQ(Ask(), 0);
  EXPECT_EQ(bench_.form.device.t_LogComment, String(50, u'試'));
}

TEST_F(Closing, OfAFolderThatIsGoneHarmsNothing) {
  bench_.memory.files.Remove(kFolder);
  EXPECT_EQ(Ask(), 0);
  EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
  EXPECT_FALSE(bench_.Wrote(u"config.dat"));
}

TEST_F(Closing, StartsNoRunInAnyOfItsYields) {
  bench_.memory.canusbdrv.open_result = 0;  // a run that starts anyway ends again, with a box
  int clicks = 0;
  bench_.memory.events.OnYield([&] {
    ++clicks;
    bench_.Click(&Form1::Bt_Connect_Click);
  });
  bench_.Click(&Form1::menu_file_close_Click);
  EXPECT_EQ(clicks, 10);
  EXPECT_THAT(bench_.Noted("canusb_"), IsEmpty());
  EXPECT_THAT(bench_.Noted("Bt_Connect"), IsEmpty());
  EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
  EXPECT_TRUE(bench_.Wrote(u"config.dat"));
}

TEST_F(Closing, TakesNoCommandInAnyOfItsYields) {
  bench_.memory.RTB_MainView.Text(u"notes");
  const std::size_t files = bench_.memory.files.Files(kFolder).size();
  bool clicking = false;
  bench_.memory.events.OnYield([&] {
    bench_.memory.journal.Note("yield");
    if (std::exchange(clicking, true)) return;
    for (const auto command :
         {&Form1::Bt_ViewClear_Click, &Form1::Bt_SaveFile_Click, &Form1::menu_file_close_Click,
          &Form1::menu_View_Date_Click, &Form1::RTB_MainView_ContextMenu}) {
      bench_.Click(command);
    }
    clicking = false;
  });
  bench_.memory.journal.Clear();
  bench_.Click(&Form1::menu_file_close_Click);
  ExpectClosedInOrder();
  EXPECT_EQ(bench_.memory.RTB_MainView.Text(), u"notes");
  EXPECT_EQ(bench_.memory.files.Files(kFolder).size(), files + 2) << "a snapshot was saved";
  EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
}

TEST_F(Closing, ThatWasRefusedTakesCommandsAsBefore) {
  bench_.form.RxFlag = 1;
  EXPECT_EQ(Ask(), 1);
  bench_.Click(&Form1::Bt_Disconnect_Click);
  EXPECT_EQ(bench_.form.RxFlag, 0);
}

}  // namespace
}  // namespace tolvane
