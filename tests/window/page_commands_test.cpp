// The commands of the page between runs, with the clipboard read and held by this process.
#include <regex>
#include <vector>

#include "tests/window/control_ids.h"
#include "tests/window/page_fixture.h"
#include "tests/window/system_clipboard.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

using PageCommands = PageCommandsBase;

const std::vector<int> kForASelection = {id::menu_View_Ctrl_X,       id::menu_View_Ctrl_C,
                                         id::menu_View_DEL,          id::menu_View_Text_Red,
                                         id::menu_View_Text_Blue,    id::menu_View_Text_Black,
                                         id::menu_View_Marker_Pink,  id::menu_View_Marker_Yellow,
                                         id::menu_View_Marker_black, id::menu_View_Marker_white};

TEST_F(PageCommands, CopyGivesOtherProgramsPlainAndRichText) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"受信 ABC\r\n2行目"));
  HeldClipboard().Put(L"older", "{\\rtf1 older}");
  Select(0, 6);
  ExpectCopied(id::menu_View_Ctrl_C, L"受信 ABC");
  EXPECT_EQ(Utf8(RichTextReader(HeldClipboard().Rich()).Text()), Utf8(L"受信 ABC"));

  SetCaret(2);
  ExpectCopied(id::menu_View_All_Copy, L"受信 ABC\r\n2行目");
  EXPECT_TRUE(RichTextReader(HeldClipboard().Rich()).Text().starts_with(L"受信 ABC\r\n2行目"));

  Select(3, 6);
  ExpectCopied(id::menu_View_Ctrl_X, L"ABC");
  EXPECT_EQ(Utf8(Page()), Utf8(L"受信 \r\n2行目"));
  SetCaret(3);
  Do(id::menu_View_Ctrl_Z);
  EXPECT_EQ(Utf8(Page()), Utf8(L"受信 ABC\r\n2行目"));
  Select(0, 3);
  Do(id::menu_View_DEL);
  EXPECT_EQ(Utf8(Page()), Utf8(L"ABC\r\n2行目"));
  EXPECT_EQ(HeldClipboard().Plain(), L"ABC");
  End();
}

TEST_F(PageCommands, ColoursAndMarkersGoAlongWithACopy) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"abcdef"));
  const struct {
    int command;
    COLORREF colour;
    bool marker;
  } rows[] = {{id::menu_View_Text_Red, RGB(255, 0, 0), false},
              {id::menu_View_Text_Blue, RGB(0, 0, 255), false},
              {id::menu_View_Text_Black, RGB(0, 0, 0), false},
              {id::menu_View_Marker_Pink, RGB(255, 211, 248), true},
              {id::menu_View_Marker_Yellow, RGB(255, 250, 163), true},
              {id::menu_View_Marker_black, RGB(0, 0, 0), true},
              {id::menu_View_Marker_white, RGB(255, 255, 255), true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.command);
    Select(1, 3);
    Do(row.command);
    Select(0, 6);
    HeldClipboard().Put(L"older");
    ExpectCopied(id::menu_View_Ctrl_C, L"abcdef");
    const RichTextReader copy(HeldClipboard().Rich());
    const CHARFORMAT2W inside = copy.FormatAt(2);
    if (row.marker) {
      EXPECT_EQ(inside.dwEffects & CFE_AUTOBACKCOLOR, 0u);
      EXPECT_EQ(inside.crBackColor, row.colour);
      EXPECT_NE(copy.FormatAt(3).dwEffects & CFE_AUTOBACKCOLOR, 0u);
    } else {
      EXPECT_EQ(inside.crTextColor, row.colour);
      EXPECT_EQ(copy.FormatAt(3).crTextColor, RGB(0, 0, 0));
    }
  }
  End();
}

TEST_F(PageCommands, ThePopUpOffersWhatCanBeDone) {
  { HeldClipboard().Put(L""); }
  ASSERT_NO_FATAL_FAILURE(StartOnRecording(""));
  EXPECT_EQ(OpenPopUp(), Items{id::menu_View_Date}) << "before any change of the selection";
  WriteOver(L"abc");
  SetCaret(0);
  EXPECT_EQ(OpenPopUp(), (Items{id::menu_View_All_Copy, id::menu_View_Ctrl_Z, id::menu_View_Date}));
  HeldClipboard().Put(L"text");
  SetCaret(0);
  EXPECT_EQ(OpenPopUp(), (Items{id::menu_View_All_Copy, id::menu_View_Ctrl_Z, id::menu_View_Ctrl_V,
                                id::menu_View_Date}));
  Select(0, 2);
  EXPECT_EQ(OpenPopUp(), kForASelection);
  // The menu key.
  EXPECT_EQ(OpenPopUp(main_.Control(id::RTB_MainView), WM_CONTEXTMENU, -1), kForASelection);
  // What is disabled does nothing either.
  for (const int item : {id::menu_View_Ctrl_V, id::menu_View_Ctrl_Z, id::menu_View_Date}) Do(item);
  EXPECT_EQ(Page(), L"abc");
  End();
}

TEST_F(PageCommands, AClipboardHeldByAnotherProgramTakesNothingAndWhatWasCutComesBack) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"0123456789"));
  HeldClipboard().Put(L"theirs");
  {
    const HeldClipboard held;
    Select(0, 2);
    Do(id::menu_View_Ctrl_C);
    Do(id::menu_View_Ctrl_X);
    EXPECT_EQ(Page(), L"23456789");
    Do(id::menu_View_Ctrl_Z);
    EXPECT_EQ(Page(), L"0123456789");
    SetCaret(0);
    Do(id::menu_View_Ctrl_V);
    Do(id::menu_View_All_Copy);
    EXPECT_EQ(Page(), L"0123456789");
    EXPECT_EQ(held.Plain(), L"theirs");
  }
  EXPECT_FALSE(FindMessage(program_->Id()));
  Do(id::menu_View_Ctrl_V);
  EXPECT_EQ(Utf8(Page()), "theirs0123456789");
  Select(0, 6);
  ExpectCopied(id::menu_View_Ctrl_X, L"theirs");
  EXPECT_EQ(Utf8(Page()), "0123456789");
  End();
}

TEST_F(PageCommands, WithoutPlainTextOnTheClipboardThereIsNoPaste) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"abc"));
  for (const char* rich : {"", "{\\rtf1 rich}"}) {
    HeldClipboard().Put(L"", rich);
    SetCaret(0);
    EXPECT_EQ(OpenPopUp(),
              (Items{id::menu_View_All_Copy, id::menu_View_Ctrl_Z, id::menu_View_Date}))
        << rich;
    Do(id::menu_View_Ctrl_V);
    EXPECT_EQ(Page(), L"abc") << rich;
  }
  End();
}

TEST_F(PageCommands, RichTextGoesInAtTheCaretAsItsSourceAheadOfThePlainText) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"ab"));
  HeldClipboard().Put(L"plain", "{\\rtf1\\ansi \\b rich}");
  SetCaret(1);
  Do(id::menu_View_Ctrl_V);
  EXPECT_EQ(Utf8(Page()), "a{\\rtf1\\ansi \\b rich}b");
  HeldClipboard().Put(L"plain");
  SetCaret(0);
  Do(id::menu_View_Ctrl_V);
  EXPECT_EQ(Utf8(Page()), "plaina{\\rtf1\\ansi \\b rich}b");
  End();
}

TEST_F(PageCommands, BrokenRichTextHarmsNothing) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L""));
  const std::string broken[] = {"{\\rtf1 {\\fonttbl{\\f0\\fcharset999999999999 \\u-99999999999?",
                                "{\\rtf1" + std::string(20000, '{'), "no rich text \xff\x80",
                                "}}}{\\rtf1\\bin2000000000 x"};
  for (const std::string& rich : broken) {
    SCOPED_TRACE(rich.substr(0, 40));
    ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
    WriteOver(L"old text");
    HeldClipboard().Put(L"plain", rich);
    SetCaret(0);
    Do(id::menu_View_Ctrl_V);
    EXPECT_TRUE(Page().ends_with(L"old text")) << Utf8(Page().substr(0, 80));
  }
  EXPECT_FALSE(FindMessage(program_->Id()));
  ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
  HeldClipboard().Put(L"貼り付け");
  SetCaret(0);
  Do(id::menu_View_Ctrl_V);
  EXPECT_TRUE(Page().starts_with(L"貼り付け")) << Utf8(Page());
  End();
}

TEST_F(PageCommands, TheDateGoesInAtTheCaret) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"ab"));
  SetCaret(1);
  Do(id::menu_View_Date);
  const std::wregex expected(
      L"a20\\d\\d年[01]\\d月[0-3]\\d日\\([日月火水木金土]\\) [0-2]\\d:[0-5]\\d b");
  EXPECT_TRUE(std::regex_match(Page(), expected)) << Utf8(Page());
  End();
}

}  // namespace
}  // namespace tolvane::window
