#include "platform/windows/main_window/form1_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <vector>

#include "platform/windows/main_window/form1_layout.h"
#include "tests/platform/windows/main_window/main_window_bed.h"
#include "tests/platform/windows/system/pump.h"
#include "tests/platform/windows/system/window_picture.h"

namespace tolvane::platform::windows {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(MainWindowTest, EveryControlStandsUnderItsNumberWithItsFirstText) {
  const struct {
    int control;
    StringView text;
  } rows[] = {{id::Lb_Serect_Device, u"機器No."},
              {id::Lb_ODB_Hard_Version, u"機器情報"},
              {id::Lb_Protocol, u"通信モード"},
              {id::Lb_Status, u"ステータス"},
              {id::Lb_LogComment, u"コメント"},
              {id::Bt_Connect, u"接続"},
              {id::Bt_Disconnect, u"切断"},
              {id::Bt_SaveFile, u"スナップショット"},
              {id::Bt_ViewClear, u"画面クリア"},
              {id::Cmb_Serect_Device, u""},
              {id::TB_ODB_Hard_Version, u"Nothing"},
              {id::TB_Protocol, u"---"},
              {id::TB_Status, u""},
              {id::TB_LogComment, u""},
              {id::RTB_MainView, u""}};
  for (const auto& row : rows) {
    ASSERT_NE(Child(row.control), nullptr) << row.control;
    EXPECT_EQ(ChildText(row.control), row.text) << row.control;
  }
}

TEST_F(MainWindowTest, NothingRunsOrCanBeConnectedBeforeTheStartIsThrough) {
  const MainWindow face = window_.Face();
  EXPECT_FALSE(IsWindowEnabled(Child(id::Bt_Connect)));
  EXPECT_FALSE(IsWindowEnabled(Child(id::Bt_Disconnect)));
  EXPECT_EQ(GetWindowLongPtrW(Child(id::Pic_Caution), GWL_STYLE) & WS_VISIBLE, 0);
  EXPECT_FALSE(IsWindowVisible(window_.Hwnd()));
  EXPECT_FALSE(face.RTB_MainView.Locked());
}

TEST_F(MainWindowTest, CommentTakesFiftyCharacters) {
  EXPECT_EQ(SendMessageW(Child(id::TB_LogComment), EM_GETLIMITTEXT, 0, 0), 50);
}

TEST_F(MainWindowTest, OnlyTheCommentCanBeTypedIn) {
  for (const int control : {id::TB_ODB_Hard_Version, id::TB_Protocol, id::TB_Status}) {
    EXPECT_NE(GetWindowLongPtrW(Child(control), GWL_STYLE) & ES_READONLY, 0) << control;
  }
  EXPECT_EQ(GetWindowLongPtrW(Child(id::TB_LogComment), GWL_STYLE) & ES_READONLY, 0);
}

TEST_F(MainWindowTest, AClickReachesTheLogic) {
  Click(id::Bt_ViewClear);
  Click(id::Bt_SaveFile);
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_ViewClear, id::Bt_SaveFile));
}

TEST_F(MainWindowTest, ConnectIsDisabledAtOnceAndStartsFromThePostedMessage) {
  EnableWindow(Child(id::Bt_Connect), TRUE);
  Click(id::Bt_Connect);
  EXPECT_FALSE(IsWindowEnabled(Child(id::Bt_Connect)));
  EXPECT_THAT(events_.commands, IsEmpty()) << "the sender of the click would wait for the run";
  loop_.YieldToEvents();
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect));
  Send(id::Bt_Connect);
  loop_.YieldToEvents();
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect)) << "disabled, yet it started a run";
}

TEST_F(MainWindowTest, DisabledButtonsAndMenuItemsSendNothing) {
  Send(id::Bt_Connect);
  loop_.YieldToEvents();
  Send(id::Bt_Disconnect);
  EnableMenuItem(GetMenu(window_.Hwnd()), id::menu_common_setting, MF_BYCOMMAND | MF_GRAYED);
  Send(id::menu_common_setting);
  EXPECT_THAT(events_.commands, IsEmpty());
  EnableMenuItem(GetMenu(window_.Hwnd()), id::menu_common_setting, MF_BYCOMMAND | MF_ENABLED);
  Send(id::menu_common_setting);
  Send(id::menu_View_Date);
  EXPECT_THAT(events_.commands, ElementsAre(id::menu_common_setting, id::menu_View_Date));
}

// As while a settings dialog is open, which disables the window.
TEST_F(MainWindowTest, ADisabledWindowTakesNoCommandFromOtherProgramsEither) {
  EnableWindow(Child(id::Bt_Connect), TRUE);
  EnableWindow(window_.Hwnd(), FALSE);
  Click(id::Bt_Connect);
  Send(id::Bt_Connect);
  Click(id::Bt_ViewClear);
  Send(id::menu_common_setting);
  Send(id::Cmb_Serect_Device, CBN_SELCHANGE);
  loop_.YieldToEvents();
  EXPECT_THAT(events_.commands, IsEmpty());
  EXPECT_TRUE(IsWindowEnabled(Child(id::Bt_Connect)));
}

TEST_F(MainWindowTest, ADialogThatOpensBetweenTheClickAndTheRunKeepsTheRunAway) {
  EnableWindow(Child(id::Bt_Connect), TRUE);
  Click(id::Bt_Connect);
  EnableWindow(window_.Hwnd(), FALSE);
  loop_.YieldToEvents();
  EXPECT_THAT(events_.commands, IsEmpty());
  EnableWindow(window_.Hwnd(), TRUE);
  EXPECT_TRUE(IsWindowEnabled(Child(id::Bt_Connect)));
  Click(id::Bt_Connect);
  loop_.YieldToEvents();
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect));
}

// The message that starts the run after the click; another program may post it too.
TEST_F(MainWindowTest, TheMessageOfAClickStartsNothingWithoutTheClick) {
  const auto post_and_yield = [this] {
    PostMessageW(window_.Hwnd(), WM_APP + 1, 0, 0);
    loop_.YieldToEvents();
  };
  post_and_yield();
  EXPECT_THAT(events_.commands, IsEmpty()) << "before the start";
  EnableWindow(Child(id::Bt_Connect), TRUE);
  window_.Start(SW_SHOW);
  post_and_yield();
  EXPECT_THAT(events_.commands, IsEmpty()) << "idle";

  events_.on_command = [&](int) {
    if (events_.commands.size() > 1) return;
    post_and_yield();
    EXPECT_EQ(events_.commands.size(), 1U) << "a run in a run";
    // As while the message box of a snapshot is open.
    EnableWindow(window_.Hwnd(), FALSE);
    post_and_yield();
    EnableWindow(window_.Hwnd(), TRUE);
    EXPECT_FALSE(IsWindowEnabled(Child(id::Bt_Connect))) << "can be pressed in a run";
  };
  events_.commands.clear();
  Click(id::Bt_Connect);
  loop_.YieldToEvents();
  post_and_yield();
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect));
}

TEST_F(MainWindowTest, ACommandThatCannotBeChosenAnyMoreAfterItsWaitIsDropped) {
  gate_.Deliver([this] {
    Send(id::menu_common_setting);
    EnableMenuItem(GetMenu(window_.Hwnd()), id::menu_common_setting, MF_BYCOMMAND | MF_GRAYED);
  });
  gate_.DeliverWaiting();
  EXPECT_THAT(events_.commands, IsEmpty()) << "a dialog in a run";
}

TEST_F(MainWindowTest, ACommandDuringARunComesInItsYieldOnly) {
  events_.on_command = [this](int command) {
    if (command != id::Bt_Connect) return;
    Send(id::Bt_ViewClear);
    EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect)) << "let in outside a yield";
    loop_.YieldToEvents();
    EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect, id::Bt_ViewClear));
  };
  EnableWindow(Child(id::Bt_Connect), TRUE);
  Click(id::Bt_Connect);
  loop_.YieldToEvents();
  EXPECT_EQ(events_.commands.size(), 2U);
}

TEST_F(MainWindowTest, TheUsersChoiceOfADeviceComesThroughTheGateAndTheCodesAtOnce) {
  const MainWindow face = window_.Face();
  face.Cmb_Serect_Device.AddItem(u"CANUSB TV100001");
  face.Cmb_Serect_Device.AddItem(u"Interface PCI-485120 port:1");
  EXPECT_EQ(face.Cmb_Serect_Device.ListIndex(), -1);
  face.Cmb_Serect_Device.ListIndex(1);
  EXPECT_THAT(events_.commands, ElementsAre(id::Cmb_Serect_Device));
  EXPECT_EQ(face.Cmb_Serect_Device.Text(), u"Interface PCI-485120 port:1");
  face.Cmb_Serect_Device.ListIndex(1);
  EXPECT_EQ(events_.commands.size(), 2U) << "the selected line again raises it again";
  gate_.Deliver([&] {
    face.Cmb_Serect_Device.ListIndex(0);
    EXPECT_EQ(events_.commands.size(), 3U) << "in code it does not wait for a yield";
    Send(id::Cmb_Serect_Device, CBN_SELCHANGE);
    EXPECT_EQ(events_.commands.size(), 3U);
  });
  gate_.DeliverWaiting();
  EXPECT_EQ(events_.commands.size(), 4U);
}

TEST_F(MainWindowTest, SelectionChangesOfOneWriteComeAsOneEventBehindIt) {
  gate_.Deliver([this] {
    const MainWindow face = window_.Face();
    face.RTB_MainView.Text(u"abc");
    face.RTB_MainView.SelStart(1);
    face.RTB_MainView.SelLength(2);
    EXPECT_EQ(events_.selection_changes, 0) << "let in by a write";
  });
  gate_.DeliverWaiting();
  EXPECT_EQ(events_.selection_changes, 1);
}

TEST_F(MainWindowTest, RightButtonAndMenuKeyAskForThePopUp) {
  const HWND view = Child(id::RTB_MainView);
  SendMessageW(view, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(events_.context_menus, 1);
  SendMessageW(view, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view), MAKELPARAM(5, 5));
  EXPECT_EQ(events_.context_menus, 1) << "the button counted twice";
  SendMessageW(view, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view), -1);
  EXPECT_EQ(events_.context_menus, 2);
}

TEST_F(MainWindowTest, TheFocusOfTheViewIsToldAndCanBeSentOn) {
  window_.Start(SW_SHOW);
  events_.on_focus = [this] { SetFocus(Child(id::TB_Status)); };
  SetFocus(Child(id::RTB_MainView));
  EXPECT_EQ(events_.focuses, 1);
  EXPECT_EQ(GetFocus(), Child(id::TB_Status));
}

TEST_F(MainWindowTest, ATextOfTheLogicIsSeenAtOnceWithAllThatWaitsToBePainted) {
  window_.Start(SW_SHOW);
  loop_.YieldToEvents();
  InvalidateRect(Child(id::Bt_Connect), nullptr, TRUE);
  ASSERT_TRUE(GetUpdateRect(Child(id::Bt_Connect), nullptr, FALSE));
  window_.Face().TB_Status.Text(u"通信初期処理中");
  EXPECT_FALSE(GetUpdateRect(Child(id::TB_Status), nullptr, FALSE));
  EXPECT_FALSE(GetUpdateRect(Child(id::Bt_Connect), nullptr, FALSE));
}

TEST_F(MainWindowTest, UnloadedFormsAreGone) {
  workers_.FormBG_29.Enabled(true);
  window_.Face().other_forms.Unload(OtherForm::FormBG_29);
  EXPECT_FALSE(workers_.FormBG_29.Enabled());
  window_.Face().other_forms.Unload(OtherForm::Form2);
  EXPECT_EQ(splash_.Hwnd(), nullptr);
  window_.Face().other_forms.Unload(OtherForm::Form2);
  window_.Face().other_forms.Unload(OtherForm::FormHelp);
}

TEST_F(MainWindowTest, NothingIsClippedOrLiesOverAnotherAtTheSmallestSize) {
  const Dpi dpi;
  SetWindowPos(window_.Hwnd(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
  RECT client{};
  GetClientRect(window_.Hwnd(), &client);
  EXPECT_GE(client.right, dpi.Pixels(kSmallestClient.cx)) << "smaller than the minimum";

  std::vector<RECT> taken;
  for (HWND child = GetWindow(window_.Hwnd(), GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (GetDlgCtrlID(child) == 0) continue;  // the live surface, which covers the view on purpose
    RECT bounds{};
    GetWindowRect(child, &bounds);
    MapWindowPoints(nullptr, window_.Hwnd(), reinterpret_cast<POINT*>(&bounds), 2);
    const int control = GetDlgCtrlID(child);
    EXPECT_GE(bounds.left, 0) << control;
    EXPECT_LE(bounds.right, client.right) << control;
    EXPECT_LE(bounds.bottom, client.bottom) << control;
    EXPECT_GT(bounds.right - bounds.left, dpi.Pixels(40)) << control;
    for (const RECT& other : taken) {
      RECT common{};
      EXPECT_FALSE(IntersectRect(&common, &bounds, &other)) << control;
    }
    taken.push_back(bounds);

    const String text = WindowText(child);
    const HDC context = GetDC(child);
    const HGDIOBJ before =
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
    SIZE size{};
    GetTextExtentPoint32W(context, WideData(StringView(text)), static_cast<int>(text.size()),
                          &size);
    SelectObject(context, before);
    ReleaseDC(child, context);
    EXPECT_LE(size.cx, bounds.right - bounds.left) << control;
    EXPECT_LE(size.cy, bounds.bottom - bounds.top) << control;
  }
  EXPECT_EQ(taken.size(), 16U);
}

TEST_F(MainWindowTest, TheViewTakesWhatALargerWindowGives) {
  const Dpi dpi;
  const int width = dpi.Pixels(900);
  const int height = dpi.Pixels(500);
  SetWindowPos(window_.Hwnd(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
  RECT small{};
  GetClientRect(Child(id::RTB_MainView), &small);
  SetWindowPos(window_.Hwnd(), nullptr, 0, 0, width + 100, height + 200, SWP_NOMOVE | SWP_NOZORDER);
  RECT large{};
  GetClientRect(Child(id::RTB_MainView), &large);
  EXPECT_EQ(large.right - small.right, 100);
  EXPECT_EQ(large.bottom - small.bottom, 200);
}

TEST_F(MainWindowTest, ControlsThatMoveAreSeenWhole) {
  window_.Start(SW_SHOW);
  loop_.YieldToEvents();
  RedrawWindow(window_.Hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  const int controls[] = {id::Bt_Connect, id::Bt_Disconnect, id::Bt_SaveFile, id::Bt_ViewClear,
                          id::Lb_Status};
  std::vector<WindowPicture> before;
  for (const int control : controls) before.emplace_back(Child(control));
  // By half a button, by more than one, and back.
  for (const int width : {1000, 1272, 1000, 940}) {
    SetWindowPos(window_.Hwnd(), nullptr, 0, 0, width, 700, SWP_NOMOVE | SWP_NOZORDER);
    for (std::size_t i = 0; i < std::size(controls); ++i) {
      EXPECT_TRUE(PumpUntil(loop_, [&] { return WindowPicture(Child(controls[i])) == before[i]; }))
          << controls[i] << " at " << width;
    }
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
