#include "platform/windows/dialogs/dialog_windows.h"

#include "shell/helpwizard.h"

namespace tolvane::platform::windows {

void DialogWindows::ShowManual(bool connected) {
  HelpWizard::Manual_Show(device_.ExecutableFolder(), connected, files_, shell_);
}

void DialogWindows::Unload(OtherForm form) {
  switch (form) {
    case OtherForm::FormVersion:
      return FormVersion_.Unload();
    case OtherForm::FormCommonSetting:
      return FormCommonSetting_.Unload();
    case OtherForm::FormOption1:
      return FormOption1_.Unload();
    case OtherForm::FormHelp:
      return FormHelp_.Unload();
    case OtherForm::Form2:
    case OtherForm::FormBG:
    case OtherForm::FormBG_29:
    case OtherForm::FormBG2:
    case OtherForm::FormBG2_29:
      return;
  }
}

}  // namespace tolvane::platform::windows
