#pragma once

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "platform/windows/dialogs/dialog_windows.h"
#include "platform/windows/system/file_services.h"
#include "tests/platform/windows/main_window/main_window_bed.h"

namespace tolvane::platform::windows {

/// Every window of the program, as the program makes them.
class AllWindows : ProgramWindows {
 public:
  AllWindows() {
    made_ = window_.CreateHidden();
    device_.Param_ALL_Clear();
    dialogs_.emplace(DialogSurroundings{instance_, gate_, loop_, window_.Hwnd()}, files_, device_,
                     cursor_);
    window_.Attach(&*dialogs_);
  }

  [[nodiscard]] bool Made() const { return made_; }
  [[nodiscard]] HWND Main() const { return window_.Hwnd(); }
  [[nodiscard]] HWND SplashScreen() const { return splash_.Hwnd(); }
  [[nodiscard]] WindowsEventLoop& Loop() { return loop_; }
  [[nodiscard]] DialogWindows& Dialogs() { return *dialogs_; }
  [[nodiscard]] Form1Window& Window() { return window_; }
  /// The windows that the main one unloads.
  [[nodiscard]] OtherForms& Forms() { return window_.Face().other_forms; }
  /// The settings that the dialogs show and write.
  [[nodiscard]] ELM327_Info& Device() { return device_; }

  /// A window of this process that is open, null without.
  [[nodiscard]] static HWND Find(const wchar_t* window_class) {
    return FindWindowExW(nullptr, nullptr, window_class, nullptr);
  }
  /// Opens one of the settings dialogs, 0 to 2; closed by Close.
  HWND OpenSettings(int number) {
    switch (number) {
      case 0:
        dialogs_->menu_common_setting_Click();
        break;
      case 1:
        dialogs_->menu_opt_function1_Click();
        break;
      default:
        dialogs_->menu_opt_log1_Click();
    }
    return Find(SettingsDialog::kClassName);
  }
  static void Close(HWND window) { SendMessageW(window, WM_CLOSE, 0, 0); }
  HWND OpenVersion() {
    dialogs_->menu_help_version_Click();
    return Find(FormVersionWindow::kClassName);
  }
  static HWND OpenHelp(HWND settings, int help_picture) {
    SendMessageW(settings, WM_COMMAND, static_cast<WPARAM>(help_picture), 0);
    return Find(FormHelpWindow::kClassName);
  }

 private:
  WindowsFileServices files_{code_page_};
  ELM327_Info device_{u"C:\\Tolvane"};
  std::int32_t cursor_ = 0;
  std::optional<DialogWindows> dialogs_;
  bool made_ = false;
};

/// Calls `visit` with every child that is shown when its window is.
template <typename Visit>
void ForEachShownChild(HWND window, Visit visit) {
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if ((GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) != 0) visit(child);
  }
}

/// The class of a window in small letters.
inline String ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  CharLowerBuffW(name.data(), static_cast<DWORD>(length));
  return String(FromWide(name.data(), static_cast<std::size_t>(length)));
}

}  // namespace tolvane::platform::windows
