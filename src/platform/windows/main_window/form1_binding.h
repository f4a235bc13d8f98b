#pragma once

#include "platform/windows/dialogs/dialog_windows.h"
#include "platform/windows/main_window/form1_events.h"
#include "run/control/form1.h"

namespace tolvane::platform::windows {

/// Leads the events of the main window to the handlers of Form1 and to the windows that the menus
/// open.
class Form1Binding final : public Form1Events {
 public:
  Form1Binding(Form1& form, DialogWindows& dialogs) : form_(form), dialogs_(dialogs) {}

  void Command(int command) override;
  void ViewSelectionChanged() override { form_.RTB_MainView_SelChange(); }
  void ViewContextMenu() override {
    form_.Do([this] { form_.RTB_MainView_ContextMenu(); });
  }
  void ViewGotFocus() override { form_.RTB_MainView_GotFocus(); }
  void HelpKey() override {
    form_.Do([this] { dialogs_.ShowManual(form_.RxFlag == 1); });
  }
  [[nodiscard]] bool QueryUnload() override;
  void Unload() override { form_.Form_Unload(); }
  [[nodiscard]] bool ClosingIsRefused() const override { return form_.ClosingIsRefused(); }
  void SessionEnds() override { form_.Session_Ends(); }

 private:
  Form1& form_;
  DialogWindows& dialogs_;
};

}  // namespace tolvane::platform::windows
