#pragma once

#include "platform/main_window.h"
#include "platform/windows/dialogs/formcommonsetting_window.h"
#include "platform/windows/dialogs/formhelp_window.h"
#include "platform/windows/dialogs/formoption1_window.h"
#include "platform/windows/dialogs/formoptionlog1_window.h"
#include "platform/windows/dialogs/formversion_window.h"
#include "platform/windows/system/shell.h"

namespace tolvane::platform::windows {

/// The windows that the menus open.
class DialogWindows final : public OtherForms {
 public:
  /// `device` and `mouseCursor` are those of Form1.
  DialogWindows(const DialogSurroundings& surroundings, FileServices& files, ELM327_Info& device,
                const std::int32_t& mouseCursor)
      : surroundings_(surroundings),
        files_(files),
        device_(device),
        FormHelp_(surroundings_, device),
        FormVersion_(surroundings_, shell_, device, mouseCursor),
        FormCommonSetting_(surroundings_, FormHelp_, resources_, device),
        FormOption1_(surroundings_, FormHelp_, resources_, device),
        FormOptionLog1_(surroundings_, FormHelp_, resources_, device, files) {}

  void menu_common_setting_Click() { Open(FormCommonSetting_); }
  void menu_opt_function1_Click() { Open(FormOption1_); }
  void menu_opt_log1_Click() { Open(FormOptionLog1_); }
  void menu_help_version_Click() { FormVersion_.Show(); }
  void ShowManual(bool connected);

  /// Of the forms here; without effect on the others.
  void Unload(OtherForm form) override;

 private:
  /// One at a time: a command that comes although the main window is disabled is dropped.
  void Open(SettingsDialog& dialog) {
    if (IsWindowEnabled(surroundings_.main_window)) dialog.Show();
  }

  DialogSurroundings surroundings_;
  FileServices& files_;
  const ELM327_Info& device_;
  WindowsShell shell_;
  WindowsStringResources resources_;
  FormHelpWindow FormHelp_;
  FormVersionWindow FormVersion_;
  FormCommonSettingWindow FormCommonSetting_;
  FormOption1Window FormOption1_;
  FormOptionLog1Window FormOptionLog1_;
};

}  // namespace tolvane::platform::windows
