#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "platform/windows/main_window/form1_window.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {

/// Counts what the main window tells the logic.
class RecordedEvents final : public Form1Events {
 public:
  void Command(int command) override {
    commands.push_back(command);
    if (on_command) on_command(command);
  }
  void ViewSelectionChanged() override { ++selection_changes; }
  void ViewContextMenu() override { ++context_menus; }
  void ViewGotFocus() override {
    ++focuses;
    if (on_focus) on_focus();
  }
  void HelpKey() override { ++help_keys; }
  [[nodiscard]] bool QueryUnload() override {
    ++queries;
    if (on_query) on_query();
    return !refuse;
  }
  void Unload() override { ++unloads; }
  [[nodiscard]] bool ClosingIsRefused() const override { return refuse; }
  void SessionEnds() override { ++session_ends; }

  std::vector<int> commands;
  std::function<void(int)> on_command;
  std::function<void()> on_focus;
  std::function<void()> on_query;
  int selection_changes = 0;
  int context_menus = 0;
  int focuses = 0;
  int help_keys = 0;
  int queries = 0;
  int unloads = 0;
  int session_ends = 0;
  bool refuse = false;
};

/// What the program makes at its start, the main window still without its parts.
class ProgramWindows {
 protected:
  HINSTANCE instance_ = GetModuleHandleW(nullptr);
  EventGate gate_;
  WindowsEventLoop loop_{gate_};
  WindowsCodePage code_page_;
  SplashWindow splash_{instance_};
  Form1Window::WorkerWindows workers_{gate_, instance_, 30};
  Form1Window window_{instance_, gate_, loop_, code_page_, splash_, workers_};
};

/// The main window as the program makes it, before its start.
class MainWindowTest : public testing::Test, protected ProgramWindows {
 protected:
  void SetUp() override {
    ASSERT_TRUE(window_.CreateHidden());
    window_.Listen(&events_);
  }

  [[nodiscard]] HWND Child(int control) const { return GetDlgItem(window_.Hwnd(), control); }
  [[nodiscard]] String ChildText(int control) const { return WindowText(Child(control)); }
  void Send(int control, int notification = BN_CLICKED) {
    SendMessageW(window_.Hwnd(), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(control), static_cast<WORD>(notification)),
                 reinterpret_cast<LPARAM>(Child(control)));
  }
  void Click(int control) { SendMessageW(Child(control), BM_CLICK, 0, 0); }

  RecordedEvents events_;
};

}  // namespace tolvane::platform::windows
