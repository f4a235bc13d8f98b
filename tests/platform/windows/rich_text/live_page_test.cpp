// Whose content is read, written and saved while a page is live.
#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "tests/platform/windows/rich_text/live_page_bed.h"
#include "tests/platform/windows/system/scratch_folder.h"

namespace tolvane::platform::windows {
namespace {

TEST_F(LivePage, WhatIsReadIsWhatWasLastWritten) {
  view_.Text(u"notes\r\n");
  EXPECT_EQ(WindowText(view_.Hwnd()), u"notes\r\n");
  Swap(u"first\r\n");
  EXPECT_EQ(view_.Text(), u"first\r\n");
  EXPECT_EQ(WindowText(view_.Hwnd()), u"first\r\n");
  view_.Text(u"");
  EXPECT_EQ(view_.Text(), u"");
  EXPECT_EQ(WindowText(view_.Hwnd()), u"");
  Swap(u"second");
  EXPECT_EQ(WindowText(view_.Hwnd()), u"second");
  EXPECT_TRUE(Load("{\\rtf1 third}"));
  EXPECT_EQ(view_.Text().substr(0, 5), u"third");
  Swap(u"");
  EXPECT_EQ(view_.Text(), u"");
  EXPECT_NE(Surface(), nullptr);
}

TEST_F(LivePage, ReadingTheTextLeavesTheControlUnfilled) {
  SwapMarkedPage();
  EXPECT_EQ(view_.Text(), kText);
  EXPECT_EQ(WindowText(view_.Hwnd()), kText);
  EXPECT_EQ(static_cast<std::size_t>(Send(WM_GETTEXTLENGTH)), kText.size());
  EXPECT_EQ(view_.TextRTF().substr(0, 5), u"{\\rtf");
  EXPECT_EQ(view_.SelLength(), 0);
  EXPECT_FALSE(view_.CanUndo());
  view_.Refresh();
  EXPECT_NE(Surface(), nullptr);
}

TEST_F(LivePage, TextIsCutToTheReadersRoom) {
  Swap(u"abcdef");
  wchar_t buffer[5] = L"....";
  EXPECT_EQ(Send(WM_GETTEXT, 4, reinterpret_cast<LPARAM>(buffer)), 3);
  EXPECT_STREQ(buffer, L"abc");
  EXPECT_EQ(Send(WM_GETTEXT, 1, reinterpret_cast<LPARAM>(buffer)), 0);
  EXPECT_STREQ(buffer, L"");
  EXPECT_EQ(Send(WM_GETTEXT, 0, 0), 0);
}

TEST_F(LivePage, AnAnsiReaderGetsThePageInTheCodePage) {
  Swap(u"abc\r\n");
  char buffer[16] = {};
  EXPECT_EQ(SendMessageA(view_.Hwnd(), WM_GETTEXT, sizeof buffer, reinterpret_cast<LPARAM>(buffer)),
            5);
  EXPECT_STREQ(buffer, "abc\r\n");
}

TEST_F(LivePage, TheControlIsStillFoundUnderItsNumber) {
  SwapMarkedPage();
  EXPECT_EQ(GetDlgItem(parent_, kId), view_.Hwnd());
  EXPECT_TRUE(IsWindowVisible(view_.Hwnd()));
}

TEST_F(LivePage, MessagesThatNeedTheControlFindThePageThere) {
  wchar_t buffer[64];
  GETTEXTEX room{sizeof buffer, GT_DEFAULT, 1200, nullptr, nullptr};
  GETTEXTLENGTHEX precise{GTL_NUMCHARS | GTL_PRECISE, 1200};
  TEXTRANGEW part{{0, 2}, buffer};
  const auto address = [](auto& value) { return reinterpret_cast<LPARAM>(&value); };
  const struct {
    const char* label;
    UINT message;
    WPARAM wparam;
    LPARAM lparam;
    LRESULT expected;
  } rows[] = {
      {"EM_GETTEXTEX", EM_GETTEXTEX, reinterpret_cast<WPARAM>(&room), address(buffer), 21},
      {"EM_GETTEXTLENGTHEX", EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&precise), 0, 21},
      {"EM_GETTEXTRANGE", EM_GETTEXTRANGE, 0, address(part), 2},
      {"EM_GETLINECOUNT", EM_GETLINECOUNT, 0, 0, 4},
      {"EM_LINEINDEX", EM_LINEINDEX, 1, 0, 3},
      {"EM_GETSELTEXT", EM_GETSELTEXT, 0, address(buffer), 0},
  };
  for (const auto& row : rows) {
    SwapMarkedPage();
    ASSERT_NE(Surface(), nullptr) << row.label;
    const LRESULT answer = Send(row.message, row.wparam, row.lparam);
    EXPECT_EQ(answer, row.expected) << row.label;
    SCOPED_TRACE(row.label);
    ExpectMarkedPageInTheControl();
  }
}

TEST_F(LivePage, ACopyAndAPictureFillTheControl) {
  for (const UINT message : {WM_PRINTCLIENT, WM_COPY}) {
    SwapMarkedPage();
    ASSERT_NE(Surface(), nullptr);
    Send(message);
    SCOPED_TRACE(message);
    ExpectMarkedPageInTheControl();
  }
}

TEST_F(LivePage, OfTheObjectsOfAccessibilityOnlyThoseThatShowTheTextFillTheControl) {
  SwapMarkedPage();
  for (const LONG object : {OBJID_WINDOW, OBJID_SYSMENU, OBJID_TITLEBAR, OBJID_MENU, OBJID_VSCROLL,
                            OBJID_HSCROLL, OBJID_SIZEGRIP, OBJID_CARET, OBJID_CURSOR, OBJID_ALERT,
                            OBJID_SOUND, OBJID_QUERYCLASSNAMEIDX, LONG{1}}) {
    Send(WM_GETOBJECT, 0, object);
    EXPECT_NE(Surface(), nullptr) << object;
  }
  // A sender of 32 bits fills the upper half with zeros, one of 64 with the sign.
  const auto unsigned_client = static_cast<LPARAM>(static_cast<DWORD>(OBJID_CLIENT));
  const LPARAM readers[] = {OBJID_CLIENT, unsigned_client, OBJID_NATIVEOM, -25};
  for (const LPARAM object : readers) {
    SCOPED_TRACE(object);
    EXPECT_TRUE(FillsForReader([&] { Send(WM_GETOBJECT, 0, object); }));
    ExpectMarkedPageInTheControl();
  }
}

TEST_F(LivePage, ReadersWhoAskOftenFillTheControlOnceASecond) {
  ULONGLONG fillings = 0;
  const ULONGLONG begin = GetTickCount64();
  for (int i = 0; i < 50; ++i) {
    SwapMarkedPage();
    Send(WM_GETOBJECT, 0, OBJID_CLIENT);
    if (Surface() == nullptr) ++fillings;
  }
  EXPECT_GE(fillings, 1U);
  EXPECT_LE(fillings, 1 + (GetTickCount64() - begin) / 1000);
  EXPECT_TRUE(FillsForReader([this] { Send(WM_GETOBJECT, 0, OBJID_CLIENT); }));
  ExpectMarkedPageInTheControl();
}

/// As another program sends it, which waits for the answer meanwhile.
LRESULT SendFromElsewhere(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
  LRESULT answer = 0;
  std::atomic<bool> answered = false;
  std::thread sender([&] {
    answer = SendMessageW(window, message, wparam, lparam);
    answered = true;
  });
  while (!answered) {
    MSG waiting;
    while (PeekMessageW(&waiting, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&waiting);
  }
  sender.join();
  return answer;
}

TEST_F(LivePage, QuestionsOfOtherProgramsFillTheControlOnceASecondAndItsOwnAlways) {
  wchar_t buffer[64];
  TEXTRANGEW part{{0, 2}, buffer};
  IUnknown* object = nullptr;
  const struct {
    UINT message;
    LPARAM lparam;
  } rows[] = {{EM_GETSEL, 0},
              {EM_GETLINECOUNT, 0},
              {EM_GETTEXTRANGE, reinterpret_cast<LPARAM>(&part)},
              {EM_GETOLEINTERFACE, reinterpret_cast<LPARAM>(&object)},
              {WM_PRINTCLIENT, 0}};
  ULONGLONG fillings = 0;
  const ULONGLONG begin = GetTickCount64();
  for (int i = 0; i < 10; ++i) {
    for (const auto& row : rows) {
      SwapMarkedPage();
      SendFromElsewhere(view_.Hwnd(), row.message, 0, row.lparam);
      if (Surface() == nullptr) ++fillings;
      if (object != nullptr) object->Release();
      object = nullptr;
    }
  }
  EXPECT_GE(fillings, 1U);
  EXPECT_LE(fillings, 1 + (GetTickCount64() - begin) / 1000);
  for (const auto& row : rows) {
    SwapMarkedPage();
    Send(row.message, 0, row.lparam);
    EXPECT_EQ(Surface(), nullptr) << row.message;
    if (object != nullptr) object->Release();
    object = nullptr;
  }
  LRESULT lines = 0;
  EXPECT_TRUE(FillsForReader([&] { lines = SendFromElsewhere(view_.Hwnd(), EM_GETLINECOUNT); }));
  EXPECT_EQ(lines, 4);
  ExpectMarkedPageInTheControl();
}

TEST_F(LivePage, CommandsOfOtherProgramsFindThePageHoweverOftenTheyCome) {
  for (int i = 0; i < 3; ++i) {
    SwapMarkedPage();
    SendFromElsewhere(view_.Hwnd(), EM_SETSEL, 3, 6);
    EXPECT_EQ(view_.SelText(), u"1A0") << i;
    for (const UINT message : {WM_COPY, WM_PASTE}) {
      SwapMarkedPage();
      SendFromElsewhere(view_.Hwnd(), message);
      EXPECT_EQ(Surface(), nullptr) << message;
    }
  }
}

/// The command of a test, run by the parent of the view.
LRESULT CALLBACK RunCommand(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                            UINT_PTR /*id*/, DWORD_PTR command) {
  if (message == WM_APP) (*reinterpret_cast<std::function<void()>*>(command))();
  return DefSubclassProc(window, message, wparam, lparam);
}

TEST_F(LivePage, WhatTheProgramItselfAsksInACommandOfAnotherOneFindsThePage) {
  CHARFORMAT2W format{};
  std::function<void()> command = [&] {
    SwapMarkedPage();
    EXPECT_TRUE(InSendMessage());
    format = FormatAt(12);
  };
  ASSERT_TRUE(SetWindowSubclass(parent_, &RunCommand, 2, reinterpret_cast<DWORD_PTR>(&command)));
  for (int i = 0; i < 3; ++i) {
    SendFromElsewhere(parent_, WM_APP);
    EXPECT_EQ(format.crTextColor, 0x0000FFU) << i;
  }
  RemoveWindowSubclass(parent_, &RunCommand, 2);
}

TEST_F(LivePage, AWriteOfTheProgramLastsUntilTheNextSwap) {
  const struct {
    const char* label;
    std::function<void()> write;
    String text;
  } rows[] = {
      {"text at the caret", [this] { view_.SelText(u"now "); }, u"now " + String(kText)},
      {"a colour",
       [this] {
         view_.SelStart(0);
         view_.SelLength(2);
         view_.SelColor(0xFF0000);
       },
       String(kText)},
      {"a marker",
       [this] {
         view_.SelStart(0);
         view_.SelLength(2);
         view_.SelBackColor(0);
       },
       String(kText)},
      {"from outside", [this] { SetWindowTextW(view_.Hwnd(), L"outside"); }, u"outside"},
  };
  for (const auto& row : rows) {
    SwapMarkedPage();
    row.write();
    EXPECT_EQ(view_.Text(), row.text) << row.label;
    EXPECT_EQ(WindowText(view_.Hwnd()), row.text) << row.label;
    EXPECT_EQ(Surface(), nullptr) << row.label;
    Swap(u"next");
    EXPECT_EQ(view_.Text(), u"next") << row.label;
    EXPECT_EQ(view_.SelLength(), 0) << row.label;
    EXPECT_NE(Surface(), nullptr) << row.label;
  }
}

TEST_F(LivePage, AColouredSelectionKeepsThePagesOtherColours) {
  SwapMarkedPage();
  view_.SelStart(4);
  view_.SelLength(3);
  EXPECT_EQ(view_.SelText(), u"1A0");
  view_.SelColor(0xFF0000);
  EXPECT_EQ(ColourAt(4), 0xFF0000U);
  EXPECT_EQ(ColourAt(12), 0x0000FFU);
  EXPECT_TRUE(view_.Locked());
}

/// Counts into the int whose address comes with the subclass.
LRESULT CALLBACK CountUnlockings(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                 UINT_PTR /*id*/, DWORD_PTR count) {
  if (message == EM_SETREADONLY && wparam == FALSE) ++*reinterpret_cast<int*>(count);
  return DefSubclassProc(window, message, wparam, lparam);
}

TEST_F(LivePage, WritesOfTheWholeContentLeaveTheLockOn) {
  int unlockings = 0;
  ASSERT_TRUE(SetWindowSubclass(view_.Hwnd(), &CountUnlockings, 2,
                                reinterpret_cast<DWORD_PTR>(&unlockings)));
  SwapMarkedPage();
  EXPECT_EQ(Send(EM_GETLINECOUNT), 4);  // fills the control
  SwapMarkedPage();
  view_.Text(u"text");
  EXPECT_EQ(view_.Text(), u"text");
  EXPECT_TRUE(Load("{\\rtf1 rich}"));
  EXPECT_EQ(view_.Text().substr(0, 4), u"rich");
  EXPECT_EQ(unlockings, 0);
  view_.SelText(u"x");
  EXPECT_EQ(unlockings, 1);
  RemoveWindowSubclass(view_.Hwnd(), &CountUnlockings, 2);
}

TEST_F(LivePage, SnapshotsComeFromThePage) {
  const ScratchFolder folder;
  SwapMarkedPage();
  ASSERT_TRUE(view_.SaveFile(folder / u"KS.txt", RichTextView::FileFormat::kPlainText));
  std::string plain;
  code_page_.Encode(kText, plain);
  EXPECT_EQ(folder.Content(u"KS.txt"), plain);
  ASSERT_TRUE(view_.SaveFile(folder / u"KS.rtf", RichTextView::FileFormat::kRichText));
  EXPECT_NE(Surface(), nullptr) << "a snapshot needs no control";

  view_.Text(u"");
  ASSERT_TRUE(view_.LoadFile(folder / u"KS.rtf"));
  ExpectMarkedPageInTheControl();
}

TEST_F(LivePage, ASwapTellsASelectionThatItTookAwayOnce) {
  view_.Text(u"abc");
  view_.SelStart(0);
  view_.SelLength(2);
  selection_changes_ = 0;
  SwapMarkedPage();
  EXPECT_EQ(selection_changes_, 1);
  SwapMarkedPage();
  view_.Locked(false);
  EXPECT_EQ(selection_changes_, 1);
}

TEST_F(LivePage, KeysForTheControlReachTheFilledControl) {
  SwapMarkedPage();
  Send(WM_KEYDOWN, VK_F3);
  EXPECT_NE(Surface(), nullptr);
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
  Send(WM_KEYDOWN, 'A');
  keys[VK_CONTROL] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(Surface(), nullptr);
  EXPECT_EQ(view_.SelText().substr(0, 2), u"ID");
}

TEST_F(LivePage, ComingByTabSelectsNothingOnALivePage) {
  EXPECT_NE(Send(WM_GETDLGCODE) & DLGC_HASSETSEL, 0);
  SwapMarkedPage();
  EXPECT_EQ(Send(WM_GETDLGCODE) & DLGC_HASSETSEL, 0);
  EXPECT_NE(Send(WM_GETDLGCODE) & DLGC_WANTALLKEYS, 0);
}

}  // namespace
}  // namespace tolvane::platform::windows
