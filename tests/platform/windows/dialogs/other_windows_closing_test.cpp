// The ways of closing the windows other than the main one.
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <ostream>
#include <string>

#include "platform/windows/dialogs/formversion_window.h"
#include "tests/platform/windows/all_windows_bed.h"
#include "tests/platform/windows/system/pump.h"

namespace tolvane::platform::windows {
namespace {

class OtherWindowsClosing : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(windows_.Made());
    windows_.Window().Start(SW_SHOW);
  }

  /// The X of the title bar, or of the window's own menu.
  static void PressX(HWND window) { SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); }
  void PressEscape(HWND window) {
    ASSERT_TRUE(
        PumpUntil(windows_.Loop(), [window] { return IsChild(window, GetFocus()) != FALSE; }));
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
    windows_.Loop().YieldToEvents();
  }

  AllWindows windows_;
};

/// A box of each settings dialog, and what its setting is.
struct Typed {
  const char* name;
  int dialog;
  int box;
  const wchar_t* text;
  String (*setting)(const ELM327_Info& device);
};

std::ostream& operator<<(std::ostream& stream, const Typed& typed) { return stream << typed.name; }

const Typed kTyped[] = {
    {"CommonSetting", 0, id::TB_DataChangeColorTime, L"77",
     [](const ELM327_Info& d) { return String(1, char16_t(d.t_DataChangeColorTime / 1000)); }},
    {"Option1", 1, id::TB_MsgMarkerID_0, L"77",
     [](const ELM327_Info& d) { return String(1, char16_t(d.t_MsgMarkerID(0))); }},
    {"OptionLog1", 2, id::TB_SaveFilePath, L"C:\\elsewhere",
     [](const ELM327_Info& d) { return d.t_SaveFilePath; }}};

class SettingsClosing : public OtherWindowsClosing, public testing::WithParamInterface<Typed> {};

TEST_P(SettingsClosing, ByXEscapeAndCancelWritesNothingAndTakesTheHelpAlong) {
  const Typed& typed = GetParam();
  const auto setting = [&] { return typed.setting(windows_.Device()); };
  const String before = setting();
  for (const StringView way : {u"X", u"Escape", u"Cancel", u"OK"}) {
    SCOPED_TRACE(testing::PrintToString(String(way)));
    const HWND dialog = windows_.OpenSettings(typed.dialog);
    EXPECT_FALSE(IsWindowEnabled(windows_.Main()));
    const HWND help = AllWindows::OpenHelp(dialog, id::Img_Help_Setting);
    ASSERT_TRUE(IsWindowVisible(help));
    SetWindowTextW(GetDlgItem(dialog, typed.box), typed.text);
    if (way == u"X") {
      PressX(dialog);
    } else if (way == u"Escape") {
      SetFocus(GetDlgItem(dialog, typed.box));
      PressEscape(dialog);
    } else {
      SendMessageW(dialog, WM_COMMAND, way == u"OK" ? id::Bt_OK : id::Bt_Cancell, 0);
    }
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_FALSE(IsWindowVisible(help));
    EXPECT_TRUE(IsWindowEnabled(windows_.Main()));
    EXPECT_EQ(setting() != before, way == u"OK");
  }
}

INSTANTIATE_TEST_SUITE_P(Dialogs, SettingsClosing, testing::ValuesIn(kTyped),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(OtherWindowsClosing, TheHelpGoesByXEscapeAndOkAndItsDialogStays) {
  const HWND dialog = windows_.OpenSettings(0);
  for (const StringView way : {u"X", u"Escape", u"OK"}) {
    SCOPED_TRACE(testing::PrintToString(String(way)));
    const HWND help = AllWindows::OpenHelp(dialog, id::Img_Help_Setting);
    ASSERT_TRUE(IsWindowVisible(help));
    if (way == u"X") {
      PressX(help);
    } else if (way == u"Escape") {
      PressEscape(help);
    } else {
      SendMessageW(GetDlgItem(help, id::Bt_Close), BM_CLICK, 0, 0);
    }
    EXPECT_FALSE(IsWindowVisible(help));
    EXPECT_TRUE(IsWindow(help)) << "it stays loaded";
    EXPECT_TRUE(IsWindowVisible(dialog));
  }
  AllWindows::Close(dialog);
}

TEST_F(OtherWindowsClosing, TheVersionGoesByCloseAndEscapeAndStaysLoaded) {
  for (const bool by_key : {false, true}) {
    const HWND version = windows_.OpenVersion();
    ASSERT_TRUE(IsWindowVisible(version));
    by_key ? PressEscape(version) : PressX(version);
    EXPECT_FALSE(IsWindowVisible(version)) << by_key;
    EXPECT_TRUE(IsWindow(version)) << by_key;
  }
}

TEST_F(OtherWindowsClosing, UnloadTakesThoseThatStayedLoaded) {
  const HWND dialog = windows_.OpenSettings(0);
  const HWND help = AllWindows::OpenHelp(dialog, id::Img_Help_Setting);
  AllWindows::Close(dialog);
  const HWND version = windows_.OpenVersion();
  const HWND common = windows_.OpenSettings(0);
  const struct {
    OtherForm form;
    HWND window;
  } rows[] = {{OtherForm::FormVersion, version},
              {OtherForm::FormCommonSetting, common},
              {OtherForm::FormHelp, help}};
  for (const auto& row : rows) {
    EXPECT_TRUE(IsWindow(row.window));
    windows_.Forms().Unload(row.form);
    EXPECT_FALSE(IsWindow(row.window));
  }
  const HWND option1 = windows_.OpenSettings(1);
  windows_.Forms().Unload(OtherForm::FormOption1);
  EXPECT_FALSE(IsWindow(option1));
}

}  // namespace
}  // namespace tolvane::platform::windows
