// The windows worked by the keyboard alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <iterator>
#include <vector>

#include "platform/windows/dialogs/formversion_window.h"
#include "tests/platform/windows/all_windows_bed.h"
#include "tests/platform/windows/system/pump.h"

namespace tolvane::platform::windows {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A press of a key as it comes from the keyboard, to the window with the focus.
void Press(WindowsEventLoop& loop, WPARAM key, LPARAM flags = 1) {
  PostMessageW(GetFocus(), WM_KEYDOWN, key, flags);
  PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  loop.YieldToEvents();
}

class MainWindowKeys : public MainWindowTest {
 protected:
  void SetUp() override {
    ASSERT_NO_FATAL_FAILURE(MainWindowTest::SetUp());
    EnableWindow(Child(id::Bt_Connect), TRUE);
    window_.Start(SW_SHOW);
    PumpUntil(loop_, [this] { return GetFocus() == Child(id::Bt_Connect); });
  }

  [[nodiscard]] bool IsDefault(int control) const {
    return (GetWindowLongPtrW(Child(control), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
  }
  /// The buttons with the ring of the default one.
  [[nodiscard]] std::vector<int> Defaults() const {
    std::vector<int> found;
    for (const int control :
         {id::Bt_Connect, id::Bt_Disconnect, id::Bt_SaveFile, id::Bt_ViewClear}) {
      if (IsDefault(control)) found.push_back(control);
    }
    return found;
  }
  /// The controls that Tab comes to, from `first` until it is there again.
  std::vector<int> TabRound(int first) {
    SetFocus(Child(first));
    std::vector<int> round;
    do {
      round.push_back(GetDlgCtrlID(GetFocus()));
      Press(loop_, VK_TAB);
    } while (GetFocus() != Child(first) && round.size() < 20);
    return round;
  }
};

TEST_F(MainWindowKeys, EnterConnectsRightAfterTheStart) {
  ASSERT_EQ(GetFocus(), Child(id::Bt_Connect));
  EXPECT_THAT(Defaults(), ElementsAre(id::Bt_Connect));
  Press(loop_, VK_RETURN);
  loop_.YieldToEvents();
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect));
}

TEST_F(MainWindowKeys, TheRingIsOnTheButtonWithTheFocusAndOnNoOther) {
  EnableWindow(Child(id::Bt_Disconnect), TRUE);
  Press(loop_, VK_TAB);
  EXPECT_EQ(GetFocus(), Child(id::Bt_Disconnect));
  EXPECT_THAT(Defaults(), ElementsAre(id::Bt_Disconnect));
  Press(loop_, VK_RETURN);
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Disconnect));
  // As at the end of a run.
  EnableWindow(Child(id::Bt_Disconnect), FALSE);
  window_.Face().TB_Status.SetFocus();
  EXPECT_THAT(Defaults(), IsEmpty());
  Press(loop_, VK_RETURN);
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Disconnect)) << "pressed without focus";
  SetFocus(Child(id::Bt_SaveFile));
  EXPECT_THAT(Defaults(), ElementsAre(id::Bt_SaveFile));
}

TEST_F(MainWindowKeys, TabComesToEveryControlThatCanBeUsedAndInARunToDisconnect) {
  EXPECT_THAT(TabRound(id::TB_Status),
              ElementsAre(id::TB_Status, id::TB_LogComment, id::Bt_SaveFile, id::Bt_ViewClear,
                          id::RTB_MainView, id::Cmb_Serect_Device, id::TB_ODB_Hard_Version,
                          id::Bt_Connect, id::TB_Protocol));
  // A run of the worker in which the view passes the focus on.
  EnableWindow(Child(id::Bt_Connect), FALSE);
  EnableWindow(Child(id::Bt_Disconnect), TRUE);
  EnableWindow(Child(id::Cmb_Serect_Device), FALSE);
  workers_.FormBG.Enabled(true);
  events_.on_focus = [this] { SetFocus(Child(id::TB_Status)); };
  EXPECT_THAT(TabRound(id::TB_Status),
              ElementsAre(id::TB_Status, id::TB_LogComment, id::Bt_SaveFile, id::Bt_ViewClear,
                          id::TB_ODB_Hard_Version, id::Bt_Disconnect, id::TB_Protocol));
}

TEST_F(MainWindowKeys, TheViewIsNoTabStopInARunOfFormBGItsTicksIncludedAndElseItIs) {
  const auto is_stop = [this] {
    return (GetWindowLongPtrW(Child(id::RTB_MainView), GWL_STYLE) & WS_TABSTOP) != 0;
  };
  EXPECT_TRUE(is_stop());
  bool stop_in_tick = true;
  int ticks = 0;
  workers_.FormBG.OnTick([&] {
    workers_.FormBG.Enabled(false);
    stop_in_tick = is_stop();
    workers_.FormBG.Enabled(++ticks < 3);
  });
  workers_.FormBG.Enabled(true);
  EXPECT_FALSE(is_stop());
  PumpUntil(loop_, [&] { return ticks == 1; });
  EXPECT_FALSE(stop_in_tick);
  EXPECT_FALSE(is_stop());
  PumpUntil(loop_, [&] { return ticks == 3; });
  EXPECT_TRUE(is_stop()) << "the run has ended in its tick";
  workers_.FormBG.Enabled(true);
  workers_.FormBG.Enabled(false);
  EXPECT_TRUE(is_stop());
  for (WorkerWindow* worker : {&workers_.FormBG2, &workers_.FormBG_29, &workers_.FormBG2_29}) {
    worker->Enabled(true);
    EXPECT_TRUE(is_stop());
    worker->Enabled(false);
  }
}

TEST_F(MainWindowKeys, FunctionKeysPressTheirButtonsFromAnyControl) {
  EnableWindow(Child(id::Bt_Disconnect), TRUE);
  SetFocus(Child(id::RTB_MainView));
  Press(loop_, VK_F9);
  SetFocus(Child(id::TB_LogComment));
  Press(loop_, VK_F6);
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_SaveFile, id::Bt_Disconnect));
  Press(loop_, VK_F5);
  loop_.YieldToEvents();
  EXPECT_THAT(events_.commands, ElementsAre(id::Bt_SaveFile, id::Bt_Disconnect, id::Bt_Connect));
  Press(loop_, VK_F1);
  EXPECT_EQ(events_.help_keys, 1);
}

TEST_F(MainWindowKeys, FunctionKeysDoNothingWhereTheButtonWould) {
  Press(loop_, VK_F6);
  EnableWindow(Child(id::Bt_Connect), FALSE);
  SetFocus(Child(id::TB_Status));
  Press(loop_, VK_F5);
  constexpr LPARAM kHeldDown = 1 << 30 | 1;
  Press(loop_, VK_F9, kHeldDown);
  // A settings dialog is open.
  EnableWindow(window_.Hwnd(), FALSE);
  PostMessageW(Child(id::TB_Status), WM_KEYDOWN, VK_F9, 1);
  PostMessageW(Child(id::TB_Status), WM_KEYDOWN, VK_F1, 1);
  loop_.YieldToEvents();
  EnableWindow(window_.Hwnd(), TRUE);
  EXPECT_THAT(events_.commands, IsEmpty());
  EXPECT_EQ(events_.help_keys, 0);
}

TEST_F(MainWindowKeys, KeysInARunWaitForItsYield) {
  events_.on_command = [this](int command) {
    if (command != id::Bt_Connect) return;
    PostMessageW(Child(id::TB_Status), WM_KEYDOWN, VK_F9, 1);
    EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect));
    loop_.YieldToEvents();
    EXPECT_THAT(events_.commands, ElementsAre(id::Bt_Connect, id::Bt_SaveFile));
  };
  Press(loop_, VK_F5);
  loop_.YieldToEvents();
  EXPECT_EQ(events_.commands.size(), 2U);
}

TEST_F(MainWindowKeys, EscapeClosesNothing) {
  for (const int control : {id::Bt_Connect, id::TB_LogComment, id::RTB_MainView}) {
    SetFocus(Child(control));
    Press(loop_, VK_ESCAPE);
    loop_.YieldToEvents();
    EXPECT_EQ(events_.queries, 0) << control;
  }
}

class OtherWindowsKeys : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(windows_.Made());
    windows_.Window().Start(SW_SHOW);
  }
  bool Focused(HWND control) {
    return PumpUntil(windows_.Loop(), [control] { return GetFocus() == control; });
  }
  bool Shown(const wchar_t* window_class) {
    return PumpUntil(windows_.Loop(), [window_class] {
      return IsWindowVisible(AllWindows::Find(window_class)) != FALSE;
    });
  }
  bool Hidden(const wchar_t* window_class) {
    return PumpUntil(windows_.Loop(), [window_class] {
      return IsWindowVisible(AllWindows::Find(window_class)) == FALSE;
    });
  }

  AllWindows windows_;
};

TEST_F(OtherWindowsKeys, F1AndTheHelpPictureShowTheHelpOfEachDialog) {
  for (int i = 0; i < 3; ++i) {
    SCOPED_TRACE(i);
    const HWND dialog = windows_.OpenSettings(i);
    ASSERT_TRUE(PumpUntil(windows_.Loop(), [dialog] { return IsChild(dialog, GetFocus()); }));
    Press(windows_.Loop(), VK_F1);
    EXPECT_TRUE(Shown(FormHelpWindow::kClassName));
    AllWindows::Close(AllWindows::Find(FormHelpWindow::kClassName));
    EXPECT_TRUE(Hidden(FormHelpWindow::kClassName));

    const HWND picture = GetDlgItem(dialog, id::Img_Help_Setting);
    SetFocus(GetNextDlgTabItem(dialog, picture, TRUE));
    Press(windows_.Loop(), VK_TAB);
    EXPECT_TRUE(Focused(picture));
    Press(windows_.Loop(), VK_SPACE);
    EXPECT_TRUE(Shown(FormHelpWindow::kClassName));
    AllWindows::Close(dialog);
  }
}

TEST_F(OtherWindowsKeys, TabComesToTheFolderPictures) {
  const HWND dialog = windows_.OpenSettings(2);
  std::vector<int> round;
  HWND stop = GetNextDlgTabItem(dialog, nullptr, FALSE);
  const HWND first = stop;
  do {
    round.push_back(GetDlgCtrlID(stop));
    stop = GetNextDlgTabItem(dialog, stop, FALSE);
  } while (stop != first && round.size() < 50);
  for (const int control : {id::Img_save_folder, id::Img_save_folder_path, id::Img_Log_save_folder,
                            id::Img_Log_save_folder_path, id::Img_Help_Setting}) {
    EXPECT_THAT(round, testing::Contains(control));
  }
  AllWindows::Close(dialog);
}

TEST_F(OtherWindowsKeys, TabLeavesTheTextOfTheHelpAndEnterAndEscapeCloseIt) {
  const HWND dialog = windows_.OpenSettings(0);
  const HWND help = AllWindows::OpenHelp(dialog, id::Img_Help_Setting);
  ASSERT_TRUE(Focused(GetDlgItem(help, id::Bt_Close)));
  Press(windows_.Loop(), VK_TAB);
  EXPECT_TRUE(Focused(GetDlgItem(help, id::TB_View)));
  Press(windows_.Loop(), VK_TAB);
  EXPECT_TRUE(Focused(GetDlgItem(help, id::Bt_Close)));
  for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
    SetFocus(GetDlgItem(help, id::TB_View));
    Press(windows_.Loop(), key);
    EXPECT_TRUE(Hidden(FormHelpWindow::kClassName)) << key;
    AllWindows::OpenHelp(dialog, id::Img_Help_Setting);
  }
  AllWindows::Close(dialog);
}

class OpenedAddresses final : public Shell {
 public:
  void ShellExecuteA(StringView, StringView file, std::int32_t) override {
    addresses.emplace_back(file);
  }
  void OpenPage(StringView, StringView address) override { addresses.emplace_back(address); }
  std::vector<String> addresses;
};

TEST(VersionWindowKeys, TabSpaceEnterAndEscapeReachTheLinkAndTheEnd) {
  EventGate gate;
  WindowsEventLoop loop(gate);
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  const HWND owner = CreateWindowExW(0, WC_STATICW, L"", WS_OVERLAPPED | WS_VISIBLE, 0, 0, 100, 100,
                                     nullptr, nullptr, instance, nullptr);
  const DialogSurroundings surroundings{instance, gate, loop, owner};
  ELM327_Info device(u"C:\\Tolvane");
  device.Param_ALL_Clear();
  OpenedAddresses shell;
  const std::int32_t cursor = 0;
  FormVersionWindow version(surroundings, shell, device, cursor);
  const auto part = [&version](int control) { return GetDlgItem(version.Hwnd(), control); };
  const auto focus_is = [&](int control) {
    return PumpUntil(loop, [&] { return GetFocus() == part(control); });
  };
  for (const WPARAM key : {VK_SPACE, VK_RETURN, VK_ESCAPE}) {
    version.Show();
    ASSERT_TRUE(focus_is(id::Lb_OK)) << key;
    Press(loop, key);
    EXPECT_FALSE(IsWindowVisible(version.Hwnd())) << key;
  }
  version.Show();
  ASSERT_TRUE(focus_is(id::Lb_OK));
  Press(loop, VK_TAB);
  ASSERT_TRUE(focus_is(id::PicURL));
  Press(loop, VK_SPACE);
  Press(loop, VK_RETURN);
  EXPECT_THAT(shell.addresses,
              ElementsAre(u"https://tolvane.example/", u"https://tolvane.example/"));
  EXPECT_TRUE(IsWindowVisible(version.Hwnd()));
  Press(loop, VK_ESCAPE);
  EXPECT_FALSE(IsWindowVisible(version.Hwnd()));
  version.Unload();
  DestroyWindow(owner);
}

}  // namespace
}  // namespace tolvane::platform::windows
