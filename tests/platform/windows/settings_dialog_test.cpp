#include "platform/windows/settings_dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "platform/windows/formcommonsetting_window.h"
#include "platform/windows/formhelp_window.h"
#include "platform/windows/shell.h"
#include "platform/windows/text.h"
#include "tests/platform/windows/pump.h"
// Last, see there.
#include "platform/windows/resources/resource.h"

namespace tolvane::platform::windows {
namespace {

/// The common settings over a window of their own.
class SettingsDialogTest : public testing::Test {
 protected:
  void SetUp() override {
    device_.Param_ALL_Clear();
    dialog_.Show();
    ASSERT_NE(dialog_.Hwnd(), nullptr);
  }
  void TearDown() override {
    dialog_.Unload();
    DestroyWindow(owner_);
  }

  /// Presses a colour button, does `meanwhile` while the system's dialog is up, and returns when
  /// the click is over; a system's dialog that is still up then is cancelled.
  void AskForAColour(std::function<void()> meanwhile) {
    meanwhile_ = std::move(meanwhile);
    asking_ = dialog_.Hwnd();
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, &OnTimer);
    under_test_ = this;
    SendMessageW(dialog_.Hwnd(), WM_COMMAND, Bt_DataChangeColor_Dialog, 0);
    KillTimer(nullptr, timer);
    EXPECT_TRUE(done_) << "no colour dialog came up";
  }
  [[nodiscard]] String Box(int id) const { return WindowText(GetDlgItem(dialog_.Hwnd(), id)); }
  void Fill(int id, const wchar_t* text) { SetWindowTextW(GetDlgItem(dialog_.Hwnd(), id), text); }
  void Press(int id) { SendMessageW(dialog_.Hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0); }

  HINSTANCE instance_ = GetModuleHandleW(nullptr);
  EventGate gate_;
  WindowsEventLoop loop_{gate_};
  WindowsStringResources resources_;
  ELM327_Info device_{u"C:\\Tolvane"};
  HWND owner_ = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                instance_, nullptr);
  DialogSurroundings surroundings_{instance_, gate_, loop_, owner_};
  FormHelpWindow help_{surroundings_, device_};
  FormCommonSettingWindow dialog_{surroundings_, help_, resources_, device_};

 private:
  static HWND ColourDialogOf(HWND owner) {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, L"#32770", nullptr)) != nullptr) {
      if (GetWindow(found, GW_OWNER) == owner) break;
    }
    return found;
  }
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    SettingsDialogTest& test = *under_test_;
    const HWND colours = ColourDialogOf(test.asking_);
    if (colours == nullptr) return;
    if (!std::exchange(test.done_, true)) test.meanwhile_();
    if (IsWindow(colours)) PostMessageW(colours, WM_COMMAND, IDCANCEL, 0);
  }

  static inline SettingsDialogTest* under_test_ = nullptr;
  std::function<void()> meanwhile_;
  HWND asking_ = nullptr;
  bool done_ = false;
};

TEST_F(SettingsDialogTest, AClickWhoseDialogIsGoneTouchesTheNextOpeningNoMore) {
  AskForAColour([this] {
    dialog_.Unload();
    dialog_.Show();
    Fill(TB_DataChangeColorTime, L"77");
  });
  ASSERT_NE(dialog_.Hwnd(), nullptr);
  EXPECT_EQ(Box(TB_DataChangeColorTime), u"77");
}

TEST_F(SettingsDialogTest, AClickWhoseDialogIsGoneEndsQuietly) {
  AskForAColour([this] { dialog_.Unload(); });
  EXPECT_EQ(dialog_.Hwnd(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(owner_));
}

TEST_F(SettingsDialogTest, BehindItsColourDialogNoCommandComesThrough) {
  Fill(TB_DataChangeColorTime, L"77");
  const std::int32_t before = device_.t_DataChangeColorTime;
  AskForAColour([this] {
    Press(Bt_OK);
    Press(Bt_Cancell);
    Press(Img_Help_Setting);
    SendMessageW(dialog_.Hwnd(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(help_.Visible());
  });
  EXPECT_NE(dialog_.Hwnd(), nullptr);
  EXPECT_EQ(device_.t_DataChangeColorTime, before);
  Press(Bt_OK);
  EXPECT_EQ(dialog_.Hwnd(), nullptr);
  EXPECT_NE(device_.t_DataChangeColorTime, before);
}

}  // namespace
}  // namespace tolvane::platform::windows
