#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/run/control/view_bed.h"

namespace tolvane {
namespace {

using Format = platform::Clipboard::Format;
using testing::ElementsAre;
using testing::IsEmpty;

class ViewCommands : public ViewBed {};

TEST_F(ViewCommands, CopyReplacesTheClipboardByBothForms) {
  clipboard_.Put(u"old", Format::kPlainText);
  Select(3, 4);
  bench_.form.menu_View_Ctrl_C_Click();
  EXPECT_EQ(clipboard_.GetText(Format::kPlainText, 0), u"3456");
  EXPECT_EQ(clipboard_.GetText(Format::kRichText, 0), view_.SelRTF());
  EXPECT_EQ(view_.Text(), u"0123456789");
}

TEST_F(ViewCommands, CutAlsoTakesTheSelectionAway) {
  Select(3, 4);
  bench_.form.menu_View_Ctrl_X_Click();
  EXPECT_EQ(clipboard_.GetText(Format::kPlainText, 0), u"3456");
  EXPECT_EQ(view_.Text(), u"012789");
}

TEST_F(ViewCommands, EveryCopyReplacesAllInOneOpeningOfTheClipboard) {
  clipboard_.WatchedByAnother(1000);
  for (const auto command : {&Form1::menu_View_Ctrl_C_Click, &Form1::menu_View_Ctrl_X_Click,
                             &Form1::menu_View_All_Copy_Click}) {
    clipboard_.HeldByAnother(0);
    bench_.memory.journal.Clear();
    (bench_.form.*command)();
    EXPECT_THAT(bench_.Noted("Clipboard."), ElementsAre("Clipboard.Replace()"));
  }
}

TEST_F(ViewCommands, CutGoesOnWhateverTheClipboardRefusesAndCanBeUndone) {
  Select(3, 4);
  clipboard_.HeldByAnother(platform::memory::Clipboard::kForever);
  bench_.form.menu_View_Ctrl_X_Click();
  EXPECT_EQ(view_.Text(), u"012789");
  EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
  bench_.form.menu_View_Ctrl_Z_Click();
  EXPECT_EQ(view_.Text(), u"0123456789");
}

TEST_F(ViewCommands, AFormThatTheClipboardRefusesDoesNotStopTheOther) {
  Select(3, 4);
  clipboard_.Refuse(Format::kPlainText);
  bench_.form.menu_View_Ctrl_C_Click();
  EXPECT_EQ(clipboard_.GetText(Format::kRichText, 0), view_.SelRTF());
}

TEST_F(ViewCommands, AHeldClipboardIsWaitedForFor100MsAndInARunFor20) {
  const struct { std::int32_t RxFlag, patience; } rows[] = {{0, 100}, {1, 20}};
  for (const auto& [RxFlag, patience] : rows) {
    bench_.form.RxFlag = RxFlag;
    Select(3, 4);
    clipboard_.Empty();
    clipboard_.HeldByAnother(patience + 1);
    bench_.form.menu_View_Ctrl_C_Click();
    EXPECT_FALSE(clipboard_.GetFormat(Format::kPlainText)) << patience;
    clipboard_.HeldByAnother(patience);
    bench_.form.menu_View_Ctrl_C_Click();
    EXPECT_TRUE(clipboard_.GetFormat(Format::kPlainText)) << patience;

    view_.Text(u"0123456789");
    Select(10, 0);
    clipboard_.Empty();
    clipboard_.Put(u"x", Format::kPlainText);
    clipboard_.HeldByAnother(patience + 1);
    bench_.form.menu_View_Ctrl_V_Click();
    EXPECT_EQ(view_.Text(), u"0123456789") << patience;
    clipboard_.HeldByAnother(patience);
    bench_.form.menu_View_Ctrl_V_Click();
    EXPECT_EQ(view_.Text(), u"0123456789x") << patience;
    view_.Text(u"0123456789");
  }
}

TEST_F(ViewCommands, CopyAllNeedsNoSelection) {
  Select(3, 0);
  bench_.form.menu_View_All_Copy_Click();
  EXPECT_EQ(clipboard_.GetText(Format::kPlainText, 0), u"0123456789");
  EXPECT_EQ(clipboard_.GetText(Format::kRichText, 0), view_.TextRTF());
}

TEST_F(ViewCommands, PastePrefersRichTextAndWritesItAsPlainText) {
  clipboard_.Put(u"plain", Format::kPlainText);
  clipboard_.Put(u"{\\rtf1 rich}", Format::kRichText);
  Select(10, 0);
  bench_.form.menu_View_Ctrl_V_Click();
  EXPECT_EQ(view_.Text(), u"0123456789{\\rtf1 rich}");
}

TEST_F(ViewCommands, PasteTakesPlainTextWithoutRichText) {
  clipboard_.Put(u"plain", Format::kPlainText);
  Select(5, 0);
  bench_.form.menu_View_Ctrl_V_Click();
  EXPECT_EQ(view_.Text(), u"01234plain56789");
}

TEST_F(ViewCommands, PasteOfNothingLeavesTheText) {
  Select(2, 3);
  bench_.form.menu_View_Ctrl_V_Click();
  clipboard_.Put(u"plain", Format::kPlainText);
  clipboard_.HeldByAnother(platform::memory::Clipboard::kForever);
  bench_.form.menu_View_Ctrl_V_Click();
  EXPECT_EQ(view_.Text(), u"0123456789");
}

TEST_F(ViewCommands, DeleteAndUndo) {
  Select(0, 9);
  bench_.form.menu_View_DEL_Click();
  EXPECT_EQ(view_.Text(), u"9");
  EXPECT_THAT(clipboard_.GetFormat(Format::kPlainText), false);
  bench_.form.menu_View_Ctrl_Z_Click();
  EXPECT_EQ(view_.Text(), u"0123456789");
}

struct ColourRow {
  const char* label;
  void (Form1::*command)();
  std::int32_t colour;  // 0x00BBGGRR
};

TEST_F(ViewCommands, TextColours) {
  for (const ColourRow& row : {ColourRow{"red", &Form1::menu_View_Text_Red_Click, 0x0000FF},
                               ColourRow{"blue", &Form1::menu_View_Text_Blue_Click, 0xFF0000},
                               ColourRow{"black", &Form1::menu_View_Text_Black_Click, 0x000000}}) {
    Select(1, 2);
    (bench_.form.*row.command)();
    EXPECT_THAT(view_.Page().colours.Runs(), ElementsAre(platform::ColourRun{1, 3, row.colour}))
        << row.label;
    EXPECT_THAT(view_.Page().backgrounds.Runs(), IsEmpty()) << row.label;
  }
}

TEST_F(ViewCommands, Markers) {
  for (const ColourRow& row :
       {ColourRow{"pink", &Form1::menu_View_Marker_Pink_Click, 0xF8D3FF},
        ColourRow{"yellow", &Form1::menu_View_Marker_Yellow_Click, 0xA3FAFF},
        ColourRow{"black", &Form1::menu_View_Marker_black_Click, 0x000000},
        ColourRow{"white", &Form1::menu_View_Marker_white_Click, 0xFFFFFF}}) {
    Select(1, 2);
    (bench_.form.*row.command)();
    EXPECT_THAT(view_.Page().backgrounds.Runs(), ElementsAre(platform::ColourRun{1, 3, row.colour}))
        << row.label;
    EXPECT_THAT(view_.Page().colours.Runs(), IsEmpty()) << row.label;
  }
}

TEST_F(ViewCommands, TheDateGoesInAtTheCaretWithABlankBehind) {
  Select(10, 0);
  bench_.form.menu_View_Date_Click();
  EXPECT_EQ(view_.Text(), u"01234567892026年01月05日(月) 09:07 ");
}

TEST_F(ViewCommands, TheDateCountsTo24Hours) {
  bench_.memory.wall_clock.Set(
      {.year = 2031, .month = 12, .day = 31, .weekday = 3, .hour = 23, .minute = 59, .second = 58});
  view_.Text(u"");
  bench_.form.menu_View_Date_Click();
  EXPECT_EQ(view_.Text(), u"2031年12月31日(水) 23:59 ");
}

TEST_F(ViewCommands, WriteOnALockedPage) {
  view_.Locked(true);
  Select(0, 1);
  bench_.form.menu_View_DEL_Click();
  EXPECT_EQ(view_.Text(), u"123456789");
}

}  // namespace
}  // namespace tolvane
