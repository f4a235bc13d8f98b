// The commands of the page over the locked, live page of a run.
#include <ostream>

#include "tests/window/control_ids.h"
#include "tests/window/page_fixture.h"
#include "tests/window/system_clipboard.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

constexpr const wchar_t* kLivePageClass = L"TolvaneLiveSurface";

struct WorkerRow {
  const char* name;
  bool ids_of_29_bits;
  bool excluding;
};
std::ostream& operator<<(std::ostream& stream, const WorkerRow& row) { return stream << row.name; }

class PageCommandsInARun : public PageCommandsBase {
 protected:
  /// Starts the program and a run whose page, all frames through, stays as it is. What the page
  /// held before is selected.
  void StartRun(const WorkerRow& worker) {
    StartOnRecording(
        "(0.0) can0 123#0A0B\n(0.1) can0 123#0AFF\n(0.1) can0 456#01\n(0.2) can0 456#02\n");
    if (worker.ids_of_29_bits) {
      const DrivenWindow dialog = Open(id::menu_common_setting);
      EXPECT_TRUE(dialog.Click(id::RB_MsgType_1));
      PressOk(dialog);
    }
    if (worker.excluding) {
      const DrivenWindow dialog = Open(id::menu_opt_function1);
      EXPECT_TRUE(dialog.Click(id::CB_Save_ID_DisableMode));
      PressOk(dialog);
    }
    WriteOver(L"notes");
    Select(0, 3);
    ASSERT_NO_FATAL_FAILURE(Connect(main_));
    ASSERT_TRUE(WaitForShown(L"0A FF"));
    ASSERT_TRUE(WaitForShown(L"456  1   02"));
    ASSERT_NE(LivePage(), nullptr);
  }
  /// What lies over the control while a page is live; null before and after.
  [[nodiscard]] HWND LivePage() const {
    const HWND page = FindWindowExW(main_.Handle(), nullptr, kLivePageClass, nullptr);
    return IsWindowVisible(page) ? page : nullptr;
  }
  /// Gives a box the focus by the mouse.
  void FocusComment() const {
    main_.ClickMouse(id::TB_LogComment);
    EXPECT_TRUE(WaitUntil([&] { return main_.HasFocus(id::TB_LogComment); }));
  }
  /// Clicks the live page until the focus goes from the comment to where it belongs. A click that
  /// falls into the yield of a tick, which has stopped its timer, leaves the focus on the page.
  void ExpectFocusAfterClick(int control) const {
    EXPECT_TRUE(WaitUntil([&] {
      FocusComment();
      PostMessageW(LivePage(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
      return main_.AwaitPosted(id::TB_Protocol) && main_.HasFocus(control);
    }));
  }
  /// True when the message does not open the pop-up; one that it opened is closed again.
  [[nodiscard]] bool OpensNothing(HWND target, UINT message, LPARAM lparam) const {
    PostMessageW(target, message, 0, lparam);
    EXPECT_TRUE(main_.AwaitPosted(id::TB_Protocol));
    if (PopUp() == nullptr) return true;
    ClosePopUp();
    return false;
  }
};

class OtherWorker : public PageCommandsInARun, public testing::WithParamInterface<WorkerRow> {};

TEST_P(OtherWorker, ThePopUpOpensOverTheLockedPageAndItsWritesLastUntilTheNextTick) {
  ASSERT_NO_FATAL_FAILURE(StartRun(GetParam()));
  const std::wstring page = Page();
  EXPECT_TRUE(main_.ReadOnly(id::RTB_MainView));
  HeldClipboard().Put(L"text");
  // Over the live page as over the control itself, where ticks come too.
  SetCaret(0);
  ASSERT_TRUE(WaitUntil([&] { return LivePage() != nullptr; })) << "no tick behind the selection";
  for (const HWND face : {LivePage(), main_.Control(id::RTB_MainView)}) {
    EXPECT_EQ(OpenPopUp(face),
              (Items{id::menu_View_All_Copy, id::menu_View_Ctrl_V, id::menu_View_Date}));
  }
  EXPECT_TRUE(main_.ReadOnly(id::RTB_MainView));

  // Between the selection and the copy a tick may come, which ends the selection.
  std::wstring copied;
  EXPECT_TRUE(WaitUntil([&] {
    Select(0, -1);
    Do(id::menu_View_Ctrl_C);
    copied = HeldClipboard().Plain();
    return copied == page;
  })) << Utf8(copied);
  HeldClipboard().Put(L"text");
  SetCaret(0);
  WaitForQuietClipboard();  // in a run the program does not wait long for it
  ExpectCopied(id::menu_View_All_Copy, page);
  EXPECT_TRUE(RichTextReader(HeldClipboard().Rich()).Text().starts_with(page));

  EXPECT_TRUE(WaitUntil([&] {
    Select(0, -1);
    Do(id::menu_View_DEL);
    return Page().empty();
  })) << "no writing command was seen";
  EXPECT_TRUE(WaitUntil([&] { return Page() == page; })) << "the next tick did not restore it";
  EXPECT_TRUE(main_.ReadOnly(id::RTB_MainView));

  ExpectFocusAfterClick(id::RTB_MainView);
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  EXPECT_EQ(Utf8(Page()), Utf8(page));
  End();
}

INSTANTIATE_TEST_SUITE_P(Workers, OtherWorker,
                         testing::Values(WorkerRow{"FormBG2", false, true},
                                         WorkerRow{"FormBG_29", true, false},
                                         WorkerRow{"FormBG2_29", true, true}),
                         [](const auto& row) { return row.param.name; });

TEST_F(PageCommandsInARun, OfFormBGThePopUpStaysAway) {
  ASSERT_NO_FATAL_FAILURE(StartRun({"FormBG", false, false}));
  // Not at the first try when a click falls into the yield of a tick, which has stopped its timer.
  EXPECT_TRUE(WaitUntil([&] { return OpensNothing(LivePage(), WM_RBUTTONUP, MAKELPARAM(5, 5)); }));
  EXPECT_TRUE(
      WaitUntil([&] { return OpensNothing(main_.Control(id::RTB_MainView), WM_CONTEXTMENU, -1); }));
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  // The same click opens it after the run.
  EXPECT_FALSE(OpenPopUp().empty());
  End();
}

TEST_F(PageCommandsInARun, OfFormBGTheFocusOfThePageIsSentOnToTheStatusAndAfterItStays) {
  ASSERT_NO_FATAL_FAILURE(StartRun({"FormBG", false, false}));
  ExpectFocusAfterClick(id::TB_Status);
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  FocusComment();
  main_.ClickMouse(id::RTB_MainView);
  EXPECT_TRUE(WaitUntil([&] { return main_.HasFocus(id::RTB_MainView); }));
  End();
}

TEST_F(PageCommandsInARun, OfFormBGTheItemsFitThePageAfterIt) {
  ASSERT_NO_FATAL_FAILURE(StartRun({"FormBG", false, false}));
  { HeldClipboard().Put(L""); }
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  EXPECT_EQ(OpenPopUp(), (Items{id::menu_View_All_Copy, id::menu_View_Date}));
  End();
}

}  // namespace
}  // namespace tolvane::window
