#include "platform/windows/dialogs/settings_dialog.h"

#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <functional>
#include <optional>
#include <utility>

#include "platform/windows/dialogs/formcommonsetting_window.h"
#include "platform/windows/dialogs/formhelp_window.h"
#include "platform/windows/dialogs/formoptionlog1_window.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/file_services.h"
#include "platform/windows/system/shell.h"
#include "platform/windows/system/text.h"
#include "tests/platform/windows/all_windows_bed.h"
#include "tests/platform/windows/dialogs/system_dialog.h"
#include "tests/platform/windows/system/pump.h"
#include "tests/platform/windows/system/scratch_folder.h"

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

  void AskForAColour(std::function<void(HWND)> meanwhile) {
    const WhileAsked asked(
        dialog_.Hwnd(), [this] { Press(id::Bt_DataChangeColor_Dialog); }, std::move(meanwhile));
  }
  [[nodiscard]] String Box(int control) const {
    return WindowText(GetDlgItem(dialog_.Hwnd(), control));
  }
  void Fill(int control, const wchar_t* text) {
    SetWindowTextW(GetDlgItem(dialog_.Hwnd(), control), text);
  }
  void Press(int control) {
    SendMessageW(dialog_.Hwnd(), WM_COMMAND, static_cast<WPARAM>(control), 0);
  }

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
};

TEST_F(SettingsDialogTest, AClickWhoseDialogIsGoneTouchesTheNextOpeningNoMore) {
  AskForAColour([this](HWND) {
    dialog_.Unload();
    dialog_.Show();
    Fill(id::TB_DataChangeColorTime, L"77");
  });
  ASSERT_NE(dialog_.Hwnd(), nullptr);
  EXPECT_EQ(Box(id::TB_DataChangeColorTime), u"77");
}

TEST_F(SettingsDialogTest, AClickWhoseDialogIsGoneEndsQuietly) {
  AskForAColour([this](HWND) { dialog_.Unload(); });
  EXPECT_EQ(dialog_.Hwnd(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(owner_));
}

TEST_F(SettingsDialogTest, BehindItsColourDialogNoCommandComesThrough) {
  Fill(id::TB_DataChangeColorTime, L"77");
  const std::int32_t before = device_.t_DataChangeColorTime;
  AskForAColour([this](HWND) {
    Press(id::Bt_OK);
    Press(id::Bt_Cancell);
    Press(id::Img_Help_Setting);
    SendMessageW(dialog_.Hwnd(), WM_CLOSE, 0, 0);
    EXPECT_FALSE(help_.Visible());
  });
  EXPECT_NE(dialog_.Hwnd(), nullptr);
  EXPECT_EQ(device_.t_DataChangeColorTime, before);
  Press(id::Bt_OK);
  EXPECT_EQ(dialog_.Hwnd(), nullptr);
  EXPECT_NE(device_.t_DataChangeColorTime, before);
}

/// The settings of the log, whose folder pictures ask by the system's chooser.
class LogSettings : public SettingsDialogTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    device_.Param_ALL_Clear();
    device_.t_SaveFilePath = folder_ / u"";
    log_.Show();
    ASSERT_NE(log_.Hwnd(), nullptr);
  }
  void TearDown() override {
    log_.Unload();
    SettingsDialogTest::TearDown();
    CoUninitialize();
  }
  [[nodiscard]] String Folder() const {
    return WindowText(GetDlgItem(log_.Hwnd(), id::TB_SaveFilePath));
  }

  /// Types a folder's name and chooses it.
  static void ChooseAnother(HWND chooser) {
    EnumChildWindows(chooser, &TypeAnother, 0);
    Answer(chooser, IDOK);
  }
  /// Into the first box that is shown; of the others the chooser wants nothing.
  static BOOL CALLBACK TypeAnother(HWND child, LPARAM /*unused*/) {
    if (ClassOf(child) != u"edit" || !IsWindowVisible(child)) return TRUE;
    SendMessageW(child, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"C:\\windows"));
    return FALSE;
  }

  static constexpr StringView kAnother = u"C:\\windows";
  ScratchFolder folder_;
  WindowsCodePage code_page_;
  WindowsFileServices files_{code_page_};
  FormOptionLog1Window log_{surroundings_, help_, resources_, device_, files_};
};

TEST_F(LogSettings, TheFolderThatIsChosenFillsTheBox) {
  const WhileAsked asked(
      log_.Hwnd(), [this] { SendMessageW(log_.Hwnd(), WM_COMMAND, id::Img_save_folder, 0); },
      &ChooseAnother);
  EXPECT_EQ(Folder(), kAnother);
}

TEST_F(LogSettings, AFolderChosenForADialogThatIsGoneIsNone) {
  WindowsFolderDialog folder_dialog(gate_);
  folder_dialog.Owner(log_.Hwnd());
  std::optional<String> folder;
  const WhileAsked asked(
      log_.Hwnd(), [&] { folder = folder_dialog.ShowFolder(folder_ / u""); },
      [this](HWND chooser) {
        // It outlives its owner, and still gives what is chosen.
        SetWindowLongPtrW(chooser, GWLP_HWNDPARENT, 0);
        log_.Unload();
        ChooseAnother(chooser);
      });
  EXPECT_EQ(folder, std::nullopt);
}

}  // namespace
}  // namespace tolvane::platform::windows
