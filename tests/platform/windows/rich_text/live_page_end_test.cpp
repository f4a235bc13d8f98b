// The page when its run ends: it goes into the control completely.
#include <string>

#include "tests/platform/windows/rich_text/live_page_bed.h"
#include "tests/platform/windows/rich_text/refused_streams.h"

namespace tolvane::platform::windows {
namespace {

TEST_F(LivePage, TheEndOfTheRunPutsThePageIntoTheControl) {
  SwapMarkedPage();
  view_.Locked(false);
  EXPECT_FALSE(view_.Locked());
  ExpectMarkedPageInTheControl();
  EXPECT_FALSE(view_.CanUndo());
  view_.SelStart(0);
  view_.SelText(u"edited ");
  EXPECT_EQ(view_.Text(), u"edited " + String(kText));
}

TEST_F(LivePage, TheEndOfARunWithoutATickLeavesTheText) {
  view_.Text(u"notes");
  view_.Locked(true);
  view_.Locked(false);
  EXPECT_EQ(view_.Text(), u"notes");
}

TEST_F(LivePage, OddPagesComeWholeIntoTheControl) {
  String surrogates = u"a\U0001F697b";
  surrogates += char16_t{0xD83D};
  surrogates += u"c\r\n";
  const String texts[] = {u"",
                          u"x",
                          u"\r\n",
                          u"a\r\n\r\n",
                          u"{\\}~\u00A5",
                          surrogates,
                          String(50000, u'y') + u"\r\nend",
                          Lines(4001)};
  for (const String& text : texts) {
    view_.Locked(true);
    Swap(text);
    EXPECT_TRUE(view_.Text() == text) << "live, length " << text.size();
    view_.Locked(false);
    EXPECT_TRUE(view_.Text() == text) << "in the control, length " << text.size();
  }
}

TEST_F(LivePage, TheScrolledPageStaysWhereItIsInTheControl) {
  Swap(Lines(200));
  Send(WM_VSCROLL, SB_PAGEDOWN);
  const int scrolled = ScrolledBy(Surface(), SB_VERT);
  ASSERT_GT(scrolled, 0);
  view_.Locked(false);
  POINT place{};
  Send(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&place));
  EXPECT_EQ(place.y, scrolled);
}

TEST_F(LivePage, AnUnlockedSwapGoesStraightIntoTheControl) {
  view_.Locked(false);
  SwapMarkedPage();
  ExpectMarkedPageInTheControl();
}

TEST_F(LivePage, APageThatTheControlCannotTakeStaysOnTheSurface) {
  for (const DWORD error : {DWORD{ERROR_NOT_ENOUGH_MEMORY}, DWORD{0}}) {
    SCOPED_TRACE(error);
    view_.Locked(true);
    SwapMarkedPage();
    {
      RefusedStreams refused(view_.Hwnd(), error);
      Send(EM_GETLINECOUNT);
      EXPECT_NE(Surface(), nullptr);
      view_.Locked(false);
      EXPECT_GT(refused.Count(), 1);
      EXPECT_FALSE(view_.Locked());
      EXPECT_NE(Surface(), nullptr);
      EXPECT_EQ(view_.Text(), kText);
      EXPECT_EQ(WindowText(view_.Hwnd()), kText);
      Send(WM_CHAR, L'x');
    }
    EXPECT_EQ(Send(EM_GETLINECOUNT), 4) << "no second try";
    ExpectMarkedPageInTheControl();
    view_.SelStart(0);
    Send(WM_CHAR, L'x');
    EXPECT_EQ(view_.Text(), u"x" + String(kText));
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
