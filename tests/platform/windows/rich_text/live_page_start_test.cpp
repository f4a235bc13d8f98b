// The first pages of a run, over a control that holds something: it is left as it is, as emptying
// it takes seconds, in which reception stands.
#include <algorithm>
#include <iterator>
#include <string>

#include "tests/platform/windows/rich_text/control_hook.h"
#include "tests/platform/windows/rich_text/live_page_bed.h"

namespace tolvane::platform::windows {
namespace {

/// Counts the messages to a control that change its content or format.
class CountedChanges {
 public:
  explicit CountedChanges(HWND control)
      : hook_(control, [this](UINT message, LPARAM /*lparam*/) -> std::optional<LRESULT> {
          if (std::ranges::find(kChanges, message) != std::end(kChanges)) ++count_;
          return std::nullopt;
        }) {}

  [[nodiscard]] int Count() const { return count_; }

 private:
  static constexpr UINT kChanges[] = {
      WM_SETTEXT,    WM_CUT,           WM_PASTE,         WM_CLEAR,     WM_UNDO,
      EM_REPLACESEL, EM_SETCHARFORMAT, EM_SETPARAFORMAT, EM_SETTEXTEX, EM_STREAMIN,
      EM_UNDO,       EM_PASTESPECIAL,  EM_SETTEXTMODE};

  int count_ = 0;
  ControlHook hook_;
};

class LivePageOverText : public LivePage {
 protected:
  static constexpr StringView kBefore = u"notes\r\nof the user\r\n";

  /// Idle, with a text that can be undone and is selected in part.
  void SetUp() override {
    LivePage::SetUp();
    view_.Locked(false);
    view_.Text(u"");
    view_.SelText(kBefore);
    view_.SelStart(0);
    view_.SelLength(5);
    ASSERT_TRUE(view_.CanUndo());
    selection_changes_ = 0;
  }
};

TEST_F(LivePageOverText, TheControlIsLeftAsItIsUntilItGetsThePage) {
  const CountedChanges changes(view_.Hwnd());
  view_.Locked(true);
  for (int i = 0; i < 3; ++i) {
    SwapMarkedPage();
    view_.Refresh();
  }
  EXPECT_EQ(view_.Text(), kText);
  view_.Text(u"");
  SwapMarkedPage();
  EXPECT_EQ(changes.Count(), 0);
  view_.Locked(false);
  EXPECT_GT(changes.Count(), 0);
  ExpectMarkedPageInTheControl();
}

TEST_F(LivePageOverText, ATextAheadOfTheFirstPageIsALivePageToo) {
  const CountedChanges changes(view_.Hwnd());
  view_.Locked(true);
  view_.Text(u"cleared");
  EXPECT_EQ(changes.Count(), 0);
  EXPECT_NE(Surface(), nullptr);
  EXPECT_EQ(WindowText(view_.Hwnd()), u"cleared");
  view_.Locked(false);
  EXPECT_EQ(view_.Text(), u"cleared");
  EXPECT_FALSE(view_.CanUndo());
}

TEST_F(LivePageOverText, ATextBehindAReadersFillingLeavesTheControlToo) {
  view_.Locked(true);
  ASSERT_TRUE(FillsForReader([this] { Send(WM_GETOBJECT, 0, OBJID_CLIENT); }));
  const CountedChanges changes(view_.Hwnd());
  view_.Text(u"");
  EXPECT_EQ(changes.Count(), 0);
  EXPECT_EQ(view_.Text(), u"");
  view_.Locked(false);
  EXPECT_EQ(view_.Text(), u"");
}

TEST_F(LivePageOverText, NothingOfItCanBeReadUndoneOrSelected) {
  view_.Locked(true);
  SwapMarkedPage();
  EXPECT_EQ(selection_changes_, 1);
  EXPECT_EQ(view_.SelLength(), 0);
  EXPECT_FALSE(view_.CanUndo());
  EXPECT_EQ(Send(EM_CANUNDO), FALSE);
  EXPECT_EQ(view_.Text(), kText);
  EXPECT_EQ(WindowText(view_.Hwnd()), kText);
  EXPECT_NE(Surface(), nullptr);
  EXPECT_EQ(view_.SelText(), u"");
  EXPECT_EQ(Surface(), nullptr) << "the selection was asked of a control without the page";
  EXPECT_EQ(view_.Text(), kText);
  SwapMarkedPage();
  view_.Locked(false);
  EXPECT_EQ(selection_changes_, 1);
  EXPECT_FALSE(view_.CanUndo());
  ExpectMarkedPageInTheControl();
}

TEST_F(LivePageOverText, ItStaysWhenTheRunHasNoPage) {
  view_.Locked(true);
  view_.Locked(false);
  EXPECT_EQ(view_.Text(), kBefore);
  EXPECT_EQ(view_.SelLength(), 5);
  EXPECT_TRUE(view_.CanUndo());
  view_.Undo();
  EXPECT_EQ(view_.Text(), u"");
}

TEST_F(LivePageOverText, AReaderThatAsksAgainAtOnceGetsAPageOfTheRun) {
  view_.Locked(true);
  ASSERT_TRUE(FillsForReader([this] { Send(WM_GETOBJECT, 0, OBJID_CLIENT); }));
  Swap(u"the next page");
  Send(WM_GETOBJECT, 0, OBJID_CLIENT);
  // What the object shows: it asks the control itself, past the view.
  WNDCLASSEXW control{};
  control.cbSize = sizeof(control);
  ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(L"msftedit.dll"), MSFTEDIT_CLASS, &control));
  wchar_t shown[64] = {};
  TEXTRANGEW part{{0, 2}, shown};
  CallWindowProcW(control.lpfnWndProc, view_.Hwnd(), EM_GETTEXTRANGE, 0,
                  reinterpret_cast<LPARAM>(&part));
  EXPECT_TRUE(std::wstring(shown) == L"ID" || std::wstring(shown) == L"th") << shown;
}

TEST_F(LivePage, ASecondRunShowsAndLeavesItsOwnPage) {
  SwapMarkedPage();
  view_.Locked(false);
  ExpectMarkedPageInTheControl();
  view_.Locked(true);
  auto page = Page(u"ID\r\n1A0  03 04 05\r\n");
  page->colours.Paint(4, 7, 0xFF0000);
  view_.SwapPage(page);
  EXPECT_EQ(WindowText(view_.Hwnd()), u"ID\r\n1A0  03 04 05\r\n");
  view_.Locked(false);
  EXPECT_EQ(view_.Text(), u"ID\r\n1A0  03 04 05\r\n");
  EXPECT_EQ(ColourAt(4), 0xFF0000U);
  EXPECT_EQ(ColourAt(12), 0U);
  EXPECT_NE(FormatAt(0).dwEffects & CFE_AUTOBACKCOLOR, 0U);
}

TEST_F(LivePage, ARestoredPageGivesWayToTheRuns) {
  view_.Locked(false);
  ASSERT_TRUE(Load("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf1\\highlight1 restored\\par}"));
  view_.ScrollToEnd();
  view_.Locked(true);
  SwapMarkedPage();
  EXPECT_EQ(WindowText(view_.Hwnd()), kText);
  view_.Locked(false);
  ExpectMarkedPageInTheControl();
}

TEST_F(LivePage, APageThatIsReplacedByATextIsALivePageStill) {
  SwapMarkedPage();
  Send(WM_VSCROLL, SB_BOTTOM);
  view_.Text(u"ab");
  EXPECT_NE(Surface(), nullptr);
  EXPECT_EQ(WindowText(view_.Hwnd()), u"ab");
  view_.Locked(false);
  EXPECT_EQ(view_.Text(), u"ab");
  EXPECT_NE(FormatAt(0).dwEffects & CFE_AUTOBACKCOLOR, 0U) << "a colour of the page before";
  EXPECT_FALSE(view_.CanUndo());
}

}  // namespace
}  // namespace tolvane::platform::windows
