#pragma once

#include "config/dialogs/formcommonsetting.h"
#include "platform/windows/dialogs/settings_dialog.h"

namespace tolvane::platform::windows {

/// FormCommonSetting on the screen.
class FormCommonSettingWindow final : public SettingsDialogOf<FormCommonSetting> {
 public:
  FormCommonSettingWindow(const DialogSurroundings& surroundings, HelpWindow& help,
                          StringResources& resources, ELM327_Info& device);

 private:
  void AddControls() override;
  void AddRates();
  void Bind(const ControlBinder& bind) override;
  void OnClick(int control) override;
};

}  // namespace tolvane::platform::windows
