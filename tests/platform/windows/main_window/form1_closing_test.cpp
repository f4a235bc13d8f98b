// How the main window is closed: by the user, by other programs, by the end of the session.
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <atomic>
#include <thread>

#include "tests/platform/windows/main_window/main_window_bed.h"

namespace tolvane::platform::windows {
namespace {

TEST_F(MainWindowTest, ClosingAsksAndARefusalLeavesTheWindow) {
  window_.Start(SW_SHOW);
  events_.refuse = true;
  SendMessageW(window_.Hwnd(), WM_CLOSE, 0, 0);
  EXPECT_EQ(events_.queries, 1);
  EXPECT_EQ(events_.unloads, 0);
  EXPECT_FALSE(loop_.Ended());
  EXPECT_TRUE(IsWindowVisible(window_.Hwnd()));
}

TEST_F(MainWindowTest, ClosingUnloadsOnceAndEndsTheLoop) {
  window_.Start(SW_SHOW);
  SendMessageW(window_.Hwnd(), WM_CLOSE, 0, 0);
  SendMessageW(window_.Hwnd(), WM_CLOSE, 0, 0);
  EXPECT_EQ(events_.queries, 1);
  EXPECT_EQ(events_.unloads, 1);
  EXPECT_TRUE(loop_.Ended());
  EXPECT_FALSE(IsWindowVisible(window_.Hwnd()));
  EXPECT_NE(GetWindow(window_.Hwnd(), GW_CHILD), nullptr) << "the controls must stay usable";
}

TEST_F(MainWindowTest, ClosingDuringTheStartWaitsForItsEnd) {
  SendMessageW(window_.Hwnd(), WM_CLOSE, 0, 0);
  EXPECT_EQ(events_.queries, 0);
  window_.Start(SW_SHOW);
  EXPECT_EQ(events_.unloads, 1);
}

TEST_F(MainWindowTest, TheEndOfTheSessionIsRefusedDuringARunAndElseClosesTheWindow) {
  window_.Start(SW_SHOW);
  events_.refuse = true;
  EXPECT_EQ(SendMessageW(window_.Hwnd(), WM_QUERYENDSESSION, 0, 0), FALSE);
  SendMessageW(window_.Hwnd(), WM_ENDSESSION, FALSE, 0);
  EXPECT_EQ(events_.queries, 0);
  events_.refuse = false;
  EXPECT_EQ(SendMessageW(window_.Hwnd(), WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageW(window_.Hwnd(), WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(events_.unloads, 1);
}

// A system that is in a hurry does not wait for the answer.
TEST_F(MainWindowTest, AForcedEndOfTheSessionIsToldOnceAtOnceAndClosesTheWindowBehindTheRun) {
  window_.Start(SW_SHOW);
  events_.refuse = true;
  int ends_in_the_run = 0;
  events_.on_command = [&](int) {
    SendMessageW(window_.Hwnd(), WM_ENDSESSION, TRUE, 0);
    SendMessageW(window_.Hwnd(), WM_ENDSESSION, TRUE, 0);
    ends_in_the_run = events_.session_ends;
    EXPECT_EQ(events_.queries, 0);
    events_.refuse = false;  // the run is through
  };
  EnableWindow(Child(id::Bt_Connect), TRUE);
  Click(id::Bt_Connect);
  loop_.YieldToEvents();
  EXPECT_EQ(ends_in_the_run, 1);
  EXPECT_EQ(events_.unloads, 1);
  EXPECT_TRUE(loop_.Ended());
}

// As closing yields before it saves.
TEST_F(MainWindowTest, TheEndOfTheSessionInAYieldOfClosingIsToldOnceAndClosingGoesOn) {
  window_.Start(SW_SHOW);
  int ends_in_closing = 0;
  events_.on_query = [&] {
    SendMessageW(window_.Hwnd(), WM_ENDSESSION, TRUE, 0);
    SendMessageW(window_.Hwnd(), WM_ENDSESSION, TRUE, 0);
    ends_in_closing = events_.session_ends;
  };
  SendMessageW(window_.Hwnd(), WM_CLOSE, 0, 0);
  EXPECT_EQ(ends_in_closing, 1);
  EXPECT_EQ(events_.queries, 1);
  EXPECT_EQ(events_.unloads, 1);
  EXPECT_TRUE(loop_.Ended());
}

TEST_F(MainWindowTest, TheEndOfTheSessionDuringTheStartSavesNothing) {
  EXPECT_EQ(SendMessageW(window_.Hwnd(), WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageW(window_.Hwnd(), WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(events_.queries, 0);
  EXPECT_EQ(events_.session_ends, 0);
}

TEST_F(MainWindowTest, AThreadMessageToQuitIsAWishToCloseAndIsRefusedDuringARun) {
  window_.Start(SW_SHOW);
  events_.refuse = true;
  PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 0, 0);
  loop_.YieldToEvents();
  EXPECT_EQ(events_.queries, 1);
  EXPECT_FALSE(loop_.Ended());

  events_.refuse = false;
  PostThreadMessageW(GetCurrentThreadId(), WM_QUIT, 0, 0);
  loop_.RunUntilEnd();
  EXPECT_EQ(events_.queries, 2) << "ended without asking";
  EXPECT_EQ(events_.unloads, 1);
}

TEST_F(MainWindowTest, AClosingThatAnotherProgramSendsEndsAWaitingLoop) {
  window_.Start(SW_SHOW);
  loop_.YieldToEvents();
  std::atomic<bool> ended = false;
  bool late = false;
  std::thread sender([&, receiver = GetCurrentThreadId()] {
    SendNotifyMessageW(window_.Hwnd(), WM_CLOSE, 0, 0);
    for (int i = 0; i < 30 && !ended; ++i) Sleep(100);
    late = !ended;
    PostThreadMessageW(receiver, WM_NULL, 0, 0);
  });
  loop_.RunUntilEnd();
  ended = true;
  sender.join();
  EXPECT_EQ(events_.unloads, 1);
  EXPECT_FALSE(late) << "went on waiting for a message";
}

/// Whether the pop-up was still up after a time in ms; it is closed then.
class PopUpWatch {
 public:
  explicit PopUpWatch(UINT time) : timer_(SetTimer(nullptr, 0, time, &Close)) { still_up_ = false; }
  ~PopUpWatch() { KillTimer(nullptr, timer_); }
  PopUpWatch(const PopUpWatch&) = delete;
  PopUpWatch& operator=(const PopUpWatch&) = delete;
  [[nodiscard]] bool StillUp() const { return still_up_; }

 private:
  static void CALLBACK Close(HWND, UINT, UINT_PTR, DWORD) {
    still_up_ = true;
    EndMenu();
  }

  static inline bool still_up_ = false;
  UINT_PTR timer_;
};

TEST_F(MainWindowTest, ClosingTakesThePopUpAlongUnlessItIsRefused) {
  window_.Start(SW_SHOW);
  loop_.YieldToEvents();
  for (const bool refuse : {true, false}) {
    events_.refuse = refuse;
    PostMessageW(window_.Hwnd(), WM_CLOSE, 0, 0);
    const PopUpWatch watch(refuse ? 1000 : 10'000);  // the machine may be slow
    window_.PopUp();
    EXPECT_EQ(watch.StillUp(), refuse);
    EXPECT_EQ(loop_.Ended(), !refuse);
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
